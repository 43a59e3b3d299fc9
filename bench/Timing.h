// Times in nanoseconds, and what is made of them; the threads and the processor that the work runs on.
#pragma once

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <sched.h>
#include <sys/resource.h>
#include <system_error>
#include <thread>
#include <vector>

namespace ovrin::bench {

using Clock = std::chrono::steady_clock;
using Values = std::vector<double>;

inline double Nanoseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::nano>(duration).count();
}

// Of the whole process: all its threads, in the program and in the system.
inline double ProcessorTime() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto nanoseconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_usec) * 1e3;
    };
    return nanoseconds(usage.ru_utime) + nanoseconds(usage.ru_stime);
}

inline double Median(Values values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// How long one call takes on average.
template<typename Call>
double TimeEach(int count, const Call &call) {
    const auto start = Clock::now();
    for (int done = 0; done < count; ++done) {
        call();
    }
    return Nanoseconds(Clock::now() - start) / count;
}

inline double Mean(const Values &values) {
    double sum = 0;
    for (const double value : values) {
        sum += value;
    }
    return sum / static_cast<double>(values.size());
}

// A few nanoseconds each: the median of short stretches keeps out those in which something else ran.
template<typename Call>
Values TimeTinyCall(const Call &call) {
    constexpr int callsInStretch = 500'000;
    Values stretches(41);
    for (double &stretch : stretches) {
        stretch = TimeEach(callsInStretch, [&call] {
            call();
            asm volatile("" ::: "memory"); // the threshold is read anew
        });
    }
    return {Median(stretches)};
}

// Runs the work on that many threads, which begin together; gives what they give.
template<typename Work>
Values RunTogether(int threads, const Work &work) {
    Values results(static_cast<std::size_t>(threads));
    std::atomic<int> waiting = threads;
    std::vector<std::jthread> running;
    for (double &result : results) {
        running.emplace_back([&] {
            --waiting;
            while (waiting > 0) {
                std::this_thread::yield();
            }
            result = work();
        });
    }
    running.clear();
    return results;
}

// Keeps this thread, and those that it starts meanwhile, on the processor where it runs.
class OneProcessorScope {
public:
    OneProcessorScope() {
        Check(sched_getaffinity(0, sizeof(before_), &before_));
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(static_cast<std::size_t>(sched_getcpu()), &one);
        Check(sched_setaffinity(0, sizeof(one), &one));
    }
    OneProcessorScope(const OneProcessorScope &) = delete;
    OneProcessorScope &operator=(const OneProcessorScope &) = delete;
    ~OneProcessorScope() { sched_setaffinity(0, sizeof(before_), &before_); }

private:
    static void Check(int result) {
        if (result != 0) {
            throw std::system_error(errno, std::generic_category(), "processor affinity");
        }
    }

    cpu_set_t before_{};
};

} // namespace ovrin::bench

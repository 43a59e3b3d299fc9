// The logger beside spdlog given equal work: a bounded blocking queue of 16,384 records and one worker, two files, and
// the last 8,192 records in memory. LoggingBench [ROUNDS]
//
// A program of its own and not a benchmark library's, since the two sides take turns within every measure, whole
// loggers come and go, and a call's median counts beside the mean. Shown are medians over the rounds. Neither side
// formats a message. spdlog's flush doesn't wait: a fourth sink, which writes nothing, tells when it is through.
#include "core/logging/Logger.h"

#include <algorithm>
#include <atomic>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <sched.h>
#include <semaphore>
#include <spdlog/async.h>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/sinks/ringbuffer_sink.h>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;
using Values = std::vector<double>;

constexpr std::size_t queueSize = 16384;
constexpr std::size_t historySize = 8192;
const std::string message = "The renderer has loaded mesh 4711 with 128 triangles in 3.5 ms from the cache file";

double Nanoseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::nano>(duration).count();
}

double ProcessorTime() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto nanoseconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_usec) * 1e3;
    };
    return nanoseconds(usage.ru_utime) + nanoseconds(usage.ru_stime);
}

double Median(Values values) {
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

// The temporary folder of the log files, gone at the end.
class Folder {
public:
    Folder() : path_(std::filesystem::temp_directory_path() / ("logging-bench-" + std::to_string(getpid()))) {
        std::filesystem::create_directories(path_);
    }
    Folder(const Folder &) = delete;
    Folder &operator=(const Folder &) = delete;
    ~Folder() { std::filesystem::remove_all(path_); }
    [[nodiscard]] std::string operator/(const char *name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

const Folder &LogFolder() {
    static const Folder folder;
    return folder;
}

enum class Road { Queued, Direct };

class Ours {
public:
    explicit Ours(Road road) {
        logger_.Start("bench", LogFolder() / "ours");
        if (road == Road::Direct) {
            logger_.StopWorker(); // each record is then flushed
        }
    }

    void Log() { logger_.Log(ovrin::LogCategory::Render, ovrin::LogLevel::Info, message); }
    void LogBelow() { logger_.Log(ovrin::LogCategory::Render, ovrin::LogLevel::Debug, message); }
    void TestBelow() {
        if (logger_.ShouldLog(ovrin::LogCategory::Render, ovrin::LogLevel::Debug)) {
            Log();
        }
    }
    void Flush() { logger_.Flush(); }

private:
    ovrin::Logger logger_{{.console = false, .queueCapacity = queueSize, .historyCapacity = historySize}};
};

class FlushedSink : public spdlog::sinks::base_sink<std::mutex> {
public:
    void Await() { flushed_.acquire(); }

private:
    void sink_it_(const spdlog::details::log_msg & /*message*/) override {}
    void flush_() override { flushed_.release(); }

    std::counting_semaphore<> flushed_{0};
};

class Theirs {
public:
    explicit Theirs(Road road) {
        const std::vector<spdlog::sink_ptr> sinks = {
            std::make_shared<spdlog::sinks::basic_file_sink_mt>(LogFolder() / "theirs.log"),
            std::make_shared<spdlog::sinks::basic_file_sink_mt>(LogFolder() / "theirs.latest.log", true),
            std::make_shared<spdlog::sinks::ringbuffer_sink_mt>(historySize), flushed_};
        if (road == Road::Queued) {
            pool_ = std::make_shared<spdlog::details::thread_pool>(queueSize, 1);
            logger_ = std::make_shared<spdlog::async_logger>("bench", sinks.begin(), sinks.end(), pool_,
                                                             spdlog::async_overflow_policy::block);
        } else {
            logger_ = std::make_shared<spdlog::logger>("bench", sinks.begin(), sinks.end());
            logger_->flush_on(spdlog::level::trace);
        }
        logger_->set_pattern("%H:%M:%S [%l] %v");
    }

    void Log() { logger_->log(spdlog::level::info, spdlog::string_view_t(message)); }
    void LogBelow() { logger_->log(spdlog::level::debug, spdlog::string_view_t(message)); }
    void Flush() {
        logger_->flush();
        flushed_->Await();
    }

private:
    std::shared_ptr<FlushedSink> flushed_ = std::make_shared<FlushedSink>();
    std::shared_ptr<spdlog::details::thread_pool> pool_;
    std::shared_ptr<spdlog::logger> logger_;
};

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

double Mean(const Values &values) {
    double sum = 0;
    for (const double value : values) {
        sum += value;
    }
    return sum / static_cast<double>(values.size());
}

// Each measure gives one round's values for one side.

template<typename Side>
Values BelowThreshold() {
    Side side(Road::Queued);
    return {TimeEach(20'000'000, [&side] {
        side.LogBelow();
        asm volatile("" ::: "memory"); // the threshold is read anew
    })};
}

Values BareTest() {
    Ours side(Road::Queued);
    return {TimeEach(20'000'000, [&side] {
        side.TestBelow();
        asm volatile("" ::: "memory");
    })};
}

// Time and processor time of a record.
template<typename Side, int producers>
Values Sustained() {
    constexpr int records = 500'000;
    Side side(Road::Queued);
    const double processorTime = ProcessorTime();
    const auto start = Clock::now();
    RunTogether(producers, [&side] { return TimeEach(records / producers, [&side] { side.Log(); }); });
    side.Flush();
    return {Nanoseconds(Clock::now() - start) / records, (ProcessorTime() - processorTime) / records};
}

constexpr int burstSize = 10'000;
constexpr int bursts = 20;

// After a first one, which finds the memory that the others use.
template<typename Side, typename Burst>
Values RepeatBurst(const Burst &burst) {
    Side side(Road::Queued);
    Values results;
    for (int done = 0; done <= bursts; ++done) {
        const double result = burst(side);
        side.Flush();
        if (done > 0) {
            results.push_back(result);
        }
    }
    return results;
}

template<typename Side>
Values BurstMedian() {
    return {Median(RepeatBurst<Side>([](Side &side) {
        Values times(burstSize);
        auto last = Clock::now();
        for (double &time : times) {
            side.Log();
            const auto now = Clock::now();
            time = Nanoseconds(now - last);
            last = now;
        }
        return Median(times);
    }))};
}

template<typename Side, int producers>
Values BurstMean() {
    return {Mean(RepeatBurst<Side>([](Side &side) {
        return Mean(
            RunTogether(producers, [&side] { return TimeEach(burstSize / producers, [&side] { side.Log(); }); }));
    }))};
}

template<typename Side>
Values Direct() {
    Side side(Road::Direct);
    return {TimeEach(50'000, [&side] { side.Log(); })};
}

template<typename Side>
Values RecordAndFlush() {
    cpu_set_t all;
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(0, &one);
    sched_getaffinity(0, sizeof(all), &all);
    sched_setaffinity(0, sizeof(one), &one); // before the worker is started, which takes it over
    Side side(Road::Queued);
    const double time = TimeEach(20'000, [&side] {
        side.Log();
        side.Flush();
    });
    sched_setaffinity(0, sizeof(all), &all);
    return {time};
}

template<typename Side>
Values StartAndStop() {
    return {TimeEach(50, [] {
        Side side(Road::Queued);
        side.Log();
        side.Flush();
    })};
}

using Round = std::function<Values()>; // gives a value for each row

struct Row {
    const char *name;
    double wantedRatio; // at most
};

struct Measure {
    std::vector<Row> rows;
    Round ours;
    Round theirs;
};

const std::vector<Measure> measures = {
    {{{"call below the threshold, theirs: the bare test", 1.0}}, BelowThreshold<Ours>, BareTest},
    {{{"call below the threshold", 0.3}}, BelowThreshold<Ours>, BelowThreshold<Theirs>},
    {{{"sustained, 1 producer", 0.4}, {"its processor time", 0.5}}, Sustained<Ours, 1>, Sustained<Theirs, 1>},
    {{{"sustained, 4 producers", 0.2}, {"its processor time", 0.5}}, Sustained<Ours, 4>, Sustained<Theirs, 4>},
    {{{"burst, 1 producer, median", 0.75}}, BurstMedian<Ours>, BurstMedian<Theirs>},
    {{{"burst, 1 producer, mean", 0.75}}, BurstMean<Ours, 1>, BurstMean<Theirs, 1>},
    {{{"burst, 4 producers, mean", 0.6}}, BurstMean<Ours, 4>, BurstMean<Theirs, 4>},
    {{{"direct, each record flushed", 0.95}}, Direct<Ours>, Direct<Theirs>},
    {{{"record and flush, one processor", 1.2}}, RecordAndFlush<Ours>, RecordAndFlush<Theirs>},
    {{{"start, one record, stop", 0.25}}, StartAndStop<Ours>, StartAndStop<Theirs>},
};

// The two sides take turns.
void Run(const Measure &measure, int rounds) {
    std::vector<Values> ours(measure.rows.size());
    std::vector<Values> theirs(measure.rows.size());
    const auto add = [](std::vector<Values> &to, const Values &round) {
        for (std::size_t row = 0; row < to.size(); ++row) {
            to[row].push_back(round[row]);
        }
    };
    for (int round = 0; round < rounds; ++round) {
        add(ours, measure.ours());
        add(theirs, measure.theirs());
    }
    for (std::size_t row = 0; row < measure.rows.size(); ++row) {
        const double our = Median(ours[row]);
        const double their = Median(theirs[row]);
        std::printf("%-50s %11.1f %11.1f %7.2f %7.2f\n", measure.rows[row].name, our, their, our / their,
                    measure.rows[row].wantedRatio);
        std::fflush(stdout);
    }
}

} // namespace

int main(int count, char **arguments) {
    int rounds = 5;
    if (count > 1) {
        std::from_chars(arguments[1], arguments[1] + std::string_view(arguments[1]).size(), rounds);
    }
    std::printf("%-50s %11s %11s %7s %7s\n", "ns a record or call, medians", "ours", "theirs", "ratio", "wanted");
    for (const Measure &measure : measures) {
        Run(measure, rounds);
    }
    return 0;
}

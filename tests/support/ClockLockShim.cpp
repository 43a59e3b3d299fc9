// For the thread sanitizer, which doesn't know the call by which timed mutexes lock until a steady time, and so reports
// correct code: the same by the call that it knows.
#include <cstdint>
#include <ctime>
#include <pthread.h>

namespace {

constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;

std::int64_t Nanoseconds(const timespec &time) {
    return time.tv_sec * nanosecondsPerSecond + time.tv_nsec;
}

std::int64_t Now(clockid_t clock) {
    timespec now{};
    clock_gettime(clock, &now);
    return Nanoseconds(now);
}

} // namespace

extern "C" int pthread_mutex_clocklock(pthread_mutex_t *mutex, clockid_t clock, const timespec *deadline) noexcept {
    const std::int64_t wait = Nanoseconds(*deadline) - Now(clock);
    const std::int64_t end = Now(CLOCK_REALTIME) + wait;
    const timespec realDeadline{end / nanosecondsPerSecond, end % nanosecondsPerSecond};
    return pthread_mutex_timedlock(mutex, &realDeadline);
}

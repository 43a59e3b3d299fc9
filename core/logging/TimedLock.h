// Locks and waits that give up at a deadline.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <mutex>

namespace ovrin {

using Deadline = std::chrono::steady_clock::time_point;

// That many milliseconds from now; 0 or less is now. A century is as good as for ever, and still a time that every
// platform can add to its clock.
[[nodiscard]] inline Deadline DeadlineAfter(std::int64_t milliseconds) {
    constexpr std::chrono::milliseconds longest = std::chrono::hours{24 * 365 * 100};
    const std::chrono::milliseconds wait{std::max<std::int64_t>(milliseconds, 0)};
    return std::chrono::steady_clock::now() + std::min(wait, longest);
}

// A free lock is taken even where the deadline has passed.
[[nodiscard]] inline bool LockUntil(std::unique_lock<std::timed_mutex> &lock, Deadline deadline) {
    return lock.try_lock() || lock.try_lock_until(deadline);
}

} // namespace ovrin

// How a lock is taken that is only held for moments.
#pragma once

#include "platform/winapi/WinApi.h"

#include <mutex>

namespace ovrin {

// Tries some times before it sleeps, which would cost the holder a call to wake this thread.
inline void LockSpinning(std::unique_lock<std::timed_mutex> &lock) {
    constexpr int attempts = 100;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (lock.try_lock()) {
            return;
        }
        YieldProcessor();
    }
    lock.lock();
}

} // namespace ovrin

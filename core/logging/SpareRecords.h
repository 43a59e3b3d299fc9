// Records whose storage waits for the next log call, so that a caller copies its message into memory that is already
// there, and before it takes any lock. Safe on any thread.
#pragma once

#include "core/logging/LogRecord.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace ovrin {

// What one log call needs: a copy for the history, and the record that is written.
struct RecordPair {
    LogRecord kept;
    LogRecord written;
};

class SpareRecords {
public:
    SpareRecords() = default;
    SpareRecords(const SpareRecords &) = delete;
    SpareRecords &operator=(const SpareRecords &) = delete;
    ~SpareRecords() {
        for (Slot &slot : slots_) {
            const std::unique_ptr<RecordPair> last(slot.pair.load());
        }
    }

    // The one that the thread with this number gave back last, or a new one.
    [[nodiscard]] std::unique_ptr<RecordPair> Take(std::uint32_t threadId) {
        std::unique_ptr<RecordPair> spare(SlotOf(threadId).exchange(nullptr, std::memory_order_acquire));
        return spare ? std::move(spare) : std::make_unique<RecordPair>();
    }

    void Give(std::uint32_t threadId, std::unique_ptr<RecordPair> pair) {
        const std::unique_ptr<RecordPair> other(SlotOf(threadId).exchange(pair.release(), std::memory_order_acq_rel));
    }

private:
    static constexpr std::size_t slotCount = 16; // threads that share a slot only allocate more often
    static constexpr std::size_t cacheLine = 64;

    struct alignas(cacheLine) Slot {
        std::atomic<RecordPair *> pair{nullptr};
    };

    std::atomic<RecordPair *> &SlotOf(std::uint32_t threadId) { return slots_[threadId % slotCount].pair; }

    std::array<Slot, slotCount> slots_;
};

} // namespace ovrin

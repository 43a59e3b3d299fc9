// The last records, oldest first; above its capacity it gives up the oldest for each new one. No lock of its own.
#pragma once

#include "core/logging/PackedRecords.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

namespace ovrin {

class RecordHistory {
public:
    // At least 1.
    explicit RecordHistory(std::uint64_t capacity) : capacity_(capacity) {}

    [[nodiscard]] std::size_t Size() const { return size_; }
    // All but the oldest `skip`, in order.
    template<typename Visit>
    void ForEach(std::size_t skip, const Visit &visit) const {
        std::size_t place = evicted_ + skip;
        for (const PackedRecords &chunk : chunks_) {
            for (; place < chunk.Size(); ++place) {
                visit(chunk[place]);
            }
            place -= chunk.Size();
        }
    }

    // Room for one more: the next Append raises nothing.
    void MakeRoom(std::size_t messageSize);
    // Needs MakeRoom with the size of its message.
    void Append(const LogRecordView &record) noexcept;

    // Appends copies of those whose sequence is higher; they stand in the order of their sequences.
    void CopyAfter(std::uint64_t sequence, std::vector<LogRecord> &records) const;

    // Empties it. Gives its memory, for whoever frees it without the lock.
    [[nodiscard]] std::deque<PackedRecords> Clear() noexcept;

private:
    void EvictOldest() noexcept;

    std::uint64_t capacity_;
    std::deque<PackedRecords> chunks_; // the oldest goes when all its records are evicted
    PackedRecords spare_;              // the memory of the chunk that went last
    std::size_t evicted_ = 0;          // from the first chunk
    std::size_t size_ = 0;
};

} // namespace ovrin

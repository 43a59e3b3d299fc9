// The last records, oldest first: a ring that grows up to its capacity and then gives up the oldest for each new one.
// No lock of its own.
#pragma once

#include "core/logging/LogRecord.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ovrin {

class RecordHistory {
public:
    // At least 1.
    explicit RecordHistory(std::uint64_t capacity) : capacity_(capacity) {}

    [[nodiscard]] std::size_t Size() const { return records_.size(); }
    // The oldest is 0.
    [[nodiscard]] const LogRecord &operator[](std::size_t index) const;

    // The next Push raises nothing.
    void MakeRoom();
    // Needs MakeRoom. `record` comes back as the one that was evicted, or empty.
    void Push(LogRecord &record) noexcept;

    // Appends those whose sequence is higher; they stand in the order of their sequences.
    void CopyAfter(std::uint64_t sequence, std::vector<LogRecord> &records) const;

    // Gives what it held, for whoever destroys it without the lock.
    [[nodiscard]] std::vector<LogRecord> Clear();

private:
    [[nodiscard]] std::size_t FirstAfter(std::uint64_t sequence) const;

    std::uint64_t capacity_;
    std::vector<LogRecord> records_;
    std::size_t oldest_ = 0; // where the ring begins, once it is full
};

} // namespace ovrin

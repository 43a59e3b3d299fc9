// Records one behind the other in two blocks of memory that are kept when they are cleared: putting one in is a copy to
// the place that is next in line, and a steady flow allocates nothing. No lock of its own.
#pragma once

#include "core/logging/LogRecord.h"

#include <cstddef>
#include <string>
#include <vector>

namespace ovrin {

class PackedRecords {
public:
    [[nodiscard]] bool IsEmpty() const { return entries_.empty(); }
    [[nodiscard]] std::size_t Size() const { return entries_.size(); }
    [[nodiscard]] std::uint64_t FirstSequence() const { return entries_.front().sequence; }
    [[nodiscard]] std::uint64_t LastSequence() const { return entries_.back().sequence; }
    // Of all messages, in bytes.
    [[nodiscard]] std::size_t TextSize() const { return messages_.size(); }
    // How many have a sequence that isn't higher; they stand in the order of their sequences.
    [[nodiscard]] std::size_t CountUpTo(std::uint64_t sequence) const;
    // Lives until the next change.
    [[nodiscard]] LogRecordView operator[](std::size_t index) const;

    // Room for one more: the next Append raises nothing.
    void MakeRoom(std::size_t messageSize);
    // Needs MakeRoom with the size of its message.
    void Append(const LogRecordView &record) noexcept;

    // Memory above what common messages take is given back: a flood of huge ones must not stay for ever.
    void Clear();

private:
    struct Entry {
        LogLevel level;
        LogCategory category;
        ClockText timestamp;
        std::uint32_t threadId;
        std::uint64_t sequence;
        std::size_t messageEnd; // in messages_; it begins where the one before ends
    };

    std::vector<Entry> entries_;
    std::string messages_;
};

} // namespace ovrin

// Records in the order of their arrival. What is cleared leaves the storage of its texts to the records to come, so
// that a steady flow allocates nothing. No lock of its own.
#pragma once

#include "core/logging/LogRecord.h"

#include <cstddef>
#include <span>
#include <vector>

namespace ovrin {

// Texts above this many bytes are given back to the heap: one huge message must not stay for ever.
constexpr std::size_t keptTextCapacity = 1024;

inline void DropLargeText(std::string &text) {
    if (text.capacity() > keptTextCapacity) {
        text = {};
    }
}

class RecordQueue {
public:
    [[nodiscard]] bool IsEmpty() const { return count_ == 0; }
    [[nodiscard]] std::size_t Size() const { return count_; }
    [[nodiscard]] std::span<const LogRecord> Records() const { return {records_.data(), count_}; }

    // Room for one more: the next Push raises nothing.
    void MakeRoom() {
        if (count_ == records_.size()) {
            records_.emplace_back();
        }
    }

    // Needs MakeRoom. `record` comes back with the storage of an older one.
    void Push(LogRecord &record) noexcept {
        std::swap(records_[count_], record);
        ++count_;
    }

    void Clear() {
        for (std::size_t index = 0; index < count_; ++index) {
            DropLargeText(records_[index].message);
        }
        count_ = 0;
    }

private:
    std::vector<LogRecord> records_; // those from count_ on are only storage
    std::size_t count_ = 0;
};

} // namespace ovrin

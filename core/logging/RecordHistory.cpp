#include "core/logging/RecordHistory.h"

#include <algorithm>
#include <ranges>
#include <utility>

namespace ovrin {

const LogRecord &RecordHistory::operator[](std::size_t index) const {
    const std::size_t place = oldest_ + index;
    return records_[place < records_.size() ? place : place - records_.size()];
}

void RecordHistory::MakeRoom() {
    if (records_.size() == records_.capacity() && records_.size() < capacity_) {
        records_.reserve(std::min<std::uint64_t>(capacity_, std::max<std::size_t>(2 * records_.size(), 64)));
    }
}

void RecordHistory::Push(LogRecord &record) noexcept {
    if (records_.size() < capacity_) {
        records_.push_back(std::move(record));
        record = {};
        return;
    }
    std::swap(records_[oldest_], record);
    oldest_ = oldest_ + 1 == records_.size() ? 0 : oldest_ + 1;
}

void RecordHistory::CopyAfter(std::uint64_t sequence, std::vector<LogRecord> &records) const {
    const std::size_t first = FirstAfter(sequence);
    const std::size_t wrap = records_.size() - oldest_; // how many stand from the oldest to the storage's end
    const auto begin = records_.begin();
    const auto at = [begin](std::size_t place) { return begin + static_cast<std::ptrdiff_t>(place); };
    records.reserve(records.size() + Size() - first);
    if (first < wrap) {
        records.insert(records.end(), at(oldest_ + first), records_.end());
    }
    records.insert(records.end(), at(first < wrap ? 0 : first - wrap), at(oldest_));
}

std::vector<LogRecord> RecordHistory::Clear() {
    oldest_ = 0;
    return std::exchange(records_, {});
}

std::size_t RecordHistory::FirstAfter(std::uint64_t sequence) const {
    const auto indices = std::views::iota(std::size_t{0}, Size());
    const auto first =
        std::ranges::upper_bound(indices, sequence, {}, [this](auto index) { return (*this)[index].sequence; });
    return static_cast<std::size_t>(first - indices.begin());
}

} // namespace ovrin

#include "core/logging/RecordHistory.h"

#include <algorithm>
#include <ranges>
#include <utility>

namespace ovrin {

namespace {

constexpr std::size_t chunkSize = 256; // records

} // namespace

LogRecordView RecordHistory::operator[](std::size_t index) const {
    const std::size_t place = evicted_ + index;
    return chunks_[place / chunkSize][place % chunkSize];
}

void RecordHistory::MakeRoom(std::size_t messageSize) {
    if (chunks_.empty() || chunks_.back().Size() == chunkSize) {
        chunks_.push_back(std::exchange(spare_, {}));
    }
    chunks_.back().MakeRoom(messageSize);
}

void RecordHistory::Append(const LogRecordView &record) noexcept {
    if (size_ == capacity_) {
        EvictOldest();
    }
    chunks_.back().Append(record);
    ++size_;
}

void RecordHistory::CopyAfter(std::uint64_t sequence, std::vector<LogRecord> &records) const {
    const std::size_t first = FirstAfter(sequence);
    std::size_t place = records.size();
    records.resize(records.size() + Size() - first);
    for (std::size_t index = first; index < Size(); ++index) {
        AssignRecord(records[place++], (*this)[index]);
    }
}

std::size_t RecordHistory::FirstAfter(std::uint64_t sequence) const {
    const auto indices = std::views::iota(std::size_t{0}, Size());
    const auto sequenceAt = [this](std::size_t index) { return (*this)[index].sequence; };
    return static_cast<std::size_t>(std::ranges::upper_bound(indices, sequence, {}, sequenceAt) - indices.begin());
}

void RecordHistory::EvictOldest() noexcept {
    --size_;
    ++evicted_;
    if (evicted_ == chunkSize) {
        chunks_.front().Clear();
        spare_ = std::move(chunks_.front());
        chunks_.pop_front();
        evicted_ = 0;
    }
}

} // namespace ovrin

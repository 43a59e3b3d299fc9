#include "core/logging/RecordHistory.h"

#include <algorithm>
#include <utility>

namespace ovrin {

namespace {

// Evicted records stay in memory until their whole chunk goes: a chunk of huge ones ends early.
constexpr std::size_t chunkSize = 256;
constexpr std::size_t chunkTextSize = std::size_t{64} << 10U;

bool IsFull(const PackedRecords &chunk) {
    return chunk.Size() == chunkSize || chunk.TextSize() >= chunkTextSize;
}

} // namespace

void RecordHistory::MakeRoom(std::size_t messageSize) {
    if (chunks_.empty() || IsFull(chunks_.back())) {
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
    std::size_t known = 0;
    for (const PackedRecords &chunk : chunks_) {
        known += chunk.CountUpTo(sequence);
    }
    ForEach(std::max(known, evicted_) - evicted_, [&records](const LogRecordView &view) {
        LogRecord record; // whole before it is seen
        AssignRecord(record, view);
        records.push_back(std::move(record));
    });
}

std::deque<PackedRecords> RecordHistory::Clear() noexcept {
    evicted_ = 0;
    size_ = 0;
    std::deque<PackedRecords> cleared;
    cleared.swap(chunks_);
    return cleared;
}

void RecordHistory::EvictOldest() noexcept {
    --size_;
    ++evicted_;
    // The last chunk is the one that the new record goes to.
    if (evicted_ == chunks_.front().Size() && chunks_.size() > 1) {
        chunks_.front().Clear();
        spare_ = std::move(chunks_.front());
        chunks_.pop_front();
        evicted_ = 0;
    }
}

} // namespace ovrin

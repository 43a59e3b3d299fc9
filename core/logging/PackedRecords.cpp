#include "core/logging/PackedRecords.h"

#include <algorithm>

namespace ovrin {

namespace {

constexpr std::size_t keptBytesEach = 512;
constexpr std::size_t keptBytesAtLeast = 4096;

constexpr std::size_t largestGrowth = std::size_t{4} << 20U;

// Twice as much, as a vector grows by itself, but before anything has changed; one huge message isn't doubled.
template<typename Container>
void ReserveMore(Container &container, std::size_t count) {
    const std::size_t size = container.size() + count;
    if (size > container.capacity()) {
        container.reserve(std::max(size, container.capacity() + std::min(container.capacity(), largestGrowth)));
    }
}

} // namespace

LogRecordView PackedRecords::operator[](std::size_t index) const {
    const Entry &entry = entries_[index];
    const std::size_t begin = index == 0 ? 0 : entries_[index - 1].messageEnd;
    return {.level = entry.level,
            .category = entry.category,
            .sequence = entry.sequence,
            .threadId = entry.threadId,
            .timestamp = entry.timestamp,
            .message = std::string_view(messages_).substr(begin, entry.messageEnd - begin)};
}

std::size_t PackedRecords::CountUpTo(std::uint64_t sequence) const {
    const auto end = std::ranges::upper_bound(entries_, sequence, {}, &Entry::sequence);
    return static_cast<std::size_t>(end - entries_.begin());
}

void PackedRecords::MakeRoom(std::size_t messageSize) {
    ReserveMore(entries_, 1);
    ReserveMore(messages_, messageSize);
}

void PackedRecords::Append(const LogRecordView &record) noexcept {
    messages_.append(record.message);
    entries_.push_back({.level = record.level,
                        .category = record.category,
                        .timestamp = record.timestamp,
                        .threadId = record.threadId,
                        .sequence = record.sequence,
                        .messageEnd = messages_.size()});
}

void PackedRecords::Clear() {
    if (messages_.capacity() > std::max(keptBytesAtLeast, keptBytesEach * entries_.capacity())) {
        std::string().swap(messages_); // an assignment keeps the memory
    }
    messages_.clear();
    entries_.clear();
}

} // namespace ovrin

// Up to which sequence everything that was queued is done with. Batches leave the queue in order, but a flush that
// takes over the worker's job may finish a newer one first; until the older ones are done it counts for nothing. No
// lock of its own.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace ovrin {

class WrittenSequence {
public:
    WrittenSequence() { MakeRoom(); }

    // Every queued record up to and including it is written, or has been given up. Only rises.
    [[nodiscard]] std::uint64_t Value() const { return value_; }

    // Room for the caller's batch and for the worker's: Begin then raises nothing for either.
    void MakeRoom() { unfinished_.reserve(unfinished_.size() + 2); }

    // A batch that begins with this sequence has left the queue.
    void Begin(std::uint64_t first) { unfinished_.push_back(first); }

    // The batch of that Begin is done with, up to its last record.
    void Finish(std::uint64_t first, std::uint64_t last) {
        std::erase(unfinished_, first);
        finished_ = std::max(finished_, last);
        const auto oldest = std::min_element(unfinished_.begin(), unfinished_.end());
        value_ = oldest == unfinished_.end() ? finished_ : std::max(value_, std::min(finished_, *oldest - 1));
    }

private:
    std::vector<std::uint64_t> unfinished_; // first sequences: the worker's batch and those of time-limited flushes
    std::uint64_t finished_ = 0;            // the highest of any finished batch
    std::uint64_t value_ = 0;
};

} // namespace ovrin

#include "core/logging/LogOutputs.h"

#include <algorithm>
#include <cstdio>
#include <new>

namespace ovrin {

namespace {

// A full queue of common lines stays below it; what a flood of long ones took is given back.
constexpr std::size_t keptCapacity = std::size_t{8} << 20U;

void DropHuge(std::string &text) {
    if (text.capacity() > keptCapacity) {
        std::string().swap(text); // an assignment keeps the memory
    }
}

// A sink is foreign code: whatever it raises is its own affair.
template<typename Call>
void CallSink(const Call &call) {
    try {
        call();
    } catch (...) { // NOLINT(bugprone-empty-catch): the other outputs are served as usual
    }
}

} // namespace

std::uint64_t LogOutputs::AddSink(const std::shared_ptr<LogSink> &sink) {
    sinks_.push_back({nextSinkId_, sink});
    return nextSinkId_++;
}

std::shared_ptr<LogSink> LogOutputs::RemoveSink(std::uint64_t id) {
    const auto entry =
        std::find_if(sinks_.begin(), sinks_.end(), [id](const SinkEntry &each) { return each.id == id; });
    if (entry == sinks_.end()) {
        return nullptr;
    }
    std::shared_ptr<LogSink> sink = std::move(entry->sink);
    sinks_.erase(entry);
    return sink;
}

void LogOutputs::WriteRecords(const PackedRecords &records) {
    const SinkCallScope inSinkCall(this);
    batch_.clear();
    for (std::size_t index = 0; index < records.Size(); ++index) {
        AddToBatch(records[index]);
    }
    WriteBatch();
}

void LogOutputs::WriteRecord(const LogRecordView &record) {
    const SinkCallScope inSinkCall(this);
    batch_.clear();
    AddToBatch(record);
    WriteBatch();
}

void LogOutputs::AddToBatch(const LogRecordView &record) {
    const std::size_t begin = batch_.size();
    try {
        AppendRecordLine(batch_, record);
        if (!sinks_.empty()) {
            WriteToSinks(record, std::string_view(batch_).substr(begin));
        }
        batch_.push_back('\n');
    } catch (const std::bad_alloc &) { // the others of the batch are written all the same
        batch_.resize(begin);
    }
}

void LogOutputs::WriteToSinks(const LogRecordView &record, std::string_view line) {
    AssignRecord(sinkRecord_, record);
    for (const SinkEntry &entry : sinks_) {
        CallSink([&] { entry.sink->Write(sinkRecord_, line); });
    }
}

void LogOutputs::WriteBatch() {
    if (batch_.empty()) {
        return;
    }
    if (console_) {
        static_cast<void>(std::fwrite(batch_.data(), 1, batch_.size(), stdout));
    }
    files_.Write(batch_);
    DropHuge(batch_);
    DropHuge(sinkRecord_.message);
}

void LogOutputs::Flush() {
    if (console_) {
        static_cast<void>(std::fflush(stdout));
    }
    files_.Flush();
    const SinkCallScope inSinkCall(this);
    for (const SinkEntry &entry : sinks_) {
        CallSink([&] { entry.sink->Flush(); });
    }
}

} // namespace ovrin

// Where records go: the standard output, the session files and the sinks, always in one order. No lock of its own.
#pragma once

#include "core/logging/LogRecord.h"
#include "core/logging/LogThread.h"
#include "core/logging/PackedRecords.h"
#include "core/logging/SessionFiles.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace ovrin {

class LogOutputs {
public:
    struct SinkEntry {
        std::uint64_t id;
        std::shared_ptr<LogSink> sink;
    };
    using Sinks = std::vector<SinkEntry>;

    explicit LogOutputs(bool console) : console_(console) {}

    [[nodiscard]] SessionFiles &Files() { return files_; }
    [[nodiscard]] const SessionFiles &Files() const { return files_; }

    // The sink's id, from 1.
    std::uint64_t AddSink(const std::shared_ptr<LogSink> &sink);
    // Gives the sink, or nothing for an unknown id: it has to be dropped where no lock is held, since its destructor is
    // the owner's code.
    [[nodiscard]] std::shared_ptr<LogSink> RemoveSink(std::uint64_t id);
    [[nodiscard]] Sinks RemoveAllSinks() noexcept { return std::exchange(sinks_, {}); }

    // Whether the calling thread is inside one of these sinks.
    [[nodiscard]] bool IsBeingWritten() const { return IsInSinkCallOf(this); }

    // Each sink gets each record at once; then the whole batch goes to each of the others in one write.
    void WriteRecords(const PackedRecords &records);
    void WriteRecord(const LogRecordView &record);
    void Flush();

private:
    void AddToBatch(const LogRecordView &record);
    void WriteToSinks(const LogRecordView &record, std::string_view line);
    void WriteBatch();

    bool console_;
    SessionFiles files_;
    Sinks sinks_;
    std::uint64_t nextSinkId_ = 1;
    // Keep their storage.
    std::string batch_;    // the lines being written
    LogRecord sinkRecord_; // what the sinks are shown
};

} // namespace ovrin

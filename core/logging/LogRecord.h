// One log event, the line that it makes, and the interface of those who receive both.
#pragma once

#include "core/logging/LogClock.h"
#include "core/logging/LogLevels.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace ovrin {

struct LogRecord {
    LogLevel level{};
    LogCategory category{};
    std::uint64_t sequence{}; // from 1, without gaps, in the order in which the logger took them
    std::uint32_t threadId{}; // CurrentThreadLogId of the thread that logged
    std::string timestamp;    // FormatClockTime on entry to Log; may lag behind a neighbour's
    std::string message;      // the caller's bytes, unchanged
};

// `14:03:59 [Warn] text`, or `14:03:59 [Error] [Render] text` in a category other than General. The message stands in
// it as it is, line feeds included. No line feed at the end.
[[nodiscard]] std::string FormatRecordLine(const LogRecord &record);

// A record whose message lies elsewhere.
struct LogRecordView {
    LogLevel level{};
    LogCategory category{};
    std::uint64_t sequence{};
    std::uint32_t threadId{};
    ClockText timestamp{};
    std::string_view message;
};

// FormatRecordLine's line behind what `text` already holds.
void AppendRecordLine(std::string &text, const LogRecordView &record);

// Into a record that keeps the storage of its texts.
void AssignRecord(LogRecord &record, const LogRecordView &view);

// Called one at a time, on the worker's thread or, while no worker runs, on the thread that logs. What it raises is
// discarded. It may log (that never waits for room, and without a worker only reaches the history) and query the
// history; it must not call AddSink, RemoveSink, GetSessionLogPath, Start or Shutdown, whose lock its thread holds.
class LogSink {
public:
    LogSink() = default;
    LogSink(const LogSink &) = delete;
    LogSink &operator=(const LogSink &) = delete;
    virtual ~LogSink() = default;

    // `line` is the formatted record without a line feed; it lives for the length of the call.
    virtual void Write(const LogRecord &record, std::string_view line) = 0;
    virtual void Flush() = 0;
};

} // namespace ovrin

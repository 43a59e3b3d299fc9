#include "core/logging/LogRecord.h"

namespace ovrin {

namespace {

// The blanks and brackets, and the longest tag and category: with these a line's storage is taken once.
constexpr std::size_t lineOverhead = 24;

void AppendLine(std::string &text, const auto &record) {
    text.append(record.timestamp.data(), record.timestamp.size()).append(1, ' ').append(LogLevelTag(record.level));
    if (record.category != LogCategory::General) {
        text.append(" [").append(LogCategoryName(record.category)).append(1, ']');
    }
    text.append(1, ' ').append(record.message);
}

} // namespace

std::string FormatRecordLine(const LogRecord &record) {
    std::string line;
    line.reserve(record.timestamp.size() + record.message.size() + lineOverhead);
    AppendLine(line, record);
    return line;
}

void AppendRecordLine(std::string &text, const LogRecordView &record) {
    AppendLine(text, record);
}

void AssignRecord(LogRecord &record, const LogRecordView &view) {
    record.level = view.level;
    record.category = view.category;
    record.sequence = view.sequence;
    record.threadId = view.threadId;
    record.timestamp.assign(view.timestamp.data(), view.timestamp.size());
    record.message.assign(view.message);
}

} // namespace ovrin

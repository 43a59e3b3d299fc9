#include "core/logging/LogRecord.h"

namespace ovrin {

namespace {

// The blanks and brackets, and the longest tag and category: with these a line's storage is taken once.
constexpr std::size_t lineOverhead = 24;

} // namespace

std::string FormatRecordLine(const LogRecord &record) {
    std::string line;
    line.reserve(record.timestamp.size() + record.message.size() + lineOverhead);
    AppendRecordLine(line, record);
    return line;
}

void AppendRecordLine(std::string &text, const LogRecord &record) {
    text.append(record.timestamp).append(1, ' ').append(LogLevelTag(record.level));
    if (record.category != LogCategory::General) {
        text.append(" [").append(LogCategoryName(record.category)).append(1, ']');
    }
    text.append(1, ' ').append(record.message);
}

} // namespace ovrin

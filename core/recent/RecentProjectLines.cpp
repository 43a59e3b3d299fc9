#include "core/recent/RecentProjectLines.h"

#include <algorithm>

namespace ovrin {

namespace {

constexpr std::string_view whiteSpace = " \t\n\v\f\r";
constexpr char quote = '"';
constexpr char escape = '\\';

// Behind the opening quote. Nothing where the closing one is missing.
std::optional<std::string> TakeQuoted(std::string_view &rest) {
    std::string field;
    for (std::size_t index = 0; index < rest.size(); ++index) {
        if (rest[index] == quote) {
            rest.remove_prefix(index + 1);
            return field;
        }
        if (rest[index] == escape && ++index == rest.size()) {
            break;
        }
        field += rest[index];
    }
    rest = {};
    return std::nullopt;
}

std::string TakeWord(std::string_view &rest) {
    const std::size_t end = std::min(rest.find_first_of(whiteSpace), rest.size());
    const std::string_view word = rest.substr(0, end);
    rest.remove_prefix(end);
    return std::string(word);
}

std::optional<std::string> TakeField(std::string_view &rest) {
    rest.remove_prefix(std::min(rest.find_first_not_of(whiteSpace), rest.size()));
    if (rest.empty()) {
        return std::nullopt;
    }
    if (rest.front() != quote) {
        return TakeWord(rest);
    }
    rest.remove_prefix(1);
    return TakeQuoted(rest);
}

void AppendQuoted(std::string &line, std::string_view field) {
    line += quote;
    for (const char byte : field) {
        if (byte == quote || byte == escape) {
            line += escape;
        }
        line += byte;
    }
    line += quote;
}

} // namespace

std::optional<RecentProjectFields> ParseRecentProjectLine(std::string_view line) {
    std::optional<std::string> path = TakeField(line);
    if (!path) {
        return std::nullopt;
    }
    return RecentProjectFields{.path = std::move(*path), .name = TakeField(line).value_or("")};
}

std::string FormatRecentProjectLine(const RecentProjectFields &fields) {
    std::string line;
    AppendQuoted(line, fields.path);
    line += ' ';
    AppendQuoted(line, fields.name);
    line += '\n';
    return line;
}

} // namespace ovrin

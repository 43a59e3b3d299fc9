#include "core/logging/LogLevels.h"

#include <algorithm>

namespace ovrin {

namespace {

constexpr std::string_view levelNames[] = {"Trace", "Debug", "Info", "Warning", "Error", "Fatal", "Off"};
constexpr std::string_view levelTags[] = {"[Trace]", "[Debug]", "[Info]", "[Warn]", "[Error]", "[Fatal]"};
constexpr std::string_view categoryNames[] = {"General", "Core",  "Render", "Assets", "Scene",
                                              "Physics", "Audio", "Net",    "Script", "Editor"};
static_assert(std::size(categoryNames) == logCategoryCount);

constexpr std::string_view whiteSpace = " \t\n\v\f\r";

template<typename Value, std::size_t count>
std::string_view TextOf(Value value, const std::string_view (&texts)[count], std::string_view otherwise) {
    const auto index = static_cast<std::size_t>(value);
    return index < count ? texts[index] : otherwise;
}

template<typename Value, std::size_t count>
std::optional<Value> ValueOf(std::string_view text, const std::string_view (&texts)[count]) {
    const auto *const found =
        std::find_if(std::begin(texts), std::end(texts), [text](auto each) { return EqualsIgnoreCase(text, each); });
    if (found == std::end(texts)) {
        return std::nullopt;
    }
    return static_cast<Value>(found - std::begin(texts));
}

// Not tolower, which asks the program's present locale.
constexpr char ToLower(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

// What stands before the first of the separators; the rest is left behind it, or empty.
std::string_view TakeEntry(std::string_view &rest) {
    const std::size_t end = std::min(rest.find_first_of(",;"), rest.size());
    const std::string_view entry = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return entry;
}

} // namespace

std::string_view LogLevelName(LogLevel level) {
    return TextOf(level, levelNames, "Unknown");
}

std::string_view LogLevelTag(LogLevel level) {
    return TextOf(level, levelTags, "[Log]");
}

std::string_view LogCategoryName(LogCategory category) {
    return TextOf(category, categoryNames, "Unknown");
}

std::optional<LogLevel> ParseLogLevel(std::string_view text) {
    const std::string_view word = TrimText(text);
    return EqualsIgnoreCase(word, "Warn") ? LogLevel::Warning : ValueOf<LogLevel>(word, levelNames);
}

std::optional<LogCategory> ParseLogCategory(std::string_view text) {
    return ValueOf<LogCategory>(TrimText(text), categoryNames);
}

std::string_view TrimText(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(whiteSpace);
    if (begin == std::string_view::npos) {
        return {};
    }
    return text.substr(begin, text.find_last_not_of(whiteSpace) + 1 - begin);
}

bool EqualsIgnoreCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char left, char right) { return ToLower(left) == ToLower(right); });
}

LogLevel LogThresholds::GetLevel(LogCategory category) const {
    const auto index = static_cast<std::size_t>(category);
    return index < levels_.size() ? levels_[index] : LogLevel::Off;
}

void LogThresholds::SetLevel(LogCategory category, LogLevel level) {
    const auto index = static_cast<std::size_t>(category);
    if (index < levels_.size()) {
        levels_[index] = level;
    }
}

bool LogThresholds::ApplyLevelConfiguration(std::string_view text) {
    bool valid = true;
    while (!text.empty()) {
        const std::string_view entry = TrimText(TakeEntry(text));
        valid = (entry.empty() || ApplyEntry(entry)) && valid;
    }
    return valid;
}

bool LogThresholds::ApplyEntry(std::string_view entry) {
    const std::size_t equals = entry.find('=');
    const bool isBare = equals == std::string_view::npos;
    const std::string_view name = isBare ? "*" : TrimText(entry.substr(0, equals));
    const std::optional<LogLevel> level = ParseLogLevel(isBare ? entry : entry.substr(equals + 1));
    if (!level) {
        return false;
    }
    if (name == "*") {
        SetAllLevels(*level);
        return true;
    }
    const std::optional<LogCategory> category = ParseLogCategory(name);
    if (category) {
        SetLevel(*category, *level);
    }
    return category.has_value();
}

} // namespace ovrin

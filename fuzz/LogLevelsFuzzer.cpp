// Any text configures the thresholds exactly as a second, plain reading of the same language does.
#include "core/logging/LogLevels.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <locale>
#include <map>
#include <string>

namespace {

using namespace ovrin;
using Thresholds = std::array<int, logCategoryCount>;
using Names = std::map<std::string, int>;

const Names levels = {{"trace", 0}, {"debug", 1}, {"info", 2},  {"warning", 3},
                      {"warn", 3},  {"error", 4}, {"fatal", 5}, {"off", 6}};
const Names categories = {{"general", 0}, {"core", 1},  {"render", 2}, {"assets", 3}, {"scene", 4},
                          {"physics", 5}, {"audio", 6}, {"net", 7},    {"script", 8}, {"editor", 9}};
constexpr int none = -1;

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

bool IsBlank(char byte) {
    return std::isspace(byte, std::locale::classic());
}

std::string Trimmed(std::string text) {
    while (!text.empty() && IsBlank(text.back())) {
        text.pop_back();
    }
    while (!text.empty() && IsBlank(text.front())) {
        text.erase(text.begin());
    }
    return text;
}

template<typename Conversion>
std::string Each(std::string text, Conversion conversion) {
    for (char &byte : text) {
        byte = conversion(byte, std::locale::classic());
    }
    return text;
}

std::string Lower(const std::string &text) {
    return Each(text, std::tolower<char>);
}

int Find(const Names &names, const std::string &text) {
    const auto found = names.find(Lower(Trimmed(text)));
    return found == names.end() ? none : found->second;
}

bool ReadEntry(const std::string &entry, Thresholds &thresholds) {
    const std::size_t equals = entry.find('=');
    const int level = Find(levels, equals == std::string::npos ? entry : entry.substr(equals + 1));
    if (level == none) {
        return false;
    }
    if (equals == std::string::npos || Trimmed(entry.substr(0, equals)) == "*") {
        thresholds.fill(level);
        return true;
    }
    const int category = Find(categories, entry.substr(0, equals));
    if (category != none) {
        thresholds[static_cast<std::size_t>(category)] = level;
    }
    return category != none;
}

bool ReadConfiguration(const std::string &text, Thresholds &thresholds) {
    bool valid = true;
    std::string entry;
    for (const char byte : text + ',') {
        if (byte != ',' && byte != ';') {
            entry += byte;
            continue;
        }
        if (!Trimmed(entry).empty() && !ReadEntry(entry, thresholds)) {
            valid = false;
        }
        entry.clear();
    }
    return valid;
}

// Each category begins at a value of its own that no text can set, so that what stays untouched shows.
void CheckConfiguration(std::string_view text) {
    constexpr int untouched = 100;
    LogThresholds actual;
    Thresholds expected{};
    for (std::size_t index = 0; index < expected.size(); ++index) {
        expected[index] = untouched + static_cast<int>(index);
        actual.SetLevel(static_cast<LogCategory>(index), static_cast<LogLevel>(expected[index]));
    }
    Require(actual.ApplyLevelConfiguration(text) == ReadConfiguration(std::string(text), expected));
    for (std::size_t index = 0; index < expected.size(); ++index) {
        Require(static_cast<int>(actual.GetLevel(static_cast<LogCategory>(index))) == expected[index]);
    }
}

void CheckNames(std::string_view text) {
    const auto level = ParseLogLevel(text);
    Require((level ? static_cast<int>(*level) : none) == Find(levels, std::string(text)));
    Require(!level || ParseLogLevel(LogLevelName(*level)) == level);
    const auto category = ParseLogCategory(text);
    Require((category ? static_cast<int>(*category) : none) == Find(categories, std::string(text)));
    Require(!category || ParseLogCategory(LogCategoryName(*category)) == category);
}

void CheckTrimming(std::string_view text) {
    const std::string_view trimmed = TrimText(text);
    Require(trimmed == Trimmed(std::string(text)));
    Require(trimmed.empty() || (trimmed.data() >= text.data() && trimmed.end() <= text.end()));
}

// Of the text's two halves, and of the text with its own other forms.
void CheckComparison(std::string_view text) {
    const std::string whole(text);
    Require(EqualsIgnoreCase(text, Lower(whole)) && EqualsIgnoreCase(Each(whole, std::toupper<char>), text));
    Require(!EqualsIgnoreCase(text, whole + '\0') && !EqualsIgnoreCase(whole + 'a', text));
    const std::string_view a = text.substr(0, text.size() / 2);
    const std::string_view b = text.substr(text.size() - a.size());
    Require(EqualsIgnoreCase(a, b) == (Lower(std::string(a)) == Lower(std::string(b))));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    CheckConfiguration(text);
    CheckNames(text);
    CheckTrimming(text);
    CheckComparison(text);
    return 0;
}

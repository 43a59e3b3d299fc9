// Severity levels and categories with every text form, the thresholds of the categories, and the language of
// OVRIN_LOG_LEVELS that sets them. Pure operations; nothing here locks, touches a file or raises.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace ovrin {

// Off is a threshold only: no record carries it.
enum class LogLevel : std::uint8_t { Trace, Debug, Info, Warning, Error, Fatal, Off };

enum class LogCategory : std::uint8_t { General, Core, Render, Assets, Scene, Physics, Audio, Net, Script, Editor };

constexpr std::size_t logCategoryCount = 10;

// "Trace" to "Off"; "Unknown" for any other value.
[[nodiscard]] std::string_view LogLevelName(LogLevel level);

// The form in a line: "[Warn]" for Warning, "[Log]" for what is no record's level.
[[nodiscard]] std::string_view LogLevelTag(LogLevel level);

// "Unknown" for a value out of range.
[[nodiscard]] std::string_view LogCategoryName(LogCategory category);

// Without regard to case and surrounding white space. "Warn" is Warning too.
[[nodiscard]] std::optional<LogLevel> ParseLogLevel(std::string_view text);
[[nodiscard]] std::optional<LogCategory> ParseLogCategory(std::string_view text);

// White space and case are those of the classic locale; bytes above 127 are neither.
[[nodiscard]] std::string_view TrimText(std::string_view text);
[[nodiscard]] bool EqualsIgnoreCase(std::string_view a, std::string_view b);

// One threshold for each category, Info at first. Plain bytes: a reader on another thread sees the old or the new one,
// and a change of all is not seen as one step.
class LogThresholds {
public:
    LogThresholds() { SetAllLevels(LogLevel::Info); }

    // False for a category or level that no record has.
    [[nodiscard]] bool ShouldLog(LogCategory category, LogLevel level) const {
        return static_cast<std::size_t>(category) < logCategoryCount && level < LogLevel::Off &&
               level >= levels_[static_cast<std::size_t>(category)];
    }

    // Off for a category out of range.
    [[nodiscard]] LogLevel GetLevel(LogCategory category) const;

    // The level is stored unchecked; a category out of range is ignored.
    void SetLevel(LogCategory category, LogLevel level);
    void SetAllLevels(LogLevel level) { levels_.fill(level); }

    // Entries separated by "," or ";", each a level for all, "*=level" or "category=level", applied from left to right.
    // Every valid entry takes effect; false where one was invalid.
    bool ApplyLevelConfiguration(std::string_view text);

private:
    bool ApplyEntry(std::string_view entry);

    std::array<LogLevel, logCategoryCount> levels_{};
};

} // namespace ovrin

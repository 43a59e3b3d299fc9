#include "core/logging/LogLevels.h"

#include <gtest/gtest.h>
#include <string>

namespace ovrin::testing {

namespace {

using namespace std::string_view_literals;

// The ten thresholds, a digit each, in the order of the categories.
std::string Digits(const LogThresholds &thresholds) {
    std::string digits;
    for (std::size_t index = 0; index < logCategoryCount; ++index) {
        digits += std::to_string(static_cast<int>(thresholds.GetLevel(static_cast<LogCategory>(index))));
    }
    return digits;
}

TEST(LogLevelConfiguration, AppliesEveryValidEntryFromLeftToRight) {
    const struct {
        const char *label;
        std::string_view text;
        const char *digits; // beginning at Info, 2, everywhere
        bool valid = true;
    } cases[] = {
        {"nothing", "", "2222222222"},
        {"only separators and white space", " ,; \t\n;\v,\f\r", "2222222222"},
        {"repeated and trailing separators", ";;net=error,,;", "2222222422"},
        {"both separators", "general=trace;core=debug,render=warning;assets=error", "0134222222"},
        {"the other categories", "editor=off,script=fatal,audio=error,physics=trace,scene=debug", "2222104256"},
        {"a category, then a bare level", "net=trace,error", "4444444444"},
        {"a bare level, then a category", "error,net=trace", "4444444044"},
        {"a category, then a wildcard", "net=trace;*=error", "4444444444"},
        {"any case", "NET=oFF,cOrE=ERROR,Script=Debug", "2422222612"},
        {"white space everywhere", "\f net \t=\v error \r\n, * = fatal ;\tcore\n= trace\v", "5055555555"},
        {"both words for one level", "net=warn,core=WARNING,scene=wArN", "2322322322"},
        {"invalid between two valid ones", "core=debug,nonsense=error,audio=off", "2122226222", false},
        {"invalid at both ends", "?,net=error,?", "2222222422", false},
        {"invalid behind everything off", "*=off,?", "6666666666", false},
        {"a separator behind '='", "net=,error", "4444444444", false},
        {"a zero byte for an entry", "\0,net=error"sv, "2222222422", false},
    };
    for (const auto &each : cases) {
        LogThresholds thresholds;
        EXPECT_EQ(thresholds.ApplyLevelConfiguration(each.text), each.valid) << each.label;
        EXPECT_EQ(Digits(thresholds), each.digits) << each.label;
    }
}

TEST(LogLevelConfiguration, ChangesNothingForAnEntryThatIsNearlyValid) {
    const std::string_view entries[] = {"net",         "net=",        "net= \t",     "=off",        " \t=off",
                                        " = ",         " * ",         "*=",          "**=off",      "net==off",
                                        "net=off=",    "net=of",      "net=offs",    "ne=off",      "nets=off",
                                        "n et=off",    "net=o ff",    "net=6",       "unknown=off", "[Warn]",
                                        "net=off\0"sv, "net\0=off"sv, "\xA0net=off", "net=\x85off", "\xCEnet=off"};
    for (const auto entry : entries) {
        LogThresholds thresholds;
        EXPECT_FALSE(thresholds.ApplyLevelConfiguration(entry)) << entry;
        EXPECT_EQ(Digits(thresholds), "2222222222") << entry;
    }
}

TEST(LogThresholds, LetThroughWhatIsAtLeastAsSevere) {
    for (std::size_t threshold = 0; threshold <= 6; ++threshold) {
        LogThresholds thresholds;
        thresholds.SetLevel(LogCategory::Editor, static_cast<LogLevel>(threshold));
        std::string passing; // of all values, Off and those out of range included
        for (int level = 0; level < 256; ++level) {
            const bool passes = thresholds.ShouldLog(LogCategory::Editor, static_cast<LogLevel>(level));
            passing += passes ? std::to_string(level) : "";
        }
        EXPECT_EQ(passing, "012345"sv.substr(threshold)) << threshold;
    }
}

TEST(LogLevels, AreNoneForValuesOutOfRange) {
    EXPECT_EQ(LogLevelTag(LogLevel::Warning), "[Warn]"); // the one whose tag isn't its name
    EXPECT_EQ(LogLevelName(LogLevel::Warning), "Warning");
    for (const auto level : {LogLevel::Off, static_cast<LogLevel>(7), static_cast<LogLevel>(255)}) {
        EXPECT_EQ(LogLevelTag(level), "[Log]");
        EXPECT_EQ(LogLevelName(level), level == LogLevel::Off ? "Off" : "Unknown");
    }
    LogThresholds thresholds;
    for (const auto category : {static_cast<LogCategory>(10), static_cast<LogCategory>(255)}) {
        thresholds.SetLevel(category, LogLevel::Trace);
        EXPECT_EQ(thresholds.GetLevel(category), LogLevel::Off);
        EXPECT_FALSE(thresholds.ShouldLog(category, LogLevel::Fatal));
        EXPECT_EQ(LogCategoryName(category), "Unknown");
    }
    EXPECT_EQ(Digits(thresholds), "2222222222");
}

TEST(LogTexts, KnowTheClassicBlanksAndLettersAlone) {
    std::string blanks;
    std::string pairs;
    for (int first = 0; first < 256; ++first) {
        const std::string a(1, static_cast<char>(first));
        blanks += TrimText(a).empty() ? a : "";
        for (int second = first + 1; second < 256; ++second) {
            const std::string b(1, static_cast<char>(second));
            pairs += EqualsIgnoreCase(a, b) ? a + b : "";
        }
    }
    EXPECT_EQ(blanks, "\t\n\v\f\r ");
    EXPECT_EQ(pairs, "AaBbCcDdEeFfGgHhIiJjKkLlMmNnOoPpQqRrSsTtUuVvWwXxYyZz");
}

} // namespace

} // namespace ovrin::testing

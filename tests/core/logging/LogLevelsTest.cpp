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
        {"only separators and white space", " ,; \t\n;\v,\f\r", "2222222222"},
        {"both separators", "general=trace;core=debug,render=warning;assets=error", "0134222222"},
        {"the other categories", "editor=off,script=fatal,audio=error,physics=trace,scene=debug", "2222104256"},
        {"a bare level between categories", "net=trace,error,core=trace", "4044444444"},
        {"a category, then a wildcard", "net=trace;*=error", "4444444444"},
        {"any case, both words for one level", "NET=oFF,cOrE=WARNING,Script=Debug,scene=wArN", "2322322612"},
        {"white space everywhere", "\f net \t=\v error \r\n, * = fatal ;\tcore\n= trace\v", "5055555555"},
        {"invalid beside valid ones", "?,core=debug,nonsense=error,audio=off,?", "2122226222", false},
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
    LogThresholds thresholds;
    for (int threshold = 0; threshold <= 6; ++threshold) {
        thresholds.SetLevel(LogCategory::Editor, static_cast<LogLevel>(threshold));
        for (int level = 0; level < 256; ++level) { // none from Off on
            EXPECT_EQ(thresholds.ShouldLog(LogCategory::Editor, static_cast<LogLevel>(level)),
                      level >= threshold && level < 6);
        }
    }
}

TEST(LogLevels, AreNoneForValuesOutOfRange) {
    EXPECT_EQ(LogLevelTag(LogLevel::Warning), "[Warn]"); // the one whose tag isn't its name
    EXPECT_EQ(LogLevelName(LogLevel::Warning), "Warning");
    EXPECT_EQ(LogLevelName(LogLevel::Off), "Off");
    LogThresholds thresholds;
    for (int value = 0; value < 256; ++value) {
        EXPECT_EQ(LogLevelTag(static_cast<LogLevel>(value)) == "[Log]", value > 5) << value;
        EXPECT_EQ(LogLevelName(static_cast<LogLevel>(value)) == "Unknown", value > 6) << value;
        EXPECT_EQ(LogCategoryName(static_cast<LogCategory>(value)) == "Unknown", value > 9) << value;
    }
    for (const auto category : {static_cast<LogCategory>(10), static_cast<LogCategory>(255)}) {
        thresholds.SetLevel(category, LogLevel::Trace);
        EXPECT_EQ(thresholds.GetLevel(category), LogLevel::Off);
        EXPECT_FALSE(thresholds.ShouldLog(category, LogLevel::Fatal));
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

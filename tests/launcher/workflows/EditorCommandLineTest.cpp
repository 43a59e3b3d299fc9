#include "launcher/workflows/EditorCommandLine.h"
#include "platform/text/TextConversion.h"

#include <gtest/gtest.h>
#include <random>

#ifdef _WIN32
#include "platform/winapi/WinApi.h"
#else
#include "platform/winapi/posix/CommandLine.h"
#endif

namespace ovrin {

namespace {

#ifdef _WIN32
std::vector<WideText> Split(const WideText &commandLine) {
    int count = 0;
    LPWSTR *const elements = CommandLineToArgvW(commandLine.c_str(), &count);
    std::vector<WideText> result(elements, elements + count);
    LocalFree(elements);
    return result;
}
#else
std::vector<WideText> Split(const WideText &commandLine) {
    return SplitCommandLine(commandLine);
}
#endif

TEST(QuoteArgument, QuotesAlwaysAndEscapesOnlyInFrontOfQuotes) {
    const std::pair<WideTextView, WideTextView> cases[] = {
        {WIDE(""), WIDE(R"("")")},
        {WIDE("a b"), WIDE(R"("a b")")},
        {WIDE(R"(C:\a b\)"), WIDE(R"("C:\a b\\")")},
        {WIDE(R"(a"b)"), WIDE(R"("a\"b")")},
        {WIDE(R"(a\\"b)"), WIDE(R"("a\\\\\"b")")},
        {WIDE(R"(\")"), WIDE(R"("\\\"")")},
    };
    for (const auto &[text, quoted] : cases) {
        EXPECT_EQ(QuoteArgument(text), quoted) << WideToUtf8(text);
    }
}

TEST(BuildEditorCommandLine, IsSplitIntoTheSameArgumentsByThePlatform) {
    constexpr WideTextView alphabet = WIDE("\\\\\\\"\"\" \t\na'^%&\u00E9\U0001D11E");
    std::mt19937 random(20240607); // NOLINT: the same arguments in each run
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    for (int round = 0; round < 3000; ++round) {
        std::vector<WideText> expected{WIDE("C:\\a folder\\OvrinEditor.exe")};
        for (std::size_t count = below(5); count > 0; --count) {
            WideText &argument = expected.emplace_back();
            for (std::size_t length = below(12); length > 0; --length) {
                argument += alphabet[below(alphabet.size())];
            }
        }
        const WideText commandLine = BuildEditorCommandLine(expected[0], {expected.begin() + 1, expected.end()});
        ASSERT_EQ(Split(commandLine), expected) << WideToUtf8(commandLine);
    }
}

} // namespace

} // namespace ovrin

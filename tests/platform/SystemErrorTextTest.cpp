#include "platform/text/SystemErrorText.h"
#include "platform/text/TextConversion.h"
#include "platform/winapi/WinApi.h"

#include <gtest/gtest.h>
#include <string>
#include <type_traits>
#include <vector>

namespace ovrin {

namespace {

// Empty where the system has none.
std::string SystemMessage(std::uint32_t code) {
    WCHAR *buffer = nullptr;
    const DWORD length = FormatMessageW(0x1300, nullptr, code, 0, reinterpret_cast<LPWSTR>(&buffer), 0, nullptr);
    const WideText text = buffer == nullptr ? WideText() : WideText(buffer);
    EXPECT_EQ(LocalFree(buffer), nullptr);
    EXPECT_EQ(text.size(), length);
    return WideToUtf8(text);
}

TEST(SystemErrorText, IsTheSystemsMessageWithoutItsLineEnd) {
    std::vector<std::uint32_t> codes{2, 3, 5, 14, 87, 123, 1113, 1223};
    if (std::is_same_v<WCHAR, char16_t>) { // our own layer has words for what it gives out; a system needn't
        codes.insert(codes.end(), {0x80004001U, 0x80004002U, 0x80004003U, 0x80004005U, 0x8000FFFFU, 0x80010106U,
                                   0x8001010EU, 0x80040110U, 0x80040154U, 0x800401F0U});
    }
    for (const std::uint32_t code : codes) {
        SCOPED_TRACE(code);
        const std::string text = Win32ErrorText(code);
        EXPECT_EQ(SystemMessage(code), text + "\r\n");
        EXPECT_TRUE(text.ends_with('.')) << text;
        EXPECT_EQ(Win32ErrorText(code < 0x10000U ? 0x80070000U | code : code), text) << "an HRESULT, whole";
    }
}

TEST(SystemErrorText, SaysSoWhereTheSystemHasNoWordsAndJoinsTheSentences) {
    const std::string unknown = "Unknown Win32 error";
    EXPECT_EQ(Win32ErrorText(0x8FF00005U), unknown); // the whole value counts, not its lower half
    EXPECT_EQ(HResultFailureText("A::B", 0x80004003U),
              "A::B failed (HRESULT 0x80004003): " + Win32ErrorText(0x80004003U));
    EXPECT_EQ(HResultFailureText("A", 0xEFFFABCDU), "A failed (HRESULT 0xEFFFABCD): " + unknown);
    EXPECT_EQ(InvalidUtf8Text("File dialog title"), "File dialog title is not valid UTF-8.");
}

} // namespace

} // namespace ovrin

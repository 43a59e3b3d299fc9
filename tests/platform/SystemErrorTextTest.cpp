#include "platform/text/SystemErrorText.h"

#include <gtest/gtest.h>
#include <string>

namespace ovrin {

namespace {

const std::string unknown = "Unknown Win32 error";

TEST(SystemErrorText, IsTheSystemsMessageWithoutItsLineEnd) {
    for (const std::uint32_t code : {2U, 3U, 5U, 87U, 123U, 1223U}) {
        const std::string text = Win32ErrorText(code);
        EXPECT_NE(text, unknown) << code;
        EXPECT_EQ(text.find_first_of("\r\n"), std::string::npos) << text;
        EXPECT_EQ(text.back(), '.') << text;
        EXPECT_EQ(Win32ErrorText(0x80070000U | code), text) << "an HRESULT, whole";
    }
}

TEST(SystemErrorText, SaysSoWhereTheSystemHasNoWords) {
    EXPECT_EQ(Win32ErrorText(0x80FA57E5U), unknown);
    // The whole value counts, not its lower half.
    EXPECT_EQ(Win32ErrorText(0x8FF00005U), unknown);
}

TEST(SystemErrorText, JoinsTheSentences) {
    EXPECT_EQ(HResultFailureText("IShellItem::GetDisplayName", 0x80004003U),
              "IShellItem::GetDisplayName failed (HRESULT 0x80004003): " + Win32ErrorText(0x80004003U));
    EXPECT_EQ(HResultFailureText("A", 0xEFFFABCDU), "A failed (HRESULT 0xEFFFABCD): " + unknown);
    EXPECT_EQ(InvalidUtf8Text("File dialog title"), "File dialog title is not valid UTF-8.");
}

} // namespace

} // namespace ovrin

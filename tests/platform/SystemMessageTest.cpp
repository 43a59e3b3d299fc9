// The text of an error over a system whose messages are scripted.
#include "platform/text/SystemErrorText.h"
#include "platform/text/WideText.h"
#include "platform/winapi/WinApi.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace {

std::optional<ovrin::WideText> systemMessage; // none: no buffer
bool reportsFailure = false;
int buffersHeld = 0;

} // namespace

DWORD WINAPI FormatMessageW(DWORD flags, const void *source, DWORD message, DWORD language, LPWSTR buffer, DWORD size,
                            va_list *arguments) {
    EXPECT_EQ(flags, 0x1300U);
    EXPECT_TRUE(source == nullptr && language == 0 && size == 0 && arguments == nullptr);
    EXPECT_EQ(message, 0x80070005U);
    buffersHeld += systemMessage ? 1 : 0;
    *reinterpret_cast<LPWSTR *>(buffer) = systemMessage ? systemMessage->data() : nullptr;
    return reportsFailure ? 0 : static_cast<DWORD>(systemMessage.value_or(WIDE("no buffer")).size());
}

HLOCAL WINAPI LocalFree(HLOCAL memory) {
    EXPECT_EQ(memory, systemMessage->data());
    systemMessage->front() = 0; // whoever reads on sees nothing
    --buffersHeld;
    return nullptr;
}

namespace ovrin {

namespace {

TEST(SystemMessage, LosesLineEndsAndBlanksAtItsEndAndItsBufferIsGivenBack) {
    const std::string unknown = "Unknown Win32 error";
    const struct {
        std::optional<WideText> message;
        std::string text;
        bool reportsFailure = false;
    } cases[] = {
        {WIDE("Denied.\r\n"), "Denied."},
        {WIDE(" Denied. \r \n\n"), " Denied."},
        {WIDE("Denied.\t\r\n"), "Denied.\t"},
        {WIDE("Verweigert \u00FC\u20AC"), "Verweigert \xC3\xBC\xE2\x82\xAC"},
        {WIDE(" \r\n "), unknown},
        {WIDE("Denied."), unknown, true},
        {std::nullopt, unknown},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(&each - cases);
        systemMessage = each.message;
        reportsFailure = each.reportsFailure;
        EXPECT_EQ(Win32ErrorText(0x80070005U), each.text);
        EXPECT_EQ(buffersHeld, 0);
    }
}

} // namespace

} // namespace ovrin

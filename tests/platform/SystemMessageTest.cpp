// The text of an error over a system whose messages are scripted.
#include "platform/text/SystemErrorText.h"
#include "platform/text/WideText.h"
#include "platform/winapi/WinApi.h"

#include <cstdlib>
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
    WCHAR *copy = nullptr;
    if (systemMessage) {
        ++buffersHeld;
        copy = static_cast<WCHAR *>(std::calloc(systemMessage->size() + 1, sizeof(WCHAR)));
        systemMessage->copy(copy, systemMessage->size());
    }
    *reinterpret_cast<LPWSTR *>(buffer) = copy;
    return reportsFailure ? 0 : static_cast<DWORD>(systemMessage.value_or(WIDE("no buffer")).size());
}

HLOCAL WINAPI LocalFree(HLOCAL memory) {
    --buffersHeld;
    std::free(memory);
    return nullptr;
}

namespace ovrin {

namespace {

TEST(SystemMessage, LosesLineEndsAndBlanksAtItsEndAndItsBufferIsGivenBack) {
    const std::string unknown = "Unknown Win32 error";
    const struct {
        const char *label;
        std::optional<WideText> message;
        bool reportsFailure;
        std::string text;
    } cases[] = {
        {"full stop stays", WIDE("Denied.\r\n"), false, "Denied."},
        {"any mixture goes", WIDE(" Denied. \r \n\n"), false, " Denied."},
        {"a tab stays", WIDE("Denied.\t\r\n"), false, "Denied.\t"},
        {"other characters", WIDE("Verweigert \u00FC\u20AC"), false, "Verweigert \xC3\xBC\xE2\x82\xAC"},
        {"nothing but blanks", WIDE(" \r\n "), false, unknown},
        {"no message, but a buffer", WIDE("Denied."), true, unknown},
        {"no buffer", std::nullopt, false, unknown},
        {"neither", std::nullopt, true, unknown},
    };
    for (const auto &each : cases) {
        systemMessage = each.message;
        reportsFailure = each.reportsFailure;
        EXPECT_EQ(Win32ErrorText(0x80070005U), each.text) << each.label;
        EXPECT_EQ(buffersHeld, 0) << each.label;
    }
}

} // namespace

} // namespace ovrin

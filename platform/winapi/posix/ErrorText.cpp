// Messages for the codes that this layer gives out, in English. Not here: other sources of messages, inserts, other
// languages.
#include "platform/winapi/subset/System.h"

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <iterator>
#include <string_view>

namespace {

struct SystemMessage {
    DWORD code;
    std::u16string_view text;
};

constexpr SystemMessage messages[] = {
    {0x00000002, u"The system cannot find the file specified.\r\n"},
    {0x00000003, u"The system cannot find the path specified.\r\n"},
    {0x00000005, u"Access is denied.\r\n"},
    {0x0000000E, u"There is not enough memory.\r\n"},
    {0x00000057, u"A parameter is not valid.\r\n"},
    {0x0000007B, u"The name of the file or folder is not valid.\r\n"},
    {0x00000459, u"The text holds a character that has no form in the system's file names.\r\n"},
    {0x000004C7, u"The operation was cancelled by the user.\r\n"},
    {0x80004001, u"Not implemented.\r\n"},
    {0x80004002, u"The object does not support this interface.\r\n"},
    {0x80004003, u"A pointer is not valid.\r\n"},
    {0x80004005, u"Unspecified error.\r\n"},
    {0x8000FFFF, u"Unexpected failure.\r\n"},
    {0x80010106, u"The thread is already in another kind of apartment.\r\n"},
    {0x8001010E, u"The call came from another thread than the windows'.\r\n"},
    {0x80040110, u"The class does not support aggregation.\r\n"},
    {0x80040154, u"The class is not registered.\r\n"},
    {0x800401F0, u"The thread has not entered an apartment.\r\n"},
};

// The HRESULT of a plain error code has that code's message.
DWORD PlainCode(DWORD code) {
    constexpr DWORD plainErrors = 0x80070000;
    return (code & 0xFFFF0000U) == plainErrors ? LOWORD(code) : code;
}

} // namespace

DWORD FormatMessageW([[maybe_unused]] DWORD flags, [[maybe_unused]] const void *source, DWORD message,
                     [[maybe_unused]] DWORD language, LPWSTR buffer, [[maybe_unused]] DWORD size,
                     [[maybe_unused]] va_list *arguments) {
    assert(flags == (FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_SYSTEM));
    assert(source == nullptr && language == 0 && size == 0 && arguments == nullptr);
    const auto *known = std::ranges::find(messages, PlainCode(message), &SystemMessage::code);
    if (known == std::end(messages)) {
        return 0;
    }
    const std::size_t length = known->text.size();
    auto *const copy = static_cast<WCHAR *>(std::calloc(length + 1, sizeof(WCHAR)));
    if (copy == nullptr) {
        return 0;
    }
    std::copy_n(known->text.data(), length, copy);
    *reinterpret_cast<LPWSTR *>(buffer) = copy;
    return static_cast<DWORD>(length);
}

HLOCAL LocalFree(HLOCAL memory) {
    std::free(memory);
    return nullptr;
}

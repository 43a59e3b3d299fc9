#include "platform/text/SystemErrorText.h"

#include "platform/text/TextConversion.h"
#include "platform/winapi/WinApi.h"

#include <ios>
#include <memory>
#include <sstream>

namespace ovrin {

namespace {

struct LocalMemoryRelease {
    void operator()(WideChar *memory) const noexcept { LocalFree(memory); }
};

// Empty where the system has none.
WideText SystemMessage(std::uint32_t code) {
    WideChar *buffer = nullptr;
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_SYSTEM,
                       nullptr, code, 0, reinterpret_cast<LPWSTR>(&buffer), 0, nullptr);
    const std::unique_ptr<WideChar, LocalMemoryRelease> owner(buffer);
    return buffer == nullptr ? WideText() : WideText(buffer, length);
}

} // namespace

std::string Win32ErrorText(std::uint32_t code) {
    WideText message = SystemMessage(code);
    message.erase(message.find_last_not_of(WIDE("\r\n ")) + 1); // all of it where nothing else is found
    std::string text = WideToUtf8(message);
    return text.empty() ? "Unknown Win32 error" : text;
}

std::string HResultFailureText(std::string_view operation, std::uint32_t code) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << operation << " failed (HRESULT 0x" << std::uppercase << std::hex << code << "): " << Win32ErrorText(code);
    return text.str();
}

std::string InvalidUtf8Text(std::string_view subject) {
    return std::string(subject) + " is not valid UTF-8.";
}

} // namespace ovrin

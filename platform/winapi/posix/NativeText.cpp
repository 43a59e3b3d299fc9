#include "platform/winapi/posix/NativeText.h"

#include "platform/winapi/subset/System.h"

namespace ovrin {

std::optional<std::u16string> WideFromNative(std::string_view bytes) {
    // A byte never becomes more than one unit.
    std::u16string text(bytes.size(), u'\0');
    const int size = static_cast<int>(bytes.size());
    const int count = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), size, text.data(), size);
    if (count == 0 && !bytes.empty()) {
        return std::nullopt;
    }
    text.resize(static_cast<std::size_t>(count));
    return text;
}

std::optional<std::string> NativeFromWide(std::u16string_view text) {
    constexpr std::size_t bytesOfUnit = 3;
    std::string bytes(text.size() * bytesOfUnit, '\0');
    const int count = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                                          static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(count));
    // A lone surrogate doesn't come back as itself.
    if (WideFromNative(bytes) != text) {
        return std::nullopt;
    }
    return bytes;
}

} // namespace ovrin

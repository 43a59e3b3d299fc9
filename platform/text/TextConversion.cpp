#include "platform/text/TextConversion.h"

#include "platform/winapi/WinApi.h"

#include <algorithm>

namespace ovrin {

namespace {

// The platform takes lengths as signed 32-bit numbers.
constexpr std::size_t longestInput = 0x7FFFFFFF;

int Widen(std::string_view text, DWORD flags, WideChar *buffer, int size) {
    return MultiByteToWideChar(CP_UTF8, flags, text.data(), static_cast<int>(text.size()), buffer, size);
}

int Narrow(WideTextView text, char *buffer, int size) {
    return WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), buffer, size, nullptr, nullptr);
}

// `pass` measures without a buffer, then fills; empty where the two disagree.
template<typename Text, typename Pass>
Text ConvertInTwoPasses(std::size_t inputLength, Pass pass) {
    if (inputLength == 0 || inputLength > longestInput) {
        return {};
    }
    const int count = pass(nullptr, 0);
    if (count <= 0) {
        return {};
    }
    Text result(static_cast<std::size_t>(count), 0);
    if (pass(result.data(), count) != count) {
        return {};
    }
    return result;
}

// The last resort for a text that is to be shown whatever happens.
WideText WidenByteByByte(std::string_view text) {
    WideText result(text.size(), 0);
    std::transform(text.begin(), text.end(), result.begin(),
                   [](char byte) { return static_cast<WideChar>(static_cast<signed char>(byte)); });
    return result;
}

} // namespace

WideText Utf8ToWide(std::string_view text) {
    return ConvertInTwoPasses<WideText>(
        text.size(), [text](WideChar *buffer, int size) { return Widen(text, MB_ERR_INVALID_CHARS, buffer, size); });
}

WideText Utf8ToWideLenient(std::string_view text) {
    if (text.empty()) {
        return {};
    }
    const int count = text.size() > longestInput ? 0 : Widen(text, 0, nullptr, 0);
    if (count <= 0) {
        return WidenByteByByte(text);
    }
    WideText result(static_cast<std::size_t>(count), 0);
    Widen(text, 0, result.data(), count);
    return result;
}

std::string WideToUtf8(WideTextView text) {
    return ConvertInTwoPasses<std::string>(text.size(),
                                           [text](char *buffer, int size) { return Narrow(text, buffer, size); });
}

} // namespace ovrin

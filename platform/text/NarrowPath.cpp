#include "platform/text/NarrowPath.h"

#include "platform/text/TextConversion.h"
#ifdef _WIN32
#include "platform/winapi/WinApi.h"
#endif

#include <system_error>

namespace ovrin {

namespace {

[[noreturn]] void RaiseNotConvertible(const char *operation) {
    throw std::system_error(std::make_error_code(std::errc::illegal_byte_sequence), operation);
}

#ifdef _WIN32

std::filesystem::path NativeFromWide(WideTextView text) {
    return {text};
}

#else

std::filesystem::path NativeFromWide(WideTextView text) {
    std::string bytes = WideToUtf8(text);
    // A lone surrogate has become another character: the path would be another file's.
    if (Utf8ToWide(bytes) != text) {
        RaiseNotConvertible("path from text");
    }
    return {std::move(bytes)};
}

#endif

} // namespace

std::filesystem::path PathFromWide(WideTextView text) {
    // The system would end the path there without a word.
    if (text.find(WideChar{0}) != WideTextView::npos) {
        RaiseNotConvertible("path from text");
    }
    return NativeFromWide(text);
}

#ifdef _WIN32

WideText WideFromPath(const std::filesystem::path &path) {
    return path.native();
}

WideText WideFromPathLenient(const std::filesystem::path &path) {
    return path.native();
}

std::string NarrowFromWideLenient(WideTextView text) {
    // The encoding of the program's file functions, which a program may switch.
    const UINT codePage = AreFileApisANSI() != 0 ? CP_ACP : CP_OEMCP;
    const auto convert = [codePage, text](char *buffer, int size) {
        return WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, text.data(), static_cast<int>(text.size()), buffer,
                                   size, nullptr, nullptr);
    };
    std::string narrow(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
    convert(narrow.data(), static_cast<int>(narrow.size()));
    return narrow;
}

std::string NarrowFromPathLenient(const std::filesystem::path &path) {
    return NarrowFromWideLenient(path.native());
}

#else

WideText WideFromPath(const std::filesystem::path &path) {
    WideText text = Utf8ToWide(path.native());
    if (text.empty() && !path.empty()) {
        RaiseNotConvertible("text from path");
    }
    return text;
}

WideText WideFromPathLenient(const std::filesystem::path &path) {
    return Utf8ToWideLenient(path.native());
}

std::string NarrowFromWideLenient(WideTextView text) {
    return WideToUtf8(text);
}

std::string NarrowFromPathLenient(const std::filesystem::path &path) {
    return path.native();
}

#endif

} // namespace ovrin

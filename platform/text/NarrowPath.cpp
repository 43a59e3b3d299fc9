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

// That of the program's file functions, which a program may switch.
UINT FileCodePage() {
    return AreFileApisANSI() != 0 ? GetACP() : GetOEMCP();
}

// It holds every character, and the conversion takes no flags.
bool IsUnicode(UINT codePage) {
    constexpr UINT gb18030 = 54936;
    return codePage == CP_UTF8 || codePage == gb18030;
}

std::string ToFileCodePage(WideTextView text, BOOL *replaced) {
    // A character of its own or none: one that only looks alike would name another file.
    const DWORD flags = IsUnicode(FileCodePage()) ? 0 : WC_NO_BEST_FIT_CHARS;
    const auto convert = [text, flags, replaced](char *buffer, int size) {
        return WideCharToMultiByte(FileCodePage(), flags, text.data(), static_cast<int>(text.size()), buffer, size,
                                   nullptr, replaced);
    };
    std::string narrow(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
    convert(narrow.data(), static_cast<int>(narrow.size()));
    return narrow;
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

std::string NarrowFromPath(const std::wstring &path) {
    BOOL replaced = FALSE;
    std::string narrow = ToFileCodePage(path, IsUnicode(FileCodePage()) ? nullptr : &replaced);
    // A lone surrogate becomes another character without a word.
    if (replaced != FALSE || PathFromNarrow(narrow).native() != path) {
        RaiseNotConvertible("narrow text from path");
    }
    return narrow;
}

std::filesystem::path PathFromNarrow(std::string_view text) {
    const auto convert = [text](wchar_t *buffer, int size) {
        return MultiByteToWideChar(FileCodePage(), MB_ERR_INVALID_CHARS, text.data(), static_cast<int>(text.size()),
                                   buffer, size);
    };
    std::wstring wide(static_cast<std::size_t>(convert(nullptr, 0)), L'\0');
    convert(wide.data(), static_cast<int>(wide.size()));
    if (wide.empty() && !text.empty()) {
        RaiseNotConvertible("path from narrow text");
    }
    return PathFromWide(wide);
}

std::string NarrowFromWideLenient(WideTextView text) {
    return ToFileCodePage(text, nullptr);
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

std::string NarrowFromPath(const std::string &path) {
    return path;
}

std::filesystem::path PathFromNarrow(std::string_view text) {
    if (text.find('\0') != std::string_view::npos) {
        RaiseNotConvertible("path from narrow text");
    }
    return {text};
}

std::string NarrowFromWideLenient(WideTextView text) {
    return WideToUtf8(text);
}

std::string NarrowFromPathLenient(const std::filesystem::path &path) {
    return path.native();
}

#endif

} // namespace ovrin

#include "platform/text/NarrowPath.h"

#include "platform/text/TextConversion.h"

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

#endif

} // namespace ovrin

// Conversions between filesystem paths and text.
#pragma once

#include "platform/text/WideText.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace ovrin {

// Raises std::system_error for text that no path can hold: one with a zero unit and, where paths are bytes, one with a
// lone surrogate.
[[nodiscard]] std::filesystem::path PathFromWide(WideTextView text);

// The path's own text, unchanged. Raises std::system_error where the path's bytes aren't UTF-8.
[[nodiscard]] WideText WideFromPath(const std::filesystem::path &path);

// For showing only: what isn't text becomes U+FFFD, so the result may name no file.
[[nodiscard]] WideText WideFromPathLenient(const std::filesystem::path &path);

// ---- The narrow file-name encoding: the code page of the program's file functions, or bytes as they are where paths
// are bytes. ----

// Takes a path's own text, which a path gives by itself. Raises std::system_error for a character that the encoding
// can't hold.
[[nodiscard]] std::string NarrowFromPath(const std::filesystem::path::string_type &path);

// Raises std::system_error for bytes that aren't text in the encoding, and for a zero byte.
[[nodiscard]] std::filesystem::path PathFromNarrow(std::string_view text);

// For showing only: what the encoding can't hold is replaced by its own mark.
[[nodiscard]] std::string NarrowFromWideLenient(WideTextView text);
[[nodiscard]] std::string NarrowFromPathLenient(const std::filesystem::path &path);

} // namespace ovrin

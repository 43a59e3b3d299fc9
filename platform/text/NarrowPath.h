// Conversions between filesystem paths and text.
#pragma once

#include "platform/text/WideText.h"

#include <filesystem>
#include <string>

namespace ovrin {

// Raises std::system_error for text that no path can hold: one with a zero unit and, where paths are bytes, one with a
// lone surrogate.
[[nodiscard]] std::filesystem::path PathFromWide(WideTextView text);

// The path's own text, unchanged. Raises std::system_error where the path's bytes aren't UTF-8.
[[nodiscard]] WideText WideFromPath(const std::filesystem::path &path);

// For showing only: what isn't text becomes U+FFFD, so the result may name no file.
[[nodiscard]] WideText WideFromPathLenient(const std::filesystem::path &path);

// Text and paths in the narrow file-name encoding, for showing only: what it can't hold is replaced by its own mark.
[[nodiscard]] std::string NarrowFromWideLenient(WideTextView text);
[[nodiscard]] std::string NarrowFromPathLenient(const std::filesystem::path &path);

} // namespace ovrin

// Wide text at the edge of a system that takes and gives bytes, read as UTF-8.
#pragma once

#include "platform/winapi/subset/Types.h"

#include <optional>
#include <string>
#include <string_view>

namespace ovrin {

// Nothing for text with a lone surrogate: it could only be handed on changed.
[[nodiscard]] std::optional<std::string> NativeFromWide(std::u16string_view text);

// Nothing for bytes that aren't UTF-8.
[[nodiscard]] std::optional<std::u16string> WideFromNative(std::string_view bytes);

} // namespace ovrin

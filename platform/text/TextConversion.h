// Conversions between UTF-8 and wide text. Pure functions of texts with explicit lengths: a zero byte is content.
#pragma once

#include "platform/text/WideText.h"

#include <string>
#include <string_view>

namespace ovrin {

// Empty for malformed text, as for empty text and for more than 0x7FFFFFFF bytes.
[[nodiscard]] WideText Utf8ToWide(std::string_view text);

// For text that is shown: each malformed sequence becomes U+FFFD, what stands around it stays.
[[nodiscard]] WideText Utf8ToWideLenient(std::string_view text);

// A lone surrogate becomes U+FFFD. Empty where the conversion fails.
[[nodiscard]] std::string WideToUtf8(WideTextView text);

} // namespace ovrin

// Wide text: a sequence of 16-bit UTF-16 code units with an explicit length, on every platform.
#pragma once

#include <string>
#include <string_view>

#ifdef _WIN32
#define WIDE_PASTE(text) L##text
#else
#define WIDE_PASTE(text) u##text
#endif

// A wide literal: a string or a character, also where the argument is a macro itself.
#define WIDE(text) WIDE_PASTE(text)

namespace ovrin {

#ifdef _WIN32
using WideChar = wchar_t;
#else
using WideChar = char16_t;
#endif

static_assert(sizeof(WideChar) == 2);

using WideText = std::basic_string<WideChar>;
using WideTextView = std::basic_string_view<WideChar>;

} // namespace ovrin

// The text of a system error code, and the sentences that report a failed platform call and unusable text. In UTF-8,
// never empty.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ovrin {

// The system's message without the line end behind it. "Unknown Win32 error" for a code that the system has no words
// for. An HRESULT is passed whole.
[[nodiscard]] std::string Win32ErrorText(std::uint32_t code);

// "OPERATION failed (HRESULT 0xCODE): " and the system's message.
[[nodiscard]] std::string HResultFailureText(std::string_view operation, std::uint32_t code);

// "SUBJECT is not valid UTF-8."
[[nodiscard]] std::string InvalidUtf8Text(std::string_view subject);

} // namespace ovrin

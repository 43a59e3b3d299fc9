// The machine's local time in the two forms that the logger writes.
#pragma once

#include <array>
#include <string>

namespace ovrin {

// The characters of "14:03:59".
using ClockText = std::array<char, 8>;

[[nodiscard]] ClockText ClockTime();

// "14:03:59".
[[nodiscard]] std::string FormatClockTime();

// "20261123_140359".
[[nodiscard]] std::string FormatFileTimestamp();

} // namespace ovrin

// The machine's local time in the two forms that the logger writes.
#pragma once

#include <string>

namespace ovrin {

// "14:03:59".
[[nodiscard]] std::string FormatClockTime();

// The same into a text that keeps its storage.
void AssignClockTime(std::string &text);

// "20261123_140359".
[[nodiscard]] std::string FormatFileTimestamp();

} // namespace ovrin

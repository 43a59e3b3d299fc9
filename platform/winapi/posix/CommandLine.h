// Taking a command line apart by the platform's convention.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ovrin {

// Blanks and tabs separate; double quotes group and also make an empty element; backslashes before a double quote halve
// and an odd one makes it literal; two double quotes in a group are a literal one. Unlike the platform this holds for
// the first element too: a program's path can't hold a double quote there, but here it can.
[[nodiscard]] std::vector<std::u16string> SplitCommandLine(std::u16string_view commandLine);

} // namespace ovrin

// A line of the recent-projects file: two fields, the path in the narrow file-name encoding and the name, each in
// double quotes with a backslash before every quote and backslash in it. Pure text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ovrin {

struct RecentProjectFields {
    std::string path;
    std::string name; // empty where the line has none
};

// Nothing for a line without a readable first field. A field without quotes ends at white space, and a backslash in it
// is only itself. What stands behind the second field is ignored.
[[nodiscard]] std::optional<RecentProjectFields> ParseRecentProjectLine(std::string_view line);

// With its line feed.
[[nodiscard]] std::string FormatRecentProjectLine(const RecentProjectFields &fields);

} // namespace ovrin

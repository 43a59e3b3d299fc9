// One entry of the recent-projects list.
#pragma once

#include <filesystem>
#include <string>

namespace ovrin {

struct RecentProject {
    std::filesystem::path path; // the project file
    std::string name;           // read as UTF-8 when shown; empty: the file's stem is shown
};

} // namespace ovrin

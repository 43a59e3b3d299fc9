#include "core/paths/PathRoot.h"

namespace ovrin {

RootedPath SplitRoot(const std::filesystem::path &path) {
    return {.rootName = {}, .local = path};
}

bool IsAbsolute(const RootedPath &path) {
    return path.local.has_root_directory();
}

std::filesystem::path CurrentFolder(const std::filesystem::path::string_type &, std::error_code &error) {
    return std::filesystem::current_path(error);
}

} // namespace ovrin

// The platform's share in the form of a path: where its root ends, and the current folder.
#pragma once

#include <filesystem>
#include <system_error>

namespace ovrin {

// A path's text in two: the root's name, and the rest, which begins with exactly one separator where the path has a
// root folder. The rest is safe in the hands of the standard library.
struct RootedPath {
    std::filesystem::path::string_type rootName; // `C:`, `\\server\share`; always empty where paths have one root
    std::filesystem::path local;
};

[[nodiscard]] RootedPath SplitRoot(const std::filesystem::path &path);

[[nodiscard]] bool IsAbsolute(const RootedPath &path);

// Of the drive where `rootName` is one, else of the process. Empty on failure.
[[nodiscard]] std::filesystem::path CurrentFolder(const std::filesystem::path::string_type &rootName,
                                                  std::error_code &error);

} // namespace ovrin

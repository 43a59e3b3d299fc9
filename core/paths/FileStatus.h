// What lies at a path: the one test of existence, emptiness, chains of folders, and the one form of their errors.
// Symbolic links are followed. Safe on any thread; another program may change the answer at once.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace ovrin {

// what() reads `operation: system text: "path"` in UTF-8. The code is the platform's own, in std::system_category.
// path1() may be empty for a path that isn't text.
class PathError : public std::filesystem::filesystem_error {
public:
    PathError(std::string_view operation, const std::filesystem::path &path, std::error_code code);
    [[nodiscard]] const char *what() const noexcept override { return text_.what(); }

private:
    std::runtime_error text_; // its text is shared, so that copying this exception can't throw
};

// Any kind of entry counts. Raises PathError "exists" where the question can't be answered: access denied, say.
[[nodiscard]] bool PathExists(const std::filesystem::path &path);

// False also where the question can't be answered.
[[nodiscard]] bool IsFolder(const std::filesystem::path &path);

// A folder without entries; anything else of size 0. Raises PathError "is_empty", also when there is nothing.
[[nodiscard]] bool IsPathEmpty(const std::filesystem::path &path);

// Makes the folder and all missing ones above it; an existing folder is fine, anything else in its place is not.
// Raises PathError "create_directories" with the whole path; folders already made stay.
void CreateDirectoryChain(const std::filesystem::path &path);

} // namespace ovrin

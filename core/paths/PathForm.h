// The form of a path, worked out on its text: roots, joins, parents, normal form. The standard library takes network
// paths apart wrongly on one of our platforms, so nothing else asks it for these. A root there is `C:\`,
// `\\server\share\` or one of these behind `\\?\`; a share belongs to its root, as it does for the system.
#pragma once

#include <cstddef>
#include <filesystem>
#include <system_error>
#include <vector>

namespace ovrin::PathForm {

// The path's text with every separator written as a slash; nothing else changes.
[[nodiscard]] std::filesystem::path::string_type GenericText(const std::filesystem::path &path);

// Without dots, inner ".." and repeated separators, in preferred separators. Links aren't looked at.
[[nodiscard]] std::filesystem::path LexicallyNormal(const std::filesystem::path &path);

// One separator between the two; an absolute right-hand part replaces the left-hand one.
[[nodiscard]] std::filesystem::path Join(const std::filesystem::path &base, const std::filesystem::path &part);

// Without the last element and the separators before it. A root is its own parent, a lone name has an empty one.
[[nodiscard]] std::filesystem::path ParentOf(const std::filesystem::path &path);

// The last element with its whole text; empty for a root and after a trailing separator.
[[nodiscard]] std::filesystem::path FileNameOf(const std::filesystem::path &path);

[[nodiscard]] bool IsAbsolute(const std::filesystem::path &path);

// Against the current folder; an absolute path comes back unchanged. Raises PathError "absolute".
[[nodiscard]] std::filesystem::path MakeAbsolute(const std::filesystem::path &path);

// Where the path's text may be cut behind an element, the root excepted; the shortest leading part first.
[[nodiscard]] std::vector<std::size_t> EndsOfElements(const std::filesystem::path &path);

// Whether ".." is one of the elements.
[[nodiscard]] bool HasParentStep(const std::filesystem::path &path);

// The part of a path that exists, as the path has it and with its links resolved.
struct ExistingPart {
    std::filesystem::path::string_type text;
    std::filesystem::path resolved;
};

// The leading part that exists with its links resolved, the rest behind it, and the whole in normal form. A relative
// path of which nothing exists stays relative. `error` is set where the file system can't tell; then the result is
// empty. In one pass over paths that lie beside each other `part` keeps what needn't be asked again; it begins empty.
[[nodiscard]] std::filesystem::path WeaklyCanonical(const std::filesystem::path &path, ExistingPart &part,
                                                    std::error_code &error);

} // namespace ovrin::PathForm

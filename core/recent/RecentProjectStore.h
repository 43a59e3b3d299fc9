// The recent-projects list on disk: one quoted path and name a line, the most recent first, shared by the engine's
// programs. Free operations on a plain vector; the file is the truth. No lock: of two writers the later one wins.
//
// A `limit` of 0, or the largest value, is none. Everything queries the file system on the calling thread.
#pragma once

#include "core/recent/RecentProject.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace ovrin::RecentProjectStore {

// "recent_projects.cfg" in the user settings directory. Raises as GetUserSettingsDirectory.
[[nodiscard]] std::filesystem::path GetRecentProjectsPath();

// The part that exists with its links resolved, the whole in normal form; only the latter where the file system can't
// tell. Empty for an empty path.
[[nodiscard]] std::filesystem::path NormalizeProjectPath(const std::filesystem::path &path);

// What makes two paths the same project: the normal form in slashes and narrow encoding, A to Z in lower case. Raises
// std::system_error for a path that the encoding can't hold.
[[nodiscard]] std::string RecentProjectKey(const std::filesystem::path &path);

// At most `limit` entries in the same order, in normal form and with names; of several with one key the first stays.
// Entries behind the last one that is needed aren't looked at. Raises as RecentProjectKey.
[[nodiscard]] std::vector<RecentProject> NormalizeRecentProjects(const std::vector<RecentProject> &projects,
                                                                 std::uint64_t limit);

// The same of the file's lines. Empty where it can't be opened; a line that can't be read or whose path can't be is
// skipped. Never writes. Raises as GetRecentProjectsPath.
[[nodiscard]] std::vector<RecentProject> LoadRecentProjects(std::uint64_t limit);

// Writes all of them, in normal form, making the folder where it is missing. Where that fails the file holds what it
// held before, one line in the log tells why, and the result is false. Raises nothing.
bool SaveRecentProjects(const std::vector<RecentProject> &projects);

// Puts the project at the list's front, under its new name or else its file's stem, and saves at most `limit`. False
// where it can't be saved or the path is empty. Raises as GetRecentProjectsPath and RecentProjectKey.
bool RecordRecentProject(const std::filesystem::path &path, std::string name, std::uint64_t limit);

// Saves at most `limit` of the others; a project that isn't listed leaves the file alone, which is true as well. Raises
// as GetRecentProjectsPath and RecentProjectKey.
bool RemoveRecentProject(const std::filesystem::path &path, std::uint64_t limit);

} // namespace ovrin::RecentProjectStore

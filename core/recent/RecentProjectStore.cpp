#include "core/recent/RecentProjectStore.h"

#include "core/logging/Logger.h"
#include "core/paths/EnginePaths.h"
#include "core/paths/FileRewrite.h"
#include "core/paths/FileStatus.h"
#include "core/paths/PathForm.h"
#include "core/recent/RecentProjectLines.h"
#include "platform/text/NarrowPath.h"

#include <algorithm>
#include <exception>
#include <fstream>
#include <limits>
#include <unordered_set>

namespace ovrin::RecentProjectStore {

namespace {

struct NormalForm {
    std::filesystem::path path;
    bool isFinal; // taking the normal form again changes nothing and needs no query
};

NormalForm Normalize(const std::filesystem::path &path, PathForm::ExistingPart &part) {
    if (path.empty()) {
        return {.path = {}, .isFinal = true};
    }
    std::error_code error;
    std::filesystem::path canonical = PathForm::WeaklyCanonical(path, part, error);
    // A step up from what isn't there may lead back to a link that is.
    const bool isFinal = !PathForm::HasParentStep(path);
    return {.path = error ? PathForm::LexicallyNormal(path) : std::move(canonical), .isFinal = isFinal};
}

std::string KeyOfNormal(const std::filesystem::path &path) {
    std::string key = NarrowFromPath(PathForm::GenericText(path));
    std::ranges::transform(key, key.begin(), [](char byte) {
        return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
    });
    return key;
}

// The file's name without its last extension, in the narrow encoding.
std::string StemOf(const std::filesystem::path &path) {
    return NarrowFromPath(PathForm::FileNameOf(path).stem());
}

// Collects a list in normal form up to its limit.
class ListBuilder {
public:
    explicit ListBuilder(std::uint64_t limit)
        : limit_(limit == 0 ? std::numeric_limits<std::uint64_t>::max() : limit) {}

    [[nodiscard]] bool IsFull() const { return projects_.size() >= limit_; }

    void Add(RecentProject project) {
        NormalForm normal = Normalize(project.path, existingPart_);
        if (normal.path.empty()) {
            return;
        }
        if (project.name.empty()) {
            project.name = StemOf(normal.path);
        }
        std::string key = KeyOfNormal(normal.isFinal ? normal.path : NormalizeProjectPath(normal.path));
        if (!key.empty() && keys_.insert(std::move(key)).second) {
            project.path = std::move(normal.path);
            projects_.push_back(std::move(project));
        }
    }

    [[nodiscard]] std::vector<RecentProject> Take() { return std::move(projects_); }

private:
    std::uint64_t limit_;
    std::vector<RecentProject> projects_;
    std::unordered_set<std::string> keys_;
    PathForm::ExistingPart existingPart_; // projects that have gone mostly lay in one folder
};

void AddLine(ListBuilder &list, std::string_view line) {
    std::optional<RecentProjectFields> fields = ParseRecentProjectLine(line);
    if (!fields) {
        return;
    }
    try {
        list.Add({.path = PathFromNarrow(fields->path), .name = std::move(fields->name)});
    } catch (const std::system_error &) { // NOLINT(bugprone-empty-catch): a line in another encoding; the others load
    }
}

std::string FormatList(const std::vector<RecentProject> &projects) {
    std::string text;
    for (const RecentProject &project : projects) {
        text += FormatRecentProjectLine(
            {.path = NarrowFromPath(PathForm::GenericText(project.path)), .name = project.name});
    }
    return WithPlatformLineEnds(text);
}

bool Save(const std::vector<RecentProject> &projects) {
    const std::filesystem::path file = GetRecentProjectsPath();
    CreateDirectoryChain(PathForm::ParentOf(file));
    // All of it before the file is touched: a path that can't be written must not cost the list.
    const std::string content = FormatList(NormalizeRecentProjects(projects, 0));
    if (!RewriteFile(file, content)) {
        LogWarn("Failed to open recent projects config for writing: " + NarrowFromPathLenient(file));
        return false;
    }
    return true;
}

std::size_t EraseKey(std::vector<RecentProject> &projects, const std::string &key) {
    return std::erase_if(projects,
                         [&key](const RecentProject &project) { return RecentProjectKey(project.path) == key; });
}

} // namespace

std::filesystem::path GetRecentProjectsPath() {
    return PathForm::Join(EnginePaths::GetUserSettingsDirectory(), "recent_projects.cfg");
}

std::filesystem::path NormalizeProjectPath(const std::filesystem::path &path) {
    PathForm::ExistingPart part;
    return Normalize(path, part).path;
}

std::string RecentProjectKey(const std::filesystem::path &path) {
    return KeyOfNormal(NormalizeProjectPath(path));
}

std::vector<RecentProject> NormalizeRecentProjects(const std::vector<RecentProject> &projects, std::uint64_t limit) {
    ListBuilder list(limit);
    for (auto project = projects.begin(); project != projects.end() && !list.IsFull(); ++project) {
        list.Add(*project);
    }
    return list.Take();
}

std::vector<RecentProject> LoadRecentProjects(std::uint64_t limit) {
    // Line ends of text mode need no care: to a field a carriage return is white space.
    std::ifstream file(GetRecentProjectsPath(), std::ios::binary);
    ListBuilder list(limit);
    for (std::string line; !list.IsFull() && std::getline(file, line);) {
        AddLine(list, line);
    }
    return list.Take();
}

bool SaveRecentProjects(const std::vector<RecentProject> &projects) {
    try {
        return Save(projects);
    } catch (const std::exception &error) {
        LogWarn(std::string("Failed to save recent projects: ") + error.what());
        return false;
    }
}

bool RecordRecentProject(const std::filesystem::path &path, std::string name, std::uint64_t limit) {
    const std::filesystem::path normal = NormalizeProjectPath(path);
    if (normal.empty()) {
        return false;
    }
    std::vector<RecentProject> projects = LoadRecentProjects(0);
    // The normal list has it once, the first time that it comes, and under its file's name if it is given none.
    projects.insert(projects.begin(), {.path = normal, .name = std::move(name)});
    return SaveRecentProjects(NormalizeRecentProjects(projects, limit));
}

bool RemoveRecentProject(const std::filesystem::path &path, std::uint64_t limit) {
    const std::string key = RecentProjectKey(path);
    if (key.empty()) {
        return false;
    }
    std::vector<RecentProject> projects = LoadRecentProjects(0);
    return EraseKey(projects, key) == 0 || SaveRecentProjects(NormalizeRecentProjects(projects, limit));
}

} // namespace ovrin::RecentProjectStore

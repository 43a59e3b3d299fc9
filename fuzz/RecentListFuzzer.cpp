// Any bytes load as the standard library's own reading of quoted fields takes them; and what was loaded is saved and
// loaded again unchanged.
#include "core/recent/RecentProjectLines.h"
#include "core/recent/RecentProjectStore.h"
#include "platform/text/NarrowPath.h"
#include "tests/support/EnvironmentScope.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iomanip>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

// The store's lists compare by content here.
namespace ovrin {

bool operator==(const RecentProject &left, const RecentProject &right) {
    return left.path.native() == right.path.native() && left.name == right.name;
}

} // namespace ovrin

namespace {

using namespace ovrin;
using namespace ovrin::RecentProjectStore;
using Projects = std::vector<RecentProject>;

// The settings folder; beside the list a file, a folder and two links.
class Settings {
public:
    Settings() {
        folder_.Make("d/p.x");
        std::filesystem::create_directory_symlink("d", folder_.Path() / "l");
        std::filesystem::create_symlink("o", folder_.Path() / "o"); // to itself
    }

    [[nodiscard]] const std::filesystem::path &Folder() const { return folder_.Path(); }
    static void Write(std::string_view text) { std::ofstream(GetRecentProjectsPath(), std::ios::binary) << text; }
    static std::string Read() {
        std::ifstream file(GetRecentProjectsPath(), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    testing::TemporaryFolder folder_;
    testing::EnvironmentScope variable_{"OVRIN_USER_SETTINGS_DIR", WideFromPath(folder_.Path())};
};

// Relative paths reach what lies in the folder. The fuzzer's own files are named from where it was started.
class CurrentFolderScope {
public:
    explicit CurrentFolderScope(const std::filesystem::path &folder) { std::filesystem::current_path(folder); }
    CurrentFolderScope(const CurrentFolderScope &) = delete;
    CurrentFolderScope &operator=(const CurrentFolderScope &) = delete;
    ~CurrentFolderScope() {
        std::error_code ignored;
        std::filesystem::current_path(old_, ignored);
    }

private:
    std::filesystem::path old_ = std::filesystem::current_path();
};

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

std::optional<std::string> TakeField(std::istream &line) {
    std::string field;
    return line >> std::quoted(field) ? std::optional(field) : std::nullopt;
}

// Every line that has a path, and what else the file system could never hold left out.
Projects ReadLines(const std::string &text) {
    Projects projects;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        const auto path = TakeField(fields);
        const auto name = path ? TakeField(fields) : std::nullopt;
        const auto parsed = ParseRecentProjectLine(line);
        Require(parsed.has_value() == path.has_value());
        Require(!parsed || (parsed->path == *path && parsed->name == name.value_or("")));
        if (path && path->find('\0') == std::string::npos) {
            projects.push_back({.path = *path, .name = name.value_or("")});
        }
    }
    return projects;
}

// Where the library can tell: it gives up on a path that is too long, the store doesn't.
void CheckNormalForm(const std::filesystem::path &path) {
    std::error_code error;
    const std::filesystem::path expected = std::filesystem::weakly_canonical(path, error).lexically_normal();
    Require(error || path.empty() || NormalizeProjectPath(path).native() == expected.native());
}

// Nothing is invented, nothing twice, and a limit only cuts.
void CheckList(const Projects &loaded, const Projects &lines) {
    std::set<std::string> keys;
    auto line = lines.begin();
    for (const RecentProject &project : loaded) {
        line = std::find_if(line, lines.end(), [&](const RecentProject &each) {
            return NormalizeProjectPath(each.path).native() == project.path.native();
        });
        Require(line != lines.end());
        Require(project.name == (line->name.empty() ? project.path.stem().native() : line->name));
        Require(keys.insert(RecentProjectKey(project.path)).second);
        ++line;
    }
    const std::size_t limit = loaded.size() / 2 + 1;
    Require(LoadRecentProjects(limit) ==
            Projects(loaded.begin(), loaded.begin() + static_cast<std::ptrdiff_t>(std::min(limit, loaded.size()))));
}

// A step up from what isn't there may have led to a link: a second pass follows it, and then the list stays.
void CheckRoundTrip(const Projects &loaded) {
    const Projects settled = NormalizeRecentProjects(NormalizeRecentProjects(loaded, 0), 0);
    Require(SaveRecentProjects(settled));
    Require(LoadRecentProjects(0) == settled);
    const std::string text = Settings::Read();
    Require(ReadLines(text) == settled);
    Require(std::count(text.begin(), text.end(), '\n') == static_cast<std::ptrdiff_t>(settled.size()));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const Settings settings;
    const CurrentFolderScope folder(settings.Folder());
    const std::string text(reinterpret_cast<const char *>(data), size);
    Settings::Write(text);
    const Projects lines = ReadLines(text);
    const Projects loaded = LoadRecentProjects(0);
    Require(Settings::Read() == text);
    for (const RecentProject &line : lines) {
        CheckNormalForm(line.path);
    }
    CheckList(loaded, lines);
    CheckRoundTrip(loaded);
    return 0;
}

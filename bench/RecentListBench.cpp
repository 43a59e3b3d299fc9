// The recent-projects list beside the bare queries that it can't do without. RecentListBench [ROUNDS]
//
// The normal form of a project that is there takes at least its canonical path from the system: one realpath. That of
// one that has gone takes two: the whole path, which tells that it has, and the folder in which it lay. They are asked
// here without a list, a file, a path's text or a set of keys, and without searching for that folder. The operations
// take turns within a round; shown are medians over the rounds.
#include "bench/Rounds.h"
#include "bench/Timing.h"
#include "core/recent/RecentProjectStore.h"
#include "platform/text/NarrowPath.h"
#include "tests/support/EnvironmentScope.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace ovrin::bench {

namespace {

using namespace RecentProjectStore;
using Projects = std::vector<RecentProject>;

constexpr int sizes[] = {10, 1'000, 100'000};
constexpr double wantedRatio = 1.5; // of a load to the bare queries, at most

// The settings folder, and folders with projects.
class Workspace {
public:
    // Each project has a folder of its own, as the launcher makes them.
    [[nodiscard]] Projects Name(const char *folder, int count) const {
        Projects projects(static_cast<std::size_t>(count));
        for (int number = 0; number < count; ++number) {
            RecentProject &project = projects[static_cast<std::size_t>(number)];
            project.name = "Game " + std::to_string(number);
            project.path = folder_.Path() / "Projects" / folder / project.name / (project.name + ".oproject");
        }
        return projects;
    }
    void Make(const Projects &projects) const {
        for (const RecentProject &project : projects) {
            folder_.Make(project.path);
        }
    }
    void MakeFolder(const char *name) const { folder_.Make(std::string("Projects/") + name + '/'); }

private:
    testing::TemporaryFolder folder_;
    testing::EnvironmentScope settings_{"OVRIN_USER_SETTINGS_DIR", WideFromPath(folder_.Path())};
};

void Require(bool holds, const char *what) {
    if (!holds) {
        throw std::runtime_error(what);
    }
}

bool HasCanonicalPath(const std::filesystem::path &path) {
    return std::unique_ptr<char, decltype(&std::free)>(::realpath(path.c_str(), nullptr), std::free) != nullptr;
}

void QueryThere(const Projects &projects) {
    for (const RecentProject &project : projects) {
        Require(HasCanonicalPath(project.path), "a project isn't there");
    }
}

void QueryGone(const Projects &projects) {
    const std::filesystem::path folder = projects[0].path.parent_path().parent_path();
    for (const RecentProject &project : projects) {
        Require(!HasCanonicalPath(project.path) && HasCanonicalPath(folder), "a project hasn't gone");
    }
}

void Load(const Projects &projects) {
    Require(LoadRecentProjects(0).size() == projects.size(), "not all projects were loaded");
}

void Normalize(const Projects &projects) {
    Require(NormalizeRecentProjects(projects, 0).size() == projects.size(), "projects were dropped");
}

void Save(const Projects &projects) {
    Require(SaveRecentProjects(projects), "the list can't be saved");
}

using Operation = void (*)(const Projects &);

// Of an entry, one round.
double TimeEntry(Operation operation, const Projects &projects) {
    constexpr int leastEntries = 5'000;
    const int size = static_cast<int>(projects.size());
    return TimeEach(std::max(leastEntries / size, 1), [&] { operation(projects); }) / size;
}

void Run(const char *label, Operation bareQueries, const Projects &projects, int rounds) {
    const std::vector<Operation> operations = {bareQueries, Load, Normalize, Save};
    Save(projects); // what is loaded
    std::vector<Values> times(operations.size());
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t index = 0; index < operations.size(); ++index) {
            times[index].push_back(TimeEntry(operations[index], projects));
        }
    }
    std::printf("%7zu %-8s", projects.size(), label);
    for (const Values &values : times) {
        std::printf(" %9.0f", Median(values));
    }
    std::printf(" %10.2f %7.2f\n", Median(times[1]) / Median(times[0]), wantedRatio);
    std::fflush(stdout);
}

void RunAll(int rounds) {
    const Workspace workspace;
    const Projects there = workspace.Name("there", sizes[std::size(sizes) - 1]);
    const Projects gone = workspace.Name("gone", sizes[std::size(sizes) - 1]);
    workspace.Make(there);
    workspace.MakeFolder("gone");
    std::printf("%-16s %9s %9s %9s %9s %10s %7s\n", "ns an entry", "queries", "load", "normalise", "save", "load ratio",
                "wanted");
    for (const int size : sizes) {
        Run("there", QueryThere, {there.begin(), there.begin() + size}, rounds);
        Run("gone", QueryGone, {gone.begin(), gone.begin() + size}, rounds);
    }
}

} // namespace

} // namespace ovrin::bench

int main(int count, char **arguments) {
    return ovrin::bench::RunRounds("RecentListBench", {arguments, arguments + count}, ovrin::bench::RunAll);
}

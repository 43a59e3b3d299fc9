// The list on disk and the list in the window: when each follows the other.
#include "core/recent/RecentProjectStore.h"
#include "tests/desktop/ScriptPlayer.h"

#include <chrono>
#include <gtest/gtest.h>

namespace ovrin::desktop {

namespace {

namespace fs = std::filesystem;

// A list of that many projects, "0" and on, of which some have no file; written long ago.
struct ListOnDisk {
    ListOnDisk(int count, const std::vector<int> &missing) {
        std::vector<RecentProject> projects;
        for (int number = 0; number < count; ++number) {
            const std::string name = std::to_string(number);
            projects.push_back({.path = sandbox.folder().Make(name + ".oproject"), .name = name});
        }
        RecentProjectStore::SaveRecentProjects(projects);
        for (const int number : missing) {
            Remove(number);
        }
        fs::last_write_time(file, written);
    }
    void Remove(int number) const { fs::remove(sandbox.folder().Path() / (std::to_string(number) + ".oproject")); }
    [[nodiscard]] bool IsUntouched() const { return fs::last_write_time(file) == written; }
    [[nodiscard]] static std::size_t Size() { return RecentProjectStore::LoadRecentProjects(0).size(); }

    Sandbox sandbox;
    fs::path file = RecentProjectStore::GetRecentProjectsPath();
    fs::file_time_type written = std::chrono::floor<std::chrono::hours>(fs::file_time_type::clock::now());
};

void ExpectView(const LauncherState &state, std::size_t rows) {
    const bool isFilled = rows != 0;
    EXPECT_EQ(state.recentProjects.size(), rows);
    EXPECT_EQ(IsWindowVisible(state.recentList) != FALSE, isFilled);
    EXPECT_EQ(IsWindowEnabled(state.openSelectedButton) != FALSE, isFilled);
    EXPECT_EQ(IsWindowEnabled(state.removeMissingButton) != FALSE, isFilled);
    EXPECT_TRUE(IsWindowEnabled(state.openProjectButton));
    EXPECT_EQ(SendMessageW(state.recentList, LB_GETCURSEL, 0, 0), isFilled ? 0 : LB_ERR);
}

TEST(RecentListAtStart, ShowsSixteenAndRewritesTheFileOnlyWhereOneHasGone) {
    const struct {
        const char *label;
        int count;
        std::vector<int> missing;
        std::size_t shown;
        std::size_t kept; // in the file afterwards
    } cases[] = {
        {"an empty file", 0, {}, 0, 0},
        {"all there", 5, {}, 5, 5},
        {"two gone", 5, {1, 4}, 3, 3},
        {"all gone", 3, {0, 1, 2}, 0, 0},
        {"just as many as are shown", 16, {}, 16, 16},
        {"more than are shown", 20, {}, 16, 20},
        {"one gone of more", 20, {15}, 15, 15},
        {"one gone behind those shown", 20, {16}, 16, 20},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.label);
        const ListOnDisk list(each.count, each.missing);
        RunLauncher([&](const LauncherRun &run) { ExpectView(*run.state, each.shown); });
        EXPECT_EQ(ListOnDisk::Size(), each.kept);
        EXPECT_EQ(list.IsUntouched(), each.kept == static_cast<std::size_t>(each.count));
    }
}

TEST(OpenSelected, OfAVanishedProjectCutsTheListToTwelve) {
    struct Case {
        int count;
        std::size_t left;
    };
    for (const auto &[count, left] : {Case{1, 0}, Case{5, 4}, Case{13, 12}, Case{16, 12}, Case{20, 12}, Case{21, 12}}) {
        SCOPED_TRACE(count);
        const ListOnDisk list(count, {});
        RunLauncher([&, number = count / 2, rows = left](LauncherRun &run) {
            list.Remove(number);
            SendMessageW(run.state->recentList, LB_SETCURSEL, static_cast<WPARAM>(number), 0);
            const std::string seen = ScriptPlayer{run, list.sandbox}.Play("click open-selected");
            EXPECT_NE(seen.find("Project Missing"), std::string::npos) << seen;
            ExpectView(*run.state, rows);
        });
        EXPECT_EQ(ListOnDisk::Size(), left);
        EXPECT_TRUE(list.sandbox.EditorCalls().empty());
    }
}

TEST(RemoveMissing, ChangesListAndFileOnlyWhereOneHasGone) {
    const ListOnDisk list(20, {});
    RunLauncher([&](LauncherRun &run) {
        ScriptPlayer player{run, list.sandbox};
        player.Play("click recent:3"); // shown in part; it stays where it is
        player.Play("click remove-missing");
        EXPECT_EQ(SendMessageW(run.state->recentList, LB_GETCURSEL, 0, 0), 3);
        EXPECT_TRUE(list.IsUntouched());
        list.Remove(7);
        player.Play("click remove-missing");
        ExpectView(*run.state, 15);
        EXPECT_EQ(ListOnDisk::Size(), 15U); // what wasn't shown is gone with it
        for (int number = 0; number < 20; ++number) {
            list.Remove(number);
        }
        player.Play("click remove-missing");
        ExpectView(*run.state, 0);
        EXPECT_EQ(ListOnDisk::Size(), 0U);
    });
}

} // namespace

} // namespace ovrin::desktop

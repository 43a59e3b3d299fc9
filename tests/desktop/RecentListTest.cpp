// The list on disk and the list in the window: when each follows the other.
#include "core/recent/RecentProjectStore.h"
#include "tests/desktop/DesktopDriver.h"
#include "tests/desktop/Recorder.h"
#include "tests/desktop/Sandbox.h"

#include <chrono>
#include <gtest/gtest.h>
#include <iterator>

namespace ovrin::desktop {

namespace {

namespace fs = std::filesystem;

// A list of that many projects, "0" and on, of which some have no file.
class ListOnDisk {
public:
    ListOnDisk(const Sandbox &sandbox, int count, const std::vector<int> &missing) : sandbox_(sandbox) {
        std::vector<RecentProject> projects;
        for (int number = 0; number < count; ++number) {
            const std::string name = std::to_string(number);
            projects.push_back({.path = sandbox.folder().Make(name + ".oproject"), .name = name});
        }
        RecentProjectStore::SaveRecentProjects(projects);
        for (const int number : missing) {
            Remove(number);
        }
        const auto longAgo = fs::last_write_time(File()) - std::chrono::hours(1);
        fs::last_write_time(File(), longAgo);
        written_ = longAgo;
        content_ = Read();
    }

    void Remove(int number) const { fs::remove(sandbox_.folder().Path() / (std::to_string(number) + ".oproject")); }
    [[nodiscard]] bool IsUntouched() const { return Read() == content_ && fs::last_write_time(File()) == written_; }
    [[nodiscard]] static std::size_t Lines() {
        const std::string content = Read();
        return static_cast<std::size_t>(std::count(content.begin(), content.end(), '\n'));
    }

private:
    static fs::path File() { return RecentProjectStore::GetRecentProjectsPath(); }
    static std::string Read() {
        std::ifstream file(File(), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    const Sandbox &sandbox_;
    fs::file_time_type written_;
    std::string content_;
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
        std::size_t lines; // in the file afterwards
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
        const Sandbox sandbox;
        const ListOnDisk list(sandbox, each.count, each.missing);
        RunLauncher([&](const LauncherRun &run) { ExpectView(*run.state, each.shown); });
        EXPECT_EQ(ListOnDisk::Lines(), each.lines);
        EXPECT_EQ(list.IsUntouched(), each.lines == static_cast<std::size_t>(each.count));
    }
}

TEST(RemoveMissing, ChangesListAndFileOnlyWhereOneHasGone) {
    const Sandbox sandbox;
    const ListOnDisk list(sandbox, 20, {});
    RunLauncher([&](const LauncherRun &run) {
        const auto removeMissing = [&] {
            SendMessageW(run.window, WM_COMMAND, MAKEWPARAM(ControlId::removeMissing, BN_CLICKED),
                         reinterpret_cast<LPARAM>(run.state->removeMissingButton));
        };
        SendMessageW(run.state->recentList, LB_SETCURSEL, 3, 0);
        removeMissing();
        EXPECT_EQ(SendMessageW(run.state->recentList, LB_GETCURSEL, 0, 0), 3);
        EXPECT_TRUE(list.IsUntouched());
        list.Remove(7);
        removeMissing();
        ExpectView(*run.state, 15);
        EXPECT_EQ(ListOnDisk::Lines(), 15U); // what wasn't shown is gone with it
        for (int number = 0; number < 20; ++number) {
            list.Remove(number);
        }
        removeMissing();
        ExpectView(*run.state, 0);
        EXPECT_EQ(ListOnDisk::Lines(), 0U);
    });
}

} // namespace

} // namespace ovrin::desktop

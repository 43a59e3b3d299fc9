#include "launcher/workflows/OpenProject.h"

#include "core/recent/RecentProjectStore.h"
#include "launcher/workflows/EditorLaunch.h"
#include "launcher/workflows/ProjectPresence.h"
#include "launcher/workflows/RecentListView.h"

#include <exception>

namespace ovrin {

namespace {

constexpr LauncherMessage nothingSelected{WIDE("No Project Selected"), WIDE("Select a recent project first."),
                                          MB_ICONINFORMATION};
constexpr LauncherMessage projectMissing{WIDE("Project Missing"), WIDE("The selected project file no longer exists."),
                                         MB_ICONWARNING};

constexpr std::uint64_t keptProjects = 12; // where one was found gone

void ForgetProject(const std::filesystem::path &path, LauncherState &state) {
    try {
        RecentProjectStore::RemoveRecentProject(path, keptProjects);
        ReloadRecentProjects(state);
    } catch (const std::exception &) { // NOLINT(bugprone-empty-catch): the settings folder has gone too; the list stays
    }
}

} // namespace

bool OpenProjectFile(HWND window, const std::filesystem::path &path) {
    if (!IsProjectPresent(path)) {
        ShowLauncherMessage(window, projectMissing);
        return false;
    }
    const auto argument = EditorPathArgument(window, path);
    return argument && LaunchEditor(window, {WIDE("--project"), *argument});
}

void OpenSelectedProject(HWND window, LauncherState &state) {
    const LRESULT row = SendMessageW(state.recentList, LB_GETCURSEL, 0, 0);
    if (row == LB_ERR || static_cast<std::size_t>(row) >= state.recentProjects.size()) {
        ShowLauncherMessage(window, nothingSelected);
        return;
    }
    const std::filesystem::path path = state.recentProjects[static_cast<std::size_t>(row)].path;
    if (OpenProjectFile(window, path)) {
        DestroyWindow(window);
    } else if (!IsProjectPresent(path)) {
        ForgetProject(path, state);
    }
}

} // namespace ovrin

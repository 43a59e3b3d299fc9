#include "launcher/workflows/OpenProject.h"

#include "core/paths/FileStatus.h"
#include "launcher/workflows/EditorLaunch.h"

namespace ovrin {

namespace {

constexpr LauncherMessage nothingSelected{WIDE("No Project Selected"), WIDE("Select a recent project first."),
                                          MB_ICONINFORMATION};
constexpr LauncherMessage projectMissing{WIDE("Project Missing"), WIDE("The selected project file no longer exists."),
                                         MB_ICONWARNING};

} // namespace

bool IsProjectPresent(const std::filesystem::path &path) {
    try {
        return !path.empty() && PathExists(path);
    } catch (const std::filesystem::filesystem_error &) {
        return true;
    }
}

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
    }
}

} // namespace ovrin

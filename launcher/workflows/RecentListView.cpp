#include "launcher/workflows/RecentListView.h"

#include "core/paths/PathForm.h"
#include "core/recent/RecentProjectStore.h"
#include "launcher/FieldChrome.h"
#include "launcher/workflows/ProjectPresence.h"
#include "platform/text/NarrowPath.h"
#include "platform/text/TextConversion.h"

#include <utility>

namespace ovrin {

namespace {

constexpr std::uint64_t shownProjects = 16;

// Gives how many have gone.
std::size_t DropMissing(std::vector<RecentProject> &projects) {
    return std::erase_if(projects, [](const RecentProject &project) { return !IsProjectPresent(project.path); });
}

} // namespace

WideText RecentDisplayName(const RecentProject &project) {
    const std::filesystem::path stem = PathForm::FileNameOf(project.path).stem();
    return Utf8ToWideLenient(project.name.empty() ? NarrowFromPathLenient(stem) : project.name);
}

void RefreshRecentList(LauncherState &state) {
    SendMessageW(state.recentList, LB_RESETCONTENT, 0, 0);
    for (const RecentProject &project : state.recentProjects) {
        const WideText name = RecentDisplayName(project);
        SendMessageW(state.recentList, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    }
    const BOOL filled = state.recentProjects.empty() ? FALSE : TRUE;
    if (filled != FALSE) {
        SendMessageW(state.recentList, LB_SETCURSEL, 0, 0);
    }
    ShowWindow(state.recentList, filled != FALSE ? SW_SHOW : SW_HIDE);
    EnableWindow(state.openSelectedButton, filled);
    EnableWindow(state.removeMissingButton, filled);
    InvalidateChrome(state, state.layout.recentCardRect); // the empty-state text comes or goes
}

// A save that fails is in the log; the next start drops the same entries again.
void ReloadRecentProjects(LauncherState &state) {
    std::vector<RecentProject> projects = RecentProjectStore::LoadRecentProjects(shownProjects);
    if (DropMissing(projects) != 0) {
        RecentProjectStore::SaveRecentProjects(projects);
    }
    state.recentProjects = std::move(projects);
    RefreshRecentList(state);
}

void RemoveMissingProjects(LauncherState &state) {
    if (DropMissing(state.recentProjects) != 0) {
        RecentProjectStore::SaveRecentProjects(state.recentProjects);
        RefreshRecentList(state);
    }
}

} // namespace ovrin

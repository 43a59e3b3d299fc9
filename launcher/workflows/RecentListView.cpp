#include "launcher/workflows/RecentListView.h"

#include "launcher/FieldChrome.h"
#include "launcher/workflows/OpenProject.h"
#include "platform/text/NarrowPath.h"
#include "platform/text/TextConversion.h"

namespace ovrin {

WideText RecentDisplayName(const RecentProject &project) {
    return project.name.empty() ? WideFromPathLenient(project.path.stem()) : Utf8ToWideLenient(project.name);
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

// There is no list on disk yet: what the record holds is all there is.
void ReloadRecentProjects(LauncherState &state) {
    RefreshRecentList(state);
}

void RemoveMissingProjects(LauncherState &state) {
    const auto removed = std::erase_if(state.recentProjects,
                                       [](const RecentProject &project) { return !IsProjectPresent(project.path); });
    if (removed != 0) {
        RefreshRecentList(state);
    }
}

} // namespace ovrin

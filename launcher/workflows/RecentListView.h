// The list of recent projects in the window: which rows it shows and which of its buttons are enabled.
#pragma once

#include "launcher/LauncherState.h"
#include "platform/text/WideText.h"

namespace ovrin {

// The entry's name, or the stem of its path where it has none.
[[nodiscard]] WideText RecentDisplayName(const RecentProject &project);

// Fills the list control from `recentProjects` and selects its first row; hides it while there is none.
void RefreshRecentList(LauncherState &state);

// Loads the list anew, without the entries whose project file has gone, and shows it. The file is rewritten where one
// has gone, and not touched otherwise. Raises as LoadRecentProjects.
void ReloadRecentProjects(LauncherState &state);

// Drops the entries whose project file has gone, from the file too. Asks nothing, and changes nothing where none has.
void RemoveMissingProjects(LauncherState &state);

} // namespace ovrin

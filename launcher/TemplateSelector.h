// The template selector: a face that shows the committed template and a popup list that opens under it.
#pragma once

#include "launcher/LauncherState.h"

namespace ovrin {

// Shows the popup with the committed row selected, above its neighbours. Moves no focus.
void OpenTemplatePopup(LauncherState &state);

// Does nothing if already closed. Moves no focus of its own and keeps the committed row.
void CloseTemplatePopup(LauncherState &state);

// Takes the popup's current row, or keeps the committed one where it has none, and closes the popup.
void CommitTemplateChoice(LauncherState &state);

// Puts the shown popup in its place, in front of the controls that it overlaps.
void RaiseTemplatePopup(const LauncherState &state);

} // namespace ovrin

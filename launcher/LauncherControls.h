// The table of the eleven controls: their creation, and their placing by the layout.
#pragma once

#include "launcher/LauncherState.h"
#include "platform/text/WideText.h"

#include <array>

namespace ovrin {

struct LauncherControl {
    int id;
    HWND LauncherState::*handle;
    const WideChar *className;
    DWORD style;
    const WideChar *text;           // at creation; the location edit's is worked out at that moment
    const WideChar *cueBanner;      // null: none
    const WideChar *accessibleName; // for screen readers, where no text of its own names the control; null: none
    SUBCLASSPROC procedure;
};

// In the order of creation.
[[nodiscard]] const std::array<LauncherControl, 11> &LauncherControls();

// Creates the controls with their banners, rows, fonts and procedures, at no size. A control that doesn't come up
// leaves its handle null. Raises what DefaultProjectLocation raises.
void CreateLauncherControls(LauncherState &state);

// Computes the layout for the window's client size and moves the controls; an open popup stays open and in front.
void ApplyLauncherLayout(LauncherState &state);

} // namespace ovrin

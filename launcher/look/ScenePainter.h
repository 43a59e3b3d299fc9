// The backdrop of the window: cards, field frames and static texts, painted whole into a buffer each time.
#pragma once

#include "launcher/LauncherState.h"

namespace ovrin {

struct FieldChrome {
    RECT rect;
    bool focused;
    bool quiet;
};

// The frame of one field; its fill is the background of the edit or list that lies in it.
void DrawFieldChrome(Graphics &graphics, const FieldChrome &chrome);

// Everything that the controls lie on. The window gives the size, and its thread the focus.
void PaintScene(HWND window, const LauncherState &state, HDC dc);

// The whole of WM_PAINT. Without a state the window is only validated.
void PaintLauncherWindow(HWND window, const LauncherState *state);

} // namespace ovrin

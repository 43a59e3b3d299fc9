// What every painter shares: the fonts and brushes of the window, filled areas, rounded panels and runs of text.
#pragma once

#include "launcher/LauncherState.h"
#include "launcher/look/ControlColours.h"
#include "platform/text/WideText.h"
#include "platform/winapi/WinApi.h"

namespace ovrin {

struct UiFontRequest {
    int points; // follows the window's DPI
    LONG weight;
    WideTextView face; // cut to the 31 units that the platform takes
};

// The caller owns the font.
[[nodiscard]] UniqueFont CreateUiFont(HWND window, const UiFontRequest &request);

// Makes the four fonts and the two brushes of the state; needs its main window, for the DPI.
void CreateLauncherResources(LauncherState &state);
void ReleaseLauncherResources(LauncherState &state);

struct TextRun {
    WideTextView text;
    HFONT font;
    COLORREF colour;
    UINT format; // DrawTextW's flags
};

// The context comes out as it went in.
void DrawTextRun(HDC dc, const RECT &rect, const TextRun &run);

void FillArea(HDC dc, const RECT &rect, COLORREF colour);

// Whole pixels, without a border.
void FillBar(Graphics &graphics, const RECT &rect, COLORREF colour);

struct RoundedPanel {
    RECT rect;    // the middle of the border, which is 1 wide
    float radius; // not limited by the size
    PanelColours colours;
};
void DrawRoundedPanel(Graphics &graphics, const RoundedPanel &panel);

[[nodiscard]] RECT Inset(RECT rect, int dx, int dy);

} // namespace ovrin

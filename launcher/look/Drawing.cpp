#include "launcher/look/Drawing.h"

#include "launcher/look/Theme.h"

#include <algorithm>

namespace ovrin {

UniqueFont CreateUiFont(HWND window, const UiFontRequest &request) {
    LOGFONTW font{};
    font.lfHeight = -MulDiv(request.points, static_cast<int>(GetDpiForWindow(window)), 72);
    font.lfWeight = request.weight;
    font.lfQuality = CLEARTYPE_QUALITY;
    request.face.copy(font.lfFaceName, LF_FACESIZE - 1);
    return UniqueFont{CreateFontIndirectW(&font)};
}

void CreateLauncherResources(LauncherState &state) {
    constexpr WideTextView regular = WIDE("Segoe UI");
    constexpr WideTextView semibold = WIDE("Segoe UI Semibold");
    const HWND window = state.mainWindow;
    state.titleFont = CreateUiFont(window, {.points = 15, .weight = 600, .face = semibold});
    state.bodyFont = CreateUiFont(window, {.points = 11, .weight = 400, .face = regular});
    state.labelFont = CreateUiFont(window, {.points = 11, .weight = 600, .face = semibold});
    state.captionFont = CreateUiFont(window, {.points = 9, .weight = 400, .face = regular});
    state.editBrush.reset(CreateSolidBrush(Theme::field));
    state.listBrush.reset(CreateSolidBrush(Theme::field));
}

void ReleaseLauncherResources(LauncherState &state) {
    for (UniqueFont *font : {&state.titleFont, &state.bodyFont, &state.labelFont, &state.captionFont}) {
        font->reset();
    }
    state.editBrush.reset();
    state.listBrush.reset();
}

void DrawTextRun(HDC dc, const RECT &rect, const TextRun &run) {
    const int oldMode = SetBkMode(dc, TRANSPARENT);
    const COLORREF oldColour = SetTextColor(dc, run.colour);
    {
        const SelectionScope font{dc, run.font};
        RECT box = rect;
        DrawTextW(dc, run.text.data(), static_cast<int>(run.text.size()), &box, run.format);
    }
    SetTextColor(dc, oldColour);
    SetBkMode(dc, oldMode);
}

void FillArea(HDC dc, const RECT &rect, COLORREF colour) {
    const UniqueBrush brush{CreateSolidBrush(colour)};
    FillRect(dc, &rect, brush.get());
}

} // namespace ovrin

#include "launcher/look/Drawing.h"

#include "launcher/look/Theme.h"

#include <algorithm>

namespace ovrin {

namespace {

namespace Flat = Gdiplus::DllExports;
using Gdiplus::REAL;

struct Box {
    REAL x, y, width, height;
};

Box BoxOf(const RECT &rect) {
    return {static_cast<REAL>(rect.left), static_cast<REAL>(rect.top), static_cast<REAL>(rect.right - rect.left),
            static_cast<REAL>(rect.bottom - rect.top)};
}

UniqueFill MakeFill(Graphics &graphics, COLORREF colour) {
    return {graphics, [&](auto **made) { return Flat::GdipCreateSolidFill(ToArgb(colour), made); }};
}

// The four corners from the top left one on, clockwise; straight lines join them.
void AddRoundedFigure(Graphics &graphics, Gdiplus::GpPath *path, const Box &box, REAL radius) {
    constexpr REAL quarter = 90.0F;
    const REAL size = radius * 2.0F;
    const REAL right = box.x + box.width - size, bottom = box.y + box.height - size;
    const struct {
        REAL x, y, start;
    } corners[] = {{box.x, box.y, 180.0F}, {right, box.y, 270.0F}, {right, bottom, 0.0F}, {box.x, bottom, 90.0F}};
    for (const auto &[x, y, start] : corners) {
        graphics.Note(Flat::GdipAddPathArc(path, x, y, size, size, start, quarter));
    }
    graphics.Note(Flat::GdipClosePathFigure(path));
}

} // namespace

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

void FillBar(Graphics &graphics, const RECT &rect, COLORREF colour) {
    const Box box = BoxOf(rect);
    const UniqueFill fill = MakeFill(graphics, colour);
    graphics.Note(Flat::GdipFillRectangle(graphics.get(), fill.get(), box.x, box.y, box.width, box.height));
}

void DrawRoundedPanel(Graphics &graphics, const RoundedPanel &panel) {
    const UniquePath path{graphics, [](auto **made) { return Flat::GdipCreatePath(Gdiplus::FillModeAlternate, made); }};
    AddRoundedFigure(graphics, path.get(), BoxOf(panel.rect), panel.radius);
    const UniqueFill fill = MakeFill(graphics, panel.colours.fill);
    const UniqueOutline outline{graphics, [&](auto **made) {
                                    return Flat::GdipCreatePen1(ToArgb(panel.colours.border), 1.0F, Gdiplus::UnitWorld,
                                                                made);
                                }};
    graphics.Note(Flat::GdipFillPath(graphics.get(), fill.get(), path.get()));
    graphics.Note(Flat::GdipDrawPath(graphics.get(), outline.get(), path.get()));
}

RECT Inset(RECT rect, int dx, int dy) {
    InflateRect(&rect, -dx, -dy);
    return rect;
}

} // namespace ovrin

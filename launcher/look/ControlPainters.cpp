#include "launcher/look/ControlPainters.h"

#include "launcher/look/ControlColours.h"
#include "launcher/look/Drawing.h"
#include "launcher/look/Theme.h"
#include "launcher/workflows/ProjectTemplates.h"
#include "launcher/workflows/RecentListView.h"
#include "platform/text/NarrowPath.h"

#include <iterator>

namespace ovrin {

namespace {

constexpr float buttonRadius = 14, recentRowRadius = 12, faceRadius = 10, templateRowRadius = 9;
constexpr UINT labelFormat = DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS;

bool Has(const DRAWITEMSTRUCT &item, UINT flag) {
    return (item.itemState & flag) != 0;
}

WideText ButtonText(HWND button) {
    WideChar buffer[128]{};
    const int length = GetWindowTextW(button, buffer, static_cast<int>(std::size(buffer)));
    return WideText{buffer, static_cast<std::size_t>(length)};
}

void DrawRecentTexts(const LauncherState &state, const RecentProject &project, const DRAWITEMSTRUCT &item,
                     const RECT &row) {
    constexpr COLORREF pathOfSelected = 0xF0DFD5;
    const RECT title{row.left + 18, row.top + 10, row.right - 16, row.top + 32};
    const RECT path{row.left + 18, row.top + 35, row.right - 16, row.bottom - 10};
    const COLORREF pathColour = Has(item, ODS_SELECTED) ? pathOfSelected : Theme::mutedText;
    DrawTextRun(
        item.hDC, title,
        {RecentDisplayName(project), state.labelFont.get(), Theme::primaryText, DT_SINGLELINE | DT_END_ELLIPSIS});
    DrawTextRun(
        item.hDC, path,
        {WideFromPathLenient(project.path), state.captionFont.get(), pathColour, DT_SINGLELINE | DT_PATH_ELLIPSIS});
}

// Points down, at the right end of the face.
void DrawChevron(HDC dc, const RECT &face, COLORREF colour) {
    const LONG x = face.right - 17;
    const LONG y = face.top + (face.bottom - face.top) / 2;
    const POINT points[] = {{x - 5, y - 2}, {x, y + 4}, {x + 5, y - 2}};
    const UniquePen pen{CreatePen(PS_SOLID, 2, colour)};
    const SelectionScope selected{dc, pen.get()};
    Polyline(dc, points, static_cast<int>(std::size(points)));
}

} // namespace

void PaintActionButton(const LauncherState &state, const DRAWITEMSTRUCT *item) {
    if (item == nullptr) {
        return;
    }
    const int id = static_cast<int>(item->CtlID);
    const ButtonColours colours = ColoursOfButton(id, {.hovered = state.hoveredControl == item->hwndItem,
                                                       .pressed = Has(*item, ODS_SELECTED),
                                                       .focused = Has(*item, ODS_FOCUS),
                                                       .disabled = Has(*item, ODS_DISABLED)});
    const RECT inner = Inset(item->rcItem, 1, 1);
    const WideText text = ButtonText(item->hwndItem);
    FillArea(item->hDC, item->rcItem, CardBehindButton(id));
    Graphics graphics{item->hDC};
    DrawRoundedPanel(graphics, {inner, buttonRadius, colours.panel});
    DrawTextRun(item->hDC, inner, {text, state.labelFont.get(), colours.text, DT_CENTER | DT_VCENTER | DT_SINGLELINE});
}

void PaintRecentRow(const LauncherState &state, const DRAWITEMSTRUCT *item) {
    if (item == nullptr || item->itemID >= state.recentProjects.size()) {
        return;
    }
    const RECT row = Inset(item->rcItem, 4, 4);
    FillArea(item->hDC, item->rcItem, Theme::field);
    Graphics graphics{item->hDC};
    DrawRoundedPanel(
        graphics, {row, recentRowRadius, ColoursOfRow(item->itemID, Has(*item, ODS_SELECTED), Has(*item, ODS_FOCUS))});
    DrawRecentTexts(state, state.recentProjects[item->itemID], *item, row);
    if (Has(*item, ODS_FOCUS)) {
        const RECT focus = Inset(row, 8, 4);
        DrawFocusRect(item->hDC, &focus);
    }
}

void PaintTemplateRow(const LauncherState &state, const DRAWITEMSTRUCT *item) {
    if (item == nullptr) {
        return;
    }
    FillArea(item->hDC, item->rcItem, Theme::field);
    if (item->itemID >= projectTemplates.size()) {
        return;
    }
    constexpr COLORREF textOfSelected = 0xF8F2EE;
    const bool selected = Has(*item, ODS_SELECTED);
    const RECT row = Inset(item->rcItem, 5, 4);
    Graphics graphics{item->hDC};
    DrawRoundedPanel(graphics, {row, templateRowRadius, ColoursOfRow(item->itemID, selected, Has(*item, ODS_FOCUS))});
    DrawTextRun(item->hDC, Inset(row, 14, 0),
                {projectTemplates[item->itemID].label, state.labelFont.get(),
                 selected ? textOfSelected : Theme::primaryText, labelFormat});
}

void PaintTemplateFace(const LauncherState &state, const DRAWITEMSTRUCT *item) {
    if (item == nullptr) {
        return;
    }
    const RECT &face = item->rcItem;
    const PanelColours colours = ColoursOfFace({.hovered = state.hoveredControl == item->hwndItem,
                                                .pressed = Has(*item, ODS_SELECTED),
                                                .focused = Has(*item, ODS_FOCUS),
                                                .popupOpen = state.templatePopupOpen});
    FillArea(item->hDC, face, Theme::field);
    Graphics graphics{item->hDC};
    // On the whole item: the right and the lower border fall outside.
    DrawRoundedPanel(graphics, {face, faceRadius, colours});
    DrawTextRun(item->hDC, {face.left + 10, face.top, face.right - 32, face.bottom},
                {GetTemplateLabel(state.selectedTemplate), state.labelFont.get(), Theme::primaryText, labelFormat});
    DrawChevron(item->hDC, face, ChevronColour(state.templatePopupOpen));
}

} // namespace ovrin

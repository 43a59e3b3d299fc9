#include "launcher/look/ControlPainters.h"

#include "launcher/look/Drawing.h"
#include "launcher/look/Theme.h"
#include "launcher/workflows/ProjectTemplates.h"
#include "launcher/workflows/RecentListView.h"

namespace ovrin {

namespace {

constexpr UINT rowText = DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS;

COLORREF TextColour(const DRAWITEMSTRUCT &item) {
    return (item.itemState & ODS_DISABLED) != 0 ? Theme::faintText : Theme::primaryText;
}

RECT Inset(RECT rect, int dx, int dy) {
    InflateRect(&rect, -dx, -dy);
    return rect;
}

WideText ButtonText(HWND button) {
    WideChar buffer[128]{};
    const int length = GetWindowTextW(button, buffer, static_cast<int>(std::size(buffer)));
    return WideText{buffer, static_cast<std::size_t>(length)};
}

} // namespace

void PaintActionButton(const LauncherState &state, const DRAWITEMSTRUCT *item) {
    if (item == nullptr) {
        return;
    }
    const WideText text = ButtonText(item->hwndItem);
    FillArea(item->hDC, item->rcItem, Theme::field);
    DrawTextRun(item->hDC, Inset(item->rcItem, 1, 1),
                {text, state.labelFont.get(), TextColour(*item), DT_CENTER | DT_VCENTER | DT_SINGLELINE});
}

void PaintRecentRow(const LauncherState &state, const DRAWITEMSTRUCT *item) {
    if (item == nullptr || item->itemID >= state.recentProjects.size()) {
        return;
    }
    const WideText text = RecentDisplayName(state.recentProjects[item->itemID]);
    FillArea(item->hDC, item->rcItem, (item->itemState & ODS_SELECTED) != 0 ? Theme::newProjectCard : Theme::field);
    DrawTextRun(item->hDC, Inset(item->rcItem, 18, 10), {text, state.labelFont.get(), TextColour(*item), rowText});
}

void PaintTemplateRow(const LauncherState &state, const DRAWITEMSTRUCT *item) {
    if (item == nullptr) {
        return;
    }
    const bool selected = (item->itemState & ODS_SELECTED) != 0;
    FillArea(item->hDC, item->rcItem, selected ? Theme::newProjectCard : Theme::field);
    if (item->itemID >= projectTemplates.size()) {
        return;
    }
    DrawTextRun(item->hDC, Inset(item->rcItem, 19, 4),
                {projectTemplates[item->itemID].label, state.labelFont.get(), Theme::primaryText, rowText});
}

void PaintTemplateFace(const LauncherState &state, const DRAWITEMSTRUCT *item) {
    if (item == nullptr) {
        return;
    }
    FillArea(item->hDC, item->rcItem, Theme::field);
    DrawTextRun(item->hDC, Inset(item->rcItem, 10, 0),
                {GetTemplateLabel(state.selectedTemplate), state.labelFont.get(), Theme::primaryText, rowText});
}

} // namespace ovrin

#include "launcher/TemplateSelector.h"

#include "launcher/FieldChrome.h"
#include "launcher/workflows/ProjectTemplates.h"

namespace ovrin {

void OpenTemplatePopup(LauncherState &state) {
    state.templatePopupOpen = true;
    SendMessageW(state.templatePopup, LB_SETCURSEL, static_cast<WPARAM>(state.selectedTemplate), 0);
    ShowWindow(state.templatePopup, SW_SHOWNA);
    RaiseTemplatePopup(state);
    InvalidateFieldChrome(state, state.templatePopup);
    RedrawWindow(state.templatePopup, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void CloseTemplatePopup(LauncherState &state) {
    if (!state.templatePopupOpen) {
        return;
    }
    state.templatePopupOpen = false;
    ShowWindow(state.templatePopup, SW_HIDE);
    InvalidateFieldChrome(state, state.templatePopup);
}

void CommitTemplateChoice(LauncherState &state) {
    const LRESULT row = SendMessageW(state.templatePopup, LB_GETCURSEL, 0, 0);
    state.selectedTemplate = ClampTemplateRow(row == LB_ERR ? state.selectedTemplate : static_cast<std::int32_t>(row));
    SendMessageW(state.templatePopup, LB_SETCURSEL, static_cast<WPARAM>(state.selectedTemplate), 0);
    CloseTemplatePopup(state);
    InvalidateRect(state.templateButton, nullptr, TRUE);
}

void RaiseTemplatePopup(const LauncherState &state) {
    const RECT &rect = state.layout.templatePopupRect;
    SetWindowPos(state.templatePopup, HWND_TOP, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                 SWP_SHOWWINDOW | SWP_NOACTIVATE);
    BringWindowToTop(state.templatePopup);
}

} // namespace ovrin

#include "launcher/ControlProcedures.h"

#include "launcher/FieldChrome.h"
#include "launcher/LauncherState.h"
#include "launcher/TemplateSelector.h"

namespace ovrin {

namespace {

LauncherState &StateFrom(DWORD_PTR data) {
    return *reinterpret_cast<LauncherState *>(data); // NOLINT(performance-no-int-to-ptr): the platform's form
}

void OnButtonMouseMove(LauncherState &state, HWND button) {
    if (state.hoveredControl == button) {
        return;
    }
    state.hoveredControl = button;
    TRACKMOUSEEVENT leave{};
    leave.cbSize = sizeof(leave);
    leave.dwFlags = TME_LEAVE;
    leave.hwndTrack = button;
    TrackMouseEvent(&leave);
    InvalidateRect(button, nullptr, TRUE);
}

void OnButtonMouseLeave(LauncherState &state, HWND button) {
    if (state.hoveredControl == button) {
        state.hoveredControl = nullptr;
        InvalidateRect(button, nullptr, TRUE);
    }
}

// The face and the popup are one selector: the focus may pass between them while it is open.
void OnControlSetFocus(LauncherState &state, HWND control, HWND partOfSelector) {
    if (control != partOfSelector) {
        CloseTemplatePopup(state);
    }
    InvalidateFieldChrome(state, control);
}

// A key command of an input is exactly a click on the button that stands for it.
void ClickButton(const LauncherState &state, int id, HWND button) {
    SendMessageW(state.mainWindow, WM_COMMAND, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(button));
}

void OnReturn(LauncherState &state, HWND control) {
    if (control == state.templatePopup) {
        CommitTemplateChoice(state);
        SetFocus(state.templateButton);
    } else if (control == state.recentList) {
        ClickButton(state, ControlId::openSelected, state.openSelectedButton);
    } else {
        ClickButton(state, ControlId::createProject, state.createButton);
    }
}

// True if the key has been dealt with. By then the window may be gone.
bool OnInputKeyDown(LauncherState &state, HWND control, WPARAM key) {
    if (key == VK_RETURN) {
        OnReturn(state, control);
        return true;
    }
    if (key == VK_ESCAPE && control == state.templatePopup) {
        CloseTemplatePopup(state);
        SetFocus(state.templateButton);
        return true;
    }
    return false;
}

} // namespace

LRESULT CALLBACK ButtonSubclassProc(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR /*id*/,
                                    DWORD_PTR data) noexcept {
    LauncherState &state = StateFrom(data);
    switch (message) {
    case WM_MOUSEMOVE: OnButtonMouseMove(state, control); break;
    case WM_MOUSELEAVE: OnButtonMouseLeave(state, control); break;
    case WM_SETFOCUS: OnControlSetFocus(state, control, state.templateButton); break;
    case WM_KILLFOCUS: InvalidateFieldChrome(state, control); break;
    default: break;
    }
    return DefSubclassProc(control, message, wParam, lParam);
}

LRESULT CALLBACK InputSubclassProc(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR /*id*/,
                                   DWORD_PTR data) noexcept {
    LauncherState &state = StateFrom(data);
    switch (message) {
    case WM_SETFOCUS: OnControlSetFocus(state, control, state.templatePopup); break;
    case WM_KILLFOCUS: InvalidateFieldChrome(state, control); break;
    case WM_KEYDOWN:
        if (OnInputKeyDown(state, control, wParam)) {
            return 0;
        }
        break;
    default: break;
    }
    return DefSubclassProc(control, message, wParam, lParam);
}

} // namespace ovrin

#include "launcher/FieldChrome.h"

namespace ovrin {

void InvalidateChrome(const LauncherState &state, RECT rect) {
    InflateRect(&rect, 4, 4);
    InvalidateRect(state.mainWindow, &rect, FALSE);
}

void InvalidateFieldChrome(const LauncherState &state, HWND control) {
    if (control == nullptr) {
        return;
    }
    const LauncherLayout &layout = state.layout;
    if (control == state.projectNameEdit) {
        InvalidateChrome(state, layout.nameFieldRect);
    } else if (control == state.templateButton) {
        InvalidateChrome(state, layout.templateFieldRect);
    } else if (control == state.templatePopup) {
        InvalidateChrome(state, layout.templateFieldRect);
        InvalidateChrome(state, layout.templatePopupRect);
    } else if (control == state.locationEdit) {
        InvalidateChrome(state, layout.locationFieldRect);
    } else if (control == state.recentList) {
        InvalidateChrome(state, layout.recentFrameRect);
    }
}

} // namespace ovrin

#include "launcher/LauncherWindow.h"

#include "launcher/CommandRouting.h"
#include "launcher/LauncherControls.h"
#include "launcher/LauncherState.h"
#include "launcher/TemplateSelector.h"
#include "launcher/look/ControlPainters.h"
#include "launcher/look/Drawing.h"
#include "launcher/look/ScenePainter.h"
#include "launcher/look/Theme.h"
#include "launcher/workflows/RecentListView.h"

#include <exception>

namespace ovrin {

namespace {

constexpr POINT minimumOuterSize{1100, 760};
constexpr UINT rowHeightBeforeLayout = LauncherLayout{}.recentRowHeight;

LauncherState *StateOf(HWND window) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the platform keeps the pointer as a number
    return reinterpret_cast<LauncherState *>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

// Default handling follows: the title given at creation takes effect there.
LRESULT OnNcCreate(HWND window, WPARAM wParam, LPARAM lParam) {
    const auto *creation = reinterpret_cast<const CREATESTRUCTW *>(lParam);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    DefWindowProcW(window, WM_NCCREATE, wParam, lParam);
    return TRUE;
}

LRESULT OnNcDestroy(HWND window, WPARAM wParam, LPARAM lParam) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    return DefWindowProcW(window, WM_NCDESTROY, wParam, lParam);
}

// Systems without these attributes keep their default look.
void DressFrame(HWND window) {
    const BOOL dark = TRUE;
    DwmSetWindowAttribute(window, DWMWA_USE_IMMERSIVE_DARK_MODE, &dark, sizeof(dark));
    const int corners = DWMWCP_ROUND;
    DwmSetWindowAttribute(window, DWMWA_WINDOW_CORNER_PREFERENCE, &corners, sizeof(corners));
}

void BuildWindow(HWND window, LauncherState &state) {
    state.mainWindow = window;
    DressFrame(window);
    CreateLauncherResources(state);
    CreateLauncherControls(state);
    ApplyLauncherLayout(state);
    ReloadRecentProjects(state);
}

// A launcher that can't find its own folders has no way on: the creation fails and the entry reports it.
LRESULT OnCreate(HWND window, LauncherState *state) {
    if (state == nullptr) {
        return -1;
    }
    try {
        BuildWindow(window, *state);
        return 0;
    } catch (const std::exception &) {
        return -1;
    }
}

LRESULT OnDestroy(LauncherState *state) {
    if (state != nullptr) {
        ReleaseLauncherResources(*state);
    }
    PostQuitMessage(0);
    return 0;
}

LRESULT OnSize(HWND window, LauncherState *state) {
    if (state != nullptr && state->mainWindow != nullptr) {
        ApplyLauncherLayout(*state);
        RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    }
    return 0;
}

LRESULT OnActivateApp(HWND window, LauncherState *state, WPARAM wParam, LPARAM lParam) {
    if (state != nullptr && wParam == 0) {
        CloseTemplatePopup(*state);
    }
    return DefWindowProcW(window, WM_ACTIVATEAPP, wParam, lParam);
}

LRESULT OnGetMinMaxInfo(LPARAM lParam) {
    reinterpret_cast<MINMAXINFO *>(lParam)->ptMinTrackSize = minimumOuterSize;
    return 0;
}

LRESULT OnDrawItem(const LauncherState *state, const DRAWITEMSTRUCT *item) {
    if (state == nullptr || item == nullptr) {
        return 0;
    }
    switch (item->CtlID) {
    case ControlId::recentList: PaintRecentRow(*state, item); break;
    case ControlId::templateFace: PaintTemplateFace(*state, item); break;
    case ControlId::templatePopup: PaintTemplateRow(*state, item); break;
    default: PaintActionButton(*state, item); break;
    }
    return 1;
}

// Asked while the lists are created, before the first layout.
LRESULT OnMeasureItem(HWND window, const LauncherState *state, WPARAM wParam, LPARAM lParam) {
    auto *item = reinterpret_cast<MEASUREITEMSTRUCT *>(lParam);
    if (item != nullptr && item->CtlID == ControlId::recentList) {
        item->itemHeight = state != nullptr ? static_cast<UINT>(state->layout.recentRowHeight) : rowHeightBeforeLayout;
        return 1;
    }
    if (item != nullptr && item->CtlID == ControlId::templatePopup) {
        item->itemHeight = templateRowHeight;
        return 1;
    }
    return DefWindowProcW(window, WM_MEASUREITEM, wParam, lParam);
}

LRESULT OnCommand(HWND window, LauncherState *state, WPARAM wParam) {
    if (state != nullptr) {
        RouteCommand(window, *state, LOWORD(wParam), HIWORD(wParam));
    }
    return 0;
}

LRESULT OnControlColour(WPARAM wParam, const LauncherState *state, UniqueBrush LauncherState::*brush) {
    const auto dc = reinterpret_cast<HDC>(wParam); // NOLINT(performance-no-int-to-ptr): the platform's form
    SetTextColor(dc, Theme::primaryText);
    SetBkColor(dc, Theme::field);
    return reinterpret_cast<LRESULT>(state != nullptr ? (state->*brush).get() : GetStockObject(BLACK_BRUSH));
}

// The margins between the selector's frame and its face belong to the main window but not to the outside.
LRESULT OnLeftButtonDown(HWND window, LauncherState *state, WPARAM wParam, LPARAM lParam) {
    if (state != nullptr && state->templatePopupOpen) {
        const auto packed = static_cast<DWORD_PTR>(lParam);
        const POINT point{static_cast<SHORT>(LOWORD(packed)), static_cast<SHORT>(HIWORD(packed))};
        if (PtInRect(&state->layout.templateFieldRect, point) == 0 &&
            PtInRect(&state->layout.templatePopupRect, point) == 0) {
            CloseTemplatePopup(*state);
        }
    }
    return DefWindowProcW(window, WM_LBUTTONDOWN, wParam, lParam);
}

LRESULT OnPaint(HWND window, const LauncherState *state) {
    PaintLauncherWindow(window, state);
    return 0;
}

LRESULT OnClose(HWND window) {
    DestroyWindow(window);
    return 0;
}

} // namespace

LRESULT CALLBACK LauncherWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    LauncherState *state = StateOf(window);
    switch (message) {
    case WM_NCCREATE: return OnNcCreate(window, wParam, lParam);
    case WM_CREATE: return OnCreate(window, state);
    case WM_DESTROY: return OnDestroy(state);
    case WM_NCDESTROY: return OnNcDestroy(window, wParam, lParam);
    case WM_SIZE: return OnSize(window, state);
    case WM_PAINT: return OnPaint(window, state);
    case WM_CLOSE: return OnClose(window);
    case WM_ERASEBKGND: return 1;
    case WM_ACTIVATEAPP: return OnActivateApp(window, state, wParam, lParam);
    case WM_GETMINMAXINFO: return OnGetMinMaxInfo(lParam);
    case WM_DRAWITEM: return OnDrawItem(state, reinterpret_cast<const DRAWITEMSTRUCT *>(lParam));
    case WM_MEASUREITEM: return OnMeasureItem(window, state, wParam, lParam);
    case WM_COMMAND: return OnCommand(window, state, wParam);
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC: return OnControlColour(wParam, state, &LauncherState::editBrush);
    case WM_CTLCOLORLISTBOX: return OnControlColour(wParam, state, &LauncherState::listBrush);
    case WM_LBUTTONDOWN: return OnLeftButtonDown(window, state, wParam, lParam);
    default: return DefWindowProcW(window, message, wParam, lParam);
    }
}

} // namespace ovrin

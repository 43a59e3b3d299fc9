// Creation, end, place and visibility of windows. Three control classes and registered top-level classes. Not here:
// extended styles, owners, nested children, z-order other than to the top.
#include "platform/winapi/qt/Accessibility.h"
#include "platform/winapi/qt/ButtonControl.h"
#include "platform/winapi/qt/EditControl.h"
#include "platform/winapi/qt/ListBoxControl.h"
#include "platform/winapi/qt/TopLevelWindow.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cassert>
#include <string_view>

using ovrin::layer::HostOf;
using ovrin::layer::TopLevelWindow;
using ovrin::layer::WindowHost;

namespace {

constexpr UINT dotsPerInch = 96;

struct Place {
    int x;
    int y;
    int width;
    int height;
};

// The platform takes a negative extent for none.
QRect RectOf(const Place &place) {
    return {place.x, place.y, std::max(0, place.width), std::max(0, place.height)};
}

WindowHost *NewControl(std::u16string_view className, const WindowHost::Facts &facts, QWidget *parent) {
    if (className == u"EDIT") {
        return new ovrin::layer::EditControl(facts, parent);
    }
    if (className == u"BUTTON") {
        return new ovrin::layer::ButtonControl(facts, parent);
    }
    return className == u"LISTBOX" ? new ovrin::layer::ListBoxControl(facts, parent) : nullptr;
}

HWND CreateControl(LPCWSTR className, LPCWSTR text, const WindowHost::Facts &facts, const Place &place) {
    WindowHost *parent = HostOf(facts.parent);
    WindowHost *control = parent == nullptr ? nullptr : NewControl(className, facts, &parent->Widget());
    if (control == nullptr) {
        return nullptr;
    }
    QWidget &widget = control->Widget();
    const QSignalBlocker unannounced(widget); // the first text is no change
    SetWindowTextW(control->handle(), text);
    widget.setGeometry(RectOf(place));
    widget.setEnabled((facts.style & WS_DISABLED) == 0);
    widget.setVisible((facts.style & WS_VISIBLE) != 0);
    ovrin::layer::InstallAccessibility();
    return control->handle();
}

void EndWidget(WindowHost &host) {
    host.Send(WM_NCDESTROY, 0, 0);
    host.GiveUpHandle();
    host.Widget().hide();
    host.Widget().deleteLater(); // it may be inside an event handler of its own
}

bool AnnounceCreation(TopLevelWindow &window, CREATESTRUCTW &creation) {
    MINMAXINFO limits{};
    window.Send(WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    if (window.Send(WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&creation)) == FALSE) {
        EndWidget(window);
        return false;
    }
    if (window.Send(WM_CREATE, 0, reinterpret_cast<LPARAM>(&creation)) == -1) {
        DestroyWindow(window.handle());
        return false;
    }
    return window.handle() != nullptr;
}

HWND CreateTopLevel(CREATESTRUCTW &creation) {
    const auto *windowClass = ovrin::layer::FindWindowClass(creation.lpszClass);
    if (windowClass == nullptr) {
        return nullptr;
    }
    const WindowHost::Facts facts{nullptr, 0, static_cast<DWORD>(creation.style)};
    const QRect place = RectOf({creation.x, creation.y, creation.cx, creation.cy});
    auto *window = new TopLevelWindow(facts, *windowClass, place);
    return AnnounceCreation(*window, creation) ? window->handle() : nullptr;
}

std::vector<WindowHost *> ChildrenOf(HWND window) {
    auto children = ovrin::layer::AllHosts();
    std::erase_if(children, [&](const WindowHost *host) { return host->facts().parent != window; });
    return children;
}

void ShowTopLevel(TopLevelWindow &window, int command) {
    switch (command) {
    case SW_HIDE: window.hide(); break;
    case SW_MINIMIZE: window.showMinimized(); break;
    case SW_RESTORE: window.showNormal(); break;
    default: window.ShowAndWait(); break;
    }
}

void ShowControl(WindowHost &control, int command) {
    if (command == SW_HIDE) {
        ovrin::layer::PassFocusToParent(control);
    }
    control.Widget().setVisible(command != SW_HIDE);
}

} // namespace

HWND CreateWindowExW([[maybe_unused]] DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x, int y,
                     int width, int height, HWND parent, HMENU menuOrId, HINSTANCE instance, void *parameter) {
    assert(exStyle == 0);
    if ((style & WS_CHILD) != 0) {
        const auto id = static_cast<int>(reinterpret_cast<INT_PTR>(menuOrId));
        return CreateControl(className, title, {parent, id, style}, {x, y, width, height});
    }
    CREATESTRUCTW creation{parameter, instance,  menuOrId, parent, height, width, y, x, static_cast<LONG>(style),
                           title,     className, exStyle};
    return CreateTopLevel(creation);
}

BOOL DestroyWindow(HWND window) {
    WindowHost *host = HostOf(window);
    if (host == nullptr) {
        return FALSE;
    }
    const auto children = ChildrenOf(window);
    for (WindowHost *child : children) {
        child->tracksLeave = false; // the mouse doesn't leave what is no more
    }
    ovrin::layer::PassFocusToParent(*host);
    host->Widget().hide(); // the activation and the focus go first
    host->Send(WM_DESTROY, 0, 0);
    for (WindowHost *child : children) {
        child->Send(WM_DESTROY, 0, 0);
    }
    for (WindowHost *child : children) {
        child->Send(WM_NCDESTROY, 0, 0);
        child->GiveUpHandle();
    }
    EndWidget(*host);
    return TRUE;
}

BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL /*repaint*/) {
    auto *host = HostOf(window);
    if (host == nullptr) {
        return FALSE;
    }
    host->Widget().setGeometry(RectOf({x, y, width, height}));
    return TRUE;
}

BOOL SetWindowPos(HWND window, [[maybe_unused]] HWND after, int x, int y, int width, int height, UINT flags) {
    assert(after == HWND_TOP && (flags & SWP_NOACTIVATE) != 0);
    if (MoveWindow(window, x, y, width, height, TRUE) == FALSE) {
        return FALSE;
    }
    if ((flags & SWP_SHOWWINDOW) != 0) {
        ShowWindow(window, SW_SHOWNA);
    }
    return BringWindowToTop(window);
}

BOOL BringWindowToTop(HWND window) {
    auto *host = HostOf(window);
    if (host == nullptr) {
        return FALSE;
    }
    host->Widget().raise();
    return TRUE;
}

BOOL ShowWindow(HWND window, int command) {
    auto *host = HostOf(window);
    if (host == nullptr) {
        return FALSE;
    }
    const BOOL wasVisible = IsWindowVisible(window);
    if (auto *topLevel = dynamic_cast<TopLevelWindow *>(host)) {
        ShowTopLevel(*topLevel, command);
    } else {
        ShowControl(*host, command);
    }
    return wasVisible;
}

BOOL IsWindowVisible(HWND window) {
    auto *host = HostOf(window);
    return host != nullptr && host->Widget().isVisible() ? TRUE : FALSE;
}

BOOL GetClientRect(HWND window, RECT *rect) {
    auto *host = HostOf(window);
    if (host == nullptr) {
        return FALSE;
    }
    const auto *topLevel = dynamic_cast<TopLevelWindow *>(host);
    const QSize size = topLevel != nullptr ? topLevel->ClientSize() : host->Widget().size();
    *rect = {0, 0, size.width(), size.height()};
    return TRUE;
}

BOOL AdjustWindowRect(RECT * /*rect*/, DWORD /*style*/, BOOL /*menu*/) {
    return TRUE;
}

int GetSystemMetrics(int index) {
    assert(index == SM_CXSCREEN || index == SM_CYSCREEN);
    const QSize screen = QGuiApplication::primaryScreen()->size();
    return index == SM_CXSCREEN ? screen.width() : screen.height();
}

UINT GetDpiForWindow(HWND /*window*/) {
    return dotsPerInch;
}

HRESULT DwmSetWindowAttribute(HWND /*window*/, DWORD /*attribute*/, const void * /*value*/, DWORD /*size*/) {
    return E_NOTIMPL;
}

BOOL InitCommonControlsEx(const INITCOMMONCONTROLSEX *classes) {
    return classes->dwSize == sizeof(INITCOMMONCONTROLSEX) ? TRUE : FALSE;
}

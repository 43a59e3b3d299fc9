// Focus, enabling and the watch for a leaving mouse. The toolkit tells both sides of a change: the loser first, and
// GetFocus answers the winner by then. Not here: capture, which the toolkit keeps with the pressed widget.
#include "platform/winapi/qt/Focus.h"

#include "platform/winapi/qt/WindowHost.h"

#include <QApplication>
#include <QWidget>

#include <cassert>

namespace ovrin::layer {

void PassFocusToParent(WindowHost &host) {
    if (host.handle() != nullptr && GetFocus() == host.handle() && host.facts().parent != nullptr) {
        SetFocus(host.facts().parent);
    }
}

} // namespace ovrin::layer

using ovrin::layer::HostOf;

HWND SetFocus(HWND window) {
    const HWND old = GetFocus();
    auto *host = HostOf(window);
    if (host != nullptr && host->Widget().isEnabled()) {
        host->Widget().setFocus(Qt::OtherFocusReason);
    }
    return old;
}

HWND GetFocus() {
    const auto *host = HostOf(QApplication::focusWidget());
    return host == nullptr ? nullptr : host->handle();
}

HWND GetActiveWindow() {
    const auto *host = HostOf(QApplication::activeWindow());
    return host == nullptr ? nullptr : host->handle();
}

// Another program's window has no handle here.
HWND GetForegroundWindow() {
    return GetActiveWindow();
}

BOOL EnableWindow(HWND window, BOOL enable) {
    auto *host = HostOf(window);
    if (host == nullptr) {
        return FALSE;
    }
    const BOOL wasDisabled = IsWindowEnabled(window) != FALSE ? FALSE : TRUE;
    if (enable == FALSE) {
        ovrin::layer::PassFocusToParent(*host);
    }
    host->Widget().setEnabled(enable != FALSE);
    return wasDisabled;
}

BOOL IsWindowEnabled(HWND window) {
    auto *host = HostOf(window);
    return host != nullptr && host->Widget().isEnabled() ? TRUE : FALSE;
}

BOOL TrackMouseEvent(TRACKMOUSEEVENT *event) {
    assert(event != nullptr && event->cbSize == sizeof(TRACKMOUSEEVENT) && event->dwFlags == TME_LEAVE);
    auto *host = HostOf(event->hwndTrack);
    if (host == nullptr) {
        return FALSE;
    }
    host->tracksLeave = true;
    return TRUE;
}

// Paints and what asks for them. A paint covers the widget; the toolkit clips it to what has been invalidated. Not
// here: update regions, erasing, painting outside a paint.
#include "platform/winapi/qt/DeviceContext.h"
#include "platform/winapi/qt/WindowHost.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <cassert>
#include <map>
#include <memory>

using ovrin::layer::ContextScope;
using ovrin::layer::HostOf;

namespace {

// From BeginPaint to EndPaint.
std::map<HWND, std::unique_ptr<ContextScope>> &OpenPaints() {
    static std::map<HWND, std::unique_ptr<ContextScope>> paints;
    return paints;
}

} // namespace

HDC BeginPaint(HWND window, PAINTSTRUCT *paint) {
    auto *host = HostOf(window);
    *paint = {};
    if (host == nullptr || host->activePainter == nullptr) {
        assert(host == nullptr && "a paint begins inside WM_PAINT only");
        return nullptr;
    }
    auto &open = OpenPaints()[window];
    open = std::make_unique<ContextScope>(*host->activePainter);
    paint->hdc = open->dc();
    paint->rcPaint = {0, 0, host->Widget().width(), host->Widget().height()};
    return paint->hdc;
}

BOOL EndPaint(HWND window, const PAINTSTRUCT * /*paint*/) {
    OpenPaints().erase(window);
    return TRUE;
}

BOOL InvalidateRect(HWND window, const RECT *rect, BOOL /*erase*/) {
    auto *host = HostOf(window);
    if (host == nullptr) {
        return FALSE;
    }
    if (rect == nullptr) {
        host->Widget().update();
    } else {
        host->Widget().update(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top);
    }
    return TRUE;
}

BOOL UpdateWindow(HWND window) {
    auto *host = HostOf(window);
    if (host == nullptr) {
        return FALSE;
    }
    QCoreApplication::sendPostedEvents(host->Widget().window(), QEvent::UpdateRequest);
    return TRUE;
}

BOOL RedrawWindow(HWND window, [[maybe_unused]] const RECT *rect, [[maybe_unused]] HRGN region,
                  [[maybe_unused]] UINT flags) {
    assert(rect == nullptr && region == nullptr);
    assert(flags == (RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN));
    auto *host = HostOf(window);
    if (host == nullptr) {
        return FALSE;
    }
    for (auto *other : ovrin::layer::AllHosts()) {
        if (other->facts().parent == window) {
            other->Widget().update();
        }
    }
    host->Widget().repaint();
    return TRUE;
}

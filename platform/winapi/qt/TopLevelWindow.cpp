// The window with a frame: activation, minimise and restore, closing, the first exposure. Fixed size, one class
// procedure. Not here: resizing and maximising by the user, menus, non-client messages beyond creation and end.
#include "platform/winapi/qt/TopLevelWindow.h"

#include "platform/winapi/qt/Icons.h"
#include "platform/winapi/qt/MessageLoop.h"

#include <QApplication>
#include <QCloseEvent>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <deque>

namespace ovrin::layer {

namespace {

// A class lasts as long as the process; a deque keeps its address.
std::deque<WindowClass> &Classes() {
    static std::deque<WindowClass> classes;
    return classes;
}

constexpr Qt::WindowFlags frameOfFixedSize = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                             Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                                             Qt::WindowCloseButtonHint;

} // namespace

const WindowClass *FindWindowClass(LPCWSTR name) {
    const auto &classes = Classes();
    const auto found =
        std::find_if(classes.begin(), classes.end(), [&](const WindowClass &entry) { return entry.name == name; });
    return found == classes.end() ? nullptr : &*found;
}

TopLevelWindow::TopLevelWindow(const Facts &facts, const WindowClass &windowClass, const QRect &place)
    : MessageSource(facts, nullptr), class_(windowClass) {
    setWindowFlags(frameOfFixedSize);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
    move(QGuiApplication::primaryScreen()->geometry().topLeft() + place.topLeft());
    setFixedSize(place.size());
    setFocus();
    QObject::connect(qApp, &QGuiApplication::applicationStateChanged, this,
                     [this](Qt::ApplicationState state) { TellActive(state == Qt::ApplicationActive); });
}

QSize TopLevelWindow::ClientSize() const {
    return isMinimized() ? QSize(0, 0) : size();
}

void TopLevelWindow::ShowAndWait() {
    show();
    raise();
    activateWindow();
    WaitForExposure(*windowHandle());
    if (!std::exchange(shownBefore_, true)) {
        setWindowIcon(IconOf(class_.icon)); // seven pictures to read: the window is seen first
        TellSize();
    }
}

void TopLevelWindow::TellSize() {
    const QSize client = ClientSize();
    Send(WM_SIZE, isMinimized() ? SIZE_MINIMIZED : SIZE_RESTORED,
         MAKELPARAM(static_cast<DWORD_PTR>(client.width()), static_cast<DWORD_PTR>(client.height())));
}

LRESULT TopLevelWindow::Procedure(UINT message, WPARAM wParam, LPARAM lParam) {
    return class_.procedure(handle(), message, wParam, lParam);
}

bool TopLevelWindow::event(QEvent *event) {
    const bool result = QWidget::event(event);
    if (event->type() == QEvent::WindowActivate) {
        TellActive(true);
    } else if (event->type() == QEvent::WindowDeactivate) {
        OnDeactivated();
    }
    return result;
}

// A window that comes back has the focus itself, whichever control had it before.
void TopLevelWindow::OnDeactivated() {
    if (QApplication::activeWindow() == nullptr && QApplication::activeModalWidget() == nullptr) {
        TellActive(false);
    }
    setFocus();
}

void TopLevelWindow::TellActive(bool active) {
    if (std::exchange(active_, active) != active) {
        Send(WM_ACTIVATEAPP, active ? TRUE : FALSE, 0);
    }
}

// The class asks for no double clicks: the second press is a press.
void TopLevelWindow::mouseDoubleClickEvent(QMouseEvent *event) {
    mousePressEvent(event);
}

void TopLevelWindow::paintEvent(QPaintEvent * /*event*/) {
    PaintBy(WM_PAINT);
}

void TopLevelWindow::closeEvent(QCloseEvent *event) {
    event->ignore(); // the procedure decides
    Send(WM_CLOSE, 0, 0);
}

// The size is fixed for the user; some window managers choose it all the same.
void TopLevelWindow::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    if (shownBefore_) {
        TellSize();
    }
}

// The toolkit doesn't resize a minimised window; the platform tells its zero client all the same.
void TopLevelWindow::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange) {
        return;
    }
    const auto *change = static_cast<QWindowStateChangeEvent *>(event);
    if (change->oldState().testFlag(Qt::WindowMinimized) != isMinimized()) {
        TellSize();
    }
}

} // namespace ovrin::layer

ATOM RegisterClassExW(const WNDCLASSEXW *windowClass) {
    if (windowClass->cbSize != sizeof(WNDCLASSEXW) || windowClass->lpszClassName == nullptr ||
        windowClass->lpfnWndProc == nullptr || ovrin::layer::FindWindowClass(windowClass->lpszClassName) != nullptr) {
        return 0;
    }
    auto &classes = ovrin::layer::Classes();
    classes.push_back({windowClass->lpszClassName, windowClass->lpfnWndProc, windowClass->hIcon});
    return static_cast<ATOM>(classes.size());
}

// The defaults that the launcher's procedure leaves to the platform: the title, and nothing. WM_ERASEBKGND is never
// sent, since nothing is erased before a paint.
LRESULT DefWindowProcW(HWND window, UINT message, WPARAM /*wParam*/, LPARAM lParam) {
    if (message != WM_NCCREATE) {
        return 0;
    }
    return SetWindowTextW(window, reinterpret_cast<const CREATESTRUCTW *>(lParam)->lpszName);
}

// Input through the toolkit's test events on the window behind the handle, which take the road of real ones from there
// on. The offscreen platform has no window manager: its part (another program's window, the way back from a message
// box) is played here.
#include "tests/desktop/DesktopDriver.h"

#include "platform/winapi/qt/DeviceContext.h"
#include "platform/winapi/qt/TestAccess.h"

#include <QApplication>
#include <QImage>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <gtest/gtest.h>

#include <chrono>
#include <malloc.h>
#include <map>
#include <optional>
#include <utility>

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previousInstance, LPWSTR commandLine, int showCommand);

namespace {

std::function<void()> loopAction;

} // namespace

// The entry, as it is compiled for these tests, calls the two operations under these names. A class lasts as long as
// the process, and the entry runs many times in it.
ATOM RegisterClassOnce(const WNDCLASSEXW *windowClass) {
    static const ATOM atom = RegisterClassExW(windowClass);
    return atom;
}

BOOL GetMessageFromLoop(MSG *message, HWND window, UINT first, UINT last) {
    if (loopAction) {
        QTimer::singleShot(0, qApp, std::exchange(loopAction, nullptr));
    }
    return GetMessageW(message, window, first, last);
}

namespace ovrin::desktop {

namespace {

// Null once the window has gone.
QWindow *TargetOf(HWND window) {
    const QWidget *widget = layer::WidgetOf(window);
    return widget == nullptr ? nullptr : widget->window()->windowHandle();
}

enum class MouseAct { Move, Press, Release };

void SendMouse(HWND window, POINT point, MouseAct act) {
    QWindow *target = TargetOf(window);
    if (target == nullptr) {
        return;
    }
    const QPoint place{point.x, point.y};
    switch (act) {
    case MouseAct::Move: QTest::mouseMove(target, place); break;
    case MouseAct::Press: QTest::mousePress(target, Qt::LeftButton, {}, place); break;
    case MouseAct::Release: QTest::mouseRelease(target, Qt::LeftButton, {}, place); break;
    }
    Settle();
}

UINT IconFlag(QMessageBox::Icon icon) {
    switch (icon) {
    case QMessageBox::Critical: return MB_ICONERROR;
    case QMessageBox::Warning: return MB_ICONWARNING;
    case QMessageBox::Information: return MB_ICONINFORMATION;
    default: return 0;
    }
}

// Meets each message box once it is active.
class BoxWatch : public QObject {
public:
    std::function<void(const MessageBoxSeen &)> observer;

    bool eventFilter(QObject *watched, QEvent *event) override {
        auto *box = qobject_cast<QMessageBox *>(watched);
        if (box != nullptr && event->type() == QEvent::WindowActivate && std::exchange(known_, box) != box) {
            QTimer::singleShot(0, box, [this, box] { Meet(*box); });
        }
        return false;
    }

private:
    void Meet(QMessageBox &box) {
        Settle();
        if (observer) {
            observer({.title = box.windowTitle().toStdU16String(),
                      .text = box.text().toStdU16String(),
                      .icon = IconFlag(box.icon()),
                      .buttons = static_cast<int>(box.buttons().size())});
        }
        known_ = nullptr;
        QWidget *owner = box.parentWidget();
        box.button(QMessageBox::Ok)->click();
        if (owner != nullptr) {
            owner->activateWindow();
        }
    }

    QMessageBox *known_ = nullptr;
};

BoxWatch &TheBoxWatch() {
    static BoxWatch watch;
    return watch;
}

QWindow &OtherProgram() {
    static QWindow window;
    return window;
}

Qt::Key KeyFor(WPARAM key, KeyPlace place) {
    const std::map<WPARAM, Qt::Key> keys = {{VK_RETURN, place == KeyPlace::Keypad ? Qt::Key_Enter : Qt::Key_Return},
                                            {VK_ESCAPE, Qt::Key_Escape},
                                            {VK_SPACE, Qt::Key_Space},
                                            {VK_TAB, Qt::Key_Tab},
                                            {VK_UP, Qt::Key_Up},
                                            {VK_DOWN, Qt::Key_Down},
                                            {VK_HOME, Qt::Key_Home},
                                            {VK_END, Qt::Key_End}};
    return keys.at(key);
}

} // namespace

void CallFromLoop(std::function<void()> action) {
    loopAction = std::move(action);
}

int RunEntry() {
    char16_t noCommandLine[] = u"";
    const int exitCode = wWinMain(nullptr, nullptr, noCommandLine, SW_SHOWNORMAL);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return exitCode;
}

// Handled events post others.
void Settle() {
    for (int round = 0; round < 4; ++round) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents();
    }
}

bool PumpUntil(const std::function<bool()> &condition) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes{1};
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

void MoveMouse(HWND window, POINT point) {
    SendMouse(window, point, MouseAct::Move);
}

void PressMouse(HWND window, POINT point) {
    SendMouse(window, point, MouseAct::Press);
}

void ReleaseMouse(HWND window, POINT point) {
    SendMouse(window, point, MouseAct::Release);
}

void DoubleClickMouse(HWND window, POINT point) {
    PressMouse(window, point);
    ReleaseMouse(window, point);
    QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval; // a release sets the next press apart
    PressMouse(window, point);
    ReleaseMouse(window, point);
}

void PressKey(HWND window, WPARAM key, KeyPlace place, int presses) {
    const Qt::KeyboardModifiers modifiers = place == KeyPlace::Keypad ? Qt::KeypadModifier : Qt::NoModifier;
    for (int press = 0; press < presses && TargetOf(window) != nullptr; ++press) {
        QTest::keyPress(TargetOf(window), KeyFor(key, place), modifiers);
        Settle();
    }
    if (TargetOf(window) != nullptr) {
        QTest::keyRelease(TargetOf(window), KeyFor(key, place), modifiers);
    }
    Settle();
}

void TypeText(HWND window, WideTextView text) {
    for (const QChar unit : QStringView{text.data(), static_cast<qsizetype>(text.size())}) {
        QTest::sendKeyEvent(QTest::Click, TargetOf(window), Qt::Key_unknown, QString{unit}, Qt::NoModifier);
    }
    Settle();
}

void DeactivateApplication(HWND /*window*/) {
    OtherProgram().show();
    OtherProgram().requestActivate();
    Settle();
}

void ActivateApplication(HWND window) {
    OtherProgram().hide();
    layer::WidgetOf(window)->activateWindow();
    Settle();
}

bool IsWine() {
    return false;
}

void OnMessageBox(std::function<void(const MessageBoxSeen &)> observer) {
    TheBoxWatch().observer = std::move(observer);
}

struct Canvas::Bits {
    explicit Bits(SIZE size) : image(size.cx, size.cy, QImage::Format_RGB32) {
        image.fill(Qt::black);
        painter.begin(&image);
        context.emplace(painter);
    }

    QImage image;
    QPainter painter;
    std::optional<layer::ContextScope> context;
};

Canvas::Canvas(SIZE size) : bits_(std::make_unique<Bits>(size)) {}
Canvas::~Canvas() = default;

HDC Canvas::dc() const {
    return bits_->context->dc();
}

COLORREF Canvas::PixelAt(POINT point) const {
    const QRgb pixel = bits_->image.pixel(point.x, point.y);
    return static_cast<COLORREF>(qRed(pixel) | qGreen(pixel) << 8 | qBlue(pixel) << 16);
}

std::size_t CountDrawingObjects() {
    const layer::LiveCounts counts = layer::CountLiveObjects();
    return counts.contexts + counts.brushes + counts.pens + counts.fonts + counts.bitmaps + counts.shapes;
}

std::size_t AllocatedMemory() {
    return mallinfo2().uordblks;
}

} // namespace ovrin::desktop

int main(int argc, char **argv) {
    ::testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    application.installEventFilter(&ovrin::desktop::TheBoxWatch());
    return RUN_ALL_TESTS();
}

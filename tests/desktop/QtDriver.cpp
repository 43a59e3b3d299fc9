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

#include <malloc.h>
#include <map>
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

std::string_view NameOf(QMessageBox::Icon icon) {
    switch (icon) {
    case QMessageBox::Critical: return "error";
    case QMessageBox::Warning: return "warning";
    case QMessageBox::Information: return "information";
    default: return "plain";
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
                      .icon = NameOf(box.icon()),
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
    static const std::map<WPARAM, Qt::Key> keys = {
        {VK_RETURN, Qt::Key_Return}, {VK_ESCAPE, Qt::Key_Escape}, {VK_SPACE, Qt::Key_Space}, {VK_TAB, Qt::Key_Tab},
        {VK_UP, Qt::Key_Up},         {VK_DOWN, Qt::Key_Down},     {VK_HOME, Qt::Key_Home},   {VK_END, Qt::Key_End}};
    return place == KeyPlace::Keypad && key == VK_RETURN ? Qt::Key_Enter : keys.at(key);
}

} // namespace

int RunEntry(std::function<void()> action) {
    loopAction = std::move(action);
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

void UseMouse(HWND window, POINT point, MouseAct act) {
    QWindow *target = TargetOf(window);
    if (target == nullptr) {
        return;
    }
    const QPoint place{point.x, point.y};
    switch (act) {
    case MouseAct::Move: QTest::mouseMove(target, place); break;
    case MouseAct::PressAgain: // a release sets the next press apart
        QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval;
        [[fallthrough]];
    case MouseAct::Press: QTest::mousePress(target, Qt::LeftButton, {}, place); break;
    case MouseAct::Release: QTest::mouseRelease(target, Qt::LeftButton, {}, place); break;
    }
    Settle();
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

void SetActive(HWND window, bool active) {
    OtherProgram().setVisible(!active);
    active ? layer::WidgetOf(window)->activateWindow() : OtherProgram().requestActivate();
    Settle();
}

bool IsWine() {
    return false;
}

void OnMessageBox(std::function<void(const MessageBoxSeen &)> observer) {
    TheBoxWatch().observer = std::move(observer);
}

std::vector<COLORREF> Painted(SIZE size, const std::function<void(HDC)> &paint) {
    QImage image(size.cx, size.cy, QImage::Format_RGB32);
    image.fill(Qt::black);
    {
        QPainter painter(&image);
        const layer::ContextScope context(painter);
        paint(context.dc());
    }
    const QImage swapped = image.rgbSwapped();
    std::vector<COLORREF> pixels;
    for (int y = 0; y < size.cy; ++y) {
        for (int x = 0; x < size.cx; ++x) {
            pixels.push_back(swapped.pixel(x, y) & 0xFFFFFF);
        }
    }
    return pixels;
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

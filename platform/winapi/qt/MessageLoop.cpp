// GetMessageW runs the toolkit's event loop, inside which input reaches the procedures, until the quit is posted. Not
// here: other messages in a queue, filters, posting, timers.
#include "platform/winapi/qt/MessageLoop.h"

#include "platform/winapi/subset/Window.h"

#include <QEvent>
#include <QEventLoop>
#include <QTimer>
#include <QWindow>

#include <cassert>
#include <optional>
#include <utility>

namespace ovrin::layer {

namespace {

constexpr int longestWaitMilliseconds = 5000;

struct Loop {
    std::optional<int> quitCode; // posted and not yet taken
    QEventLoop *running = nullptr;
};

Loop &TheLoop() {
    static Loop loop;
    return loop;
}

class ExposureWatch : public QObject {
public:
    explicit ExposureWatch(QEventLoop &loop) : loop_(loop) {}

    bool eventFilter(QObject * /*watched*/, QEvent *event) override {
        if (event->type() == QEvent::Expose) {
            loop_.quit(); // takes effect once the event has been handled
        }
        return false;
    }

private:
    QEventLoop &loop_;
};

} // namespace

void WaitForExposure(QWindow &window) {
    if (window.isExposed()) {
        return;
    }
    QEventLoop loop;
    ExposureWatch watch(loop);
    window.installEventFilter(&watch);
    QTimer::singleShot(longestWaitMilliseconds, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

} // namespace ovrin::layer

using ovrin::layer::TheLoop;

BOOL GetMessageW(MSG *message, [[maybe_unused]] HWND window, [[maybe_unused]] UINT first, [[maybe_unused]] UINT last) {
    assert(window == nullptr && first == 0 && last == 0);
    auto &state = TheLoop();
    if (!state.quitCode) {
        QEventLoop loop;
        QEventLoop *outer = std::exchange(state.running, &loop);
        loop.exec();
        state.running = outer;
    }
    *message = {};
    message->message = WM_QUIT;
    message->wParam = static_cast<WPARAM>(std::exchange(state.quitCode, std::nullopt).value_or(0));
    return FALSE;
}

BOOL TranslateMessage(const MSG * /*message*/) {
    return FALSE;
}

LRESULT DispatchMessageW(const MSG * /*message*/) {
    return 0;
}

void PostQuitMessage(int exitCode) {
    auto &state = TheLoop();
    state.quitCode = exitCode;
    if (state.running != nullptr) {
        state.running->quit();
    }
}

// A widget whose events reach the procedures of its window as messages.
#pragma once

#include "platform/winapi/qt/Focus.h"
#include "platform/winapi/qt/InputTranslation.h"
#include "platform/winapi/qt/WindowHost.h"

#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace ovrin::layer {

// `Base` is the toolkit's class. While a message is under way `currentEvent()` gives the toolkit's event behind it, for
// a class procedure that leaves the work to the toolkit.
template<typename Base>
class MessageSource : public Base, public WindowHost {
public:
    MessageSource(const Facts &facts, QWidget *parent) : Base(parent), WindowHost(facts) {
        Base::setFocusPolicy(Qt::NoFocus); // the focus moves by SetFocus alone
        Base::setMouseTracking(true);
    }

    [[nodiscard]] QWidget &Widget() override { return *this; }

protected:
    [[nodiscard]] QEvent *currentEvent() const { return current_; }

    void mousePressEvent(QMouseEvent *event) override {
        NotePress(handle());
        SendMouse(WM_LBUTTONDOWN, event);
    }
    void mouseReleaseEvent(QMouseEvent *event) override { SendMouse(WM_LBUTTONUP, event); }
    void mouseDoubleClickEvent(QMouseEvent *event) override {
        SendMouse(NotePress(handle()) ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN, event);
    }
    void mouseMoveEvent(QMouseEvent *event) override {
        SendEvent(event, WM_MOUSEMOVE, 0, PackPoint(event->position()));
    }
    void leaveEvent(QEvent *event) override {
        Base::leaveEvent(event);
        if (std::exchange(tracksLeave, false)) {
            SendEvent(event, WM_MOUSELEAVE, 0, 0);
        }
    }

    void keyPressEvent(QKeyEvent *event) override { SendKey(WM_KEYDOWN, event); }
    // A held key goes down many times and comes up once.
    void keyReleaseEvent(QKeyEvent *event) override {
        if (!event->isAutoRepeat()) {
            SendKey(WM_KEYUP, event);
        }
    }
    bool focusNextPrevChild(bool /*next*/) override { return false; }

    void focusInEvent(QFocusEvent *event) override {
        Base::focusInEvent(event);
        if (IsFocusChange(*event)) {
            SendEvent(event, WM_SETFOCUS, 0, 0);
        }
    }
    void focusOutEvent(QFocusEvent *event) override {
        Base::focusOutEvent(event);
        if (IsFocusChange(*event)) {
            SendEvent(event, WM_KILLFOCUS, 0, 0);
        }
    }

    // For a widget that paints nothing of its own.
    void PaintBy(UINT message) {
        QPainter painter(this);
        activePainter = &painter;
        Send(message, 0, 0);
        activePainter = nullptr;
    }

    // What the toolkit does with events that make no message here.
    virtual void LeaveToToolkit(QEvent * /*event*/) {}

private:
    void SendEvent(QEvent *event, UINT message, WPARAM wParam, LPARAM lParam) {
        QEvent *outer = std::exchange(current_, event);
        Send(message, wParam, lParam);
        current_ = outer;
        event->accept(); // nothing is left for the parent, whatever the toolkit thought of it
    }

    void SendMouse(UINT message, QMouseEvent *event) {
        if (event->button() != Qt::LeftButton) {
            LeaveToToolkit(event);
            return;
        }
        // A window that came to lie under a mouse at rest has seen no move yet; on the platform it has.
        Send(WM_MOUSEMOVE, 0, PackPoint(event->position()));
        SendEvent(event, message, 0, PackPoint(event->position()));
    }

    // With Alt held the platform sends system keys instead, which nothing here listens to.
    void SendKey(UINT message, QKeyEvent *event) {
        if (event->modifiers().testFlag(Qt::AltModifier)) {
            LeaveToToolkit(event);
            return;
        }
        SendEvent(event, message, VirtualKey(*event), 0);
    }

    QEvent *current_ = nullptr;
};

} // namespace ovrin::layer

// BUTTON with BS_OWNERDRAW: press, drag off and back, click on release; Space; the second press of a double click is a
// notification of its own. BN_SETFOCUS and BN_KILLFOCUS with BS_NOTIFY only. Not here: other kinds of button,
// mnemonics, Enter, BM_ messages, groups.
#include "platform/winapi/qt/ButtonControl.h"

#include "platform/winapi/qt/DeviceContext.h"

namespace ovrin::layer {

ButtonControl::ButtonControl(const Facts &facts, QWidget *parent) : MessageSource(facts, parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ButtonControl::SetText(const QString &text) {
    text_ = text;
    update();
}

LRESULT ButtonControl::Procedure(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_LBUTTONDOWN: Press(Held::Mouse); break;
    case WM_LBUTTONUP: Release(Held::Mouse); break;
    case WM_LBUTTONDBLCLK: Notify(BN_DOUBLECLICKED); break;
    case WM_MOUSEMOVE:
        if (held_ == Held::Mouse) {
            SetPushed(rect().contains(UnpackPoint(lParam)));
        }
        break;
    case WM_KEYDOWN:
        if (wParam == VK_SPACE && held_ == Held::Nothing) {
            Press(Held::Space);
        }
        break;
    case WM_KEYUP:
        if (wParam == VK_SPACE) {
            Release(Held::Space);
        }
        break;
    case WM_SETFOCUS: OnFocusChange(BN_SETFOCUS); break;
    case WM_KILLFOCUS:
        DropPress();
        OnFocusChange(BN_KILLFOCUS);
        break;
    case WM_PAINT: Draw(); break;
    default: break;
    }
    return 0;
}

void ButtonControl::Press(Held by) {
    if (by == Held::Mouse) {
        SetFocus(handle());
    }
    held_ = by;
    SetPushed(true);
}

// The click may end the window.
void ButtonControl::Release(Held by) {
    if (held_ != by) {
        return;
    }
    const bool clicked = pushed_;
    DropPress();
    if (clicked) {
        Notify(BN_CLICKED);
    }
}

void ButtonControl::DropPress() {
    held_ = Held::Nothing;
    SetPushed(false);
}

void ButtonControl::OnFocusChange(WORD notification) {
    update();
    if ((facts().style & BS_NOTIFY) != 0) {
        Notify(notification);
    }
}

void ButtonControl::SetPushed(bool pushed) {
    if (pushed != pushed_) {
        pushed_ = pushed;
        update();
    }
}

UINT ButtonControl::DrawState() const {
    return (pushed_ ? ODS_SELECTED : 0) | (isEnabled() ? 0 : ODS_DISABLED) | (hasFocus() ? ODS_FOCUS : 0);
}

void ButtonControl::Draw() {
    const ContextScope context(*activePainter);
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_BUTTON;
    item.CtlID = static_cast<UINT>(facts().id);
    item.itemAction = ODA_DRAWENTIRE;
    item.itemState = DrawState();
    item.hwndItem = handle();
    item.hDC = context.dc();
    item.rcItem = {0, 0, width(), height()};
    SendMessageW(facts().parent, WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
}

void ButtonControl::paintEvent(QPaintEvent * /*event*/) {
    PaintBy(WM_PAINT);
}

void ButtonControl::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) {
        DropPress();
        update();
    }
}

} // namespace ovrin::layer

// EDIT with ES_AUTOHSCROLL: the toolkit's line edit does the editing (selection, clipboard, undo, input methods,
// scrolling), the procedures in front of it see keys, mouse and focus first. WM_SETFONT, EM_SETCUEBANNER (without the
// focus only); EN_SETFOCUS, EN_KILLFOCUS, EN_UPDATE, EN_CHANGE; colours from the parent's WM_CTLCOLOR answer.
// Not here: several lines, limits, passwords, WM_CHAR, the other EM_ messages.
#include "platform/winapi/qt/EditControl.h"

#include "platform/winapi/qt/DeviceContext.h"

#include <QImage>
#include <QRegularExpression>
#include <QValidator>

#include <algorithm>

namespace ovrin::layer {

namespace {

constexpr QRgb bannerColour = qRgb(109, 109, 109); // the platform's grey text

// Of what is pasted or dropped only the first line is taken. What came in is where the text differs from before.
class OneLine : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString &text, int &position) const override {
        static const QRegularExpression lineEnd(QStringLiteral("[\\r\\n]"));
        const auto cut = text.indexOf(lineEnd);
        if (cut >= 0) {
            const auto behind = std::mismatch(text.crbegin(), text.crend(), before_.crbegin(), before_.crend()).first;
            const auto kept = std::max(cut, text.size() - static_cast<qsizetype>(behind - text.crbegin()));
            text.remove(cut, kept - cut);
            text.remove(lineEnd);
            position = static_cast<int>(cut);
        }
        before_ = text; // each change comes by here
        return Acceptable;
    }

private:
    mutable QString before_;
};

} // namespace

EditControl::EditControl(const Facts &facts, QWidget *parent) : MessageSource(facts, parent) {
    setFocusPolicy(Qt::ClickFocus); // whichever button clicks: the menu acts on the edit that has the focus
    setFrame(false);
    setValidator(new OneLine(this));
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    QObject::connect(this, &QLineEdit::textChanged, this, [this] {
        Notify(EN_UPDATE);
        Notify(EN_CHANGE);
    });
}

// A text that is set shows its beginning.
void EditControl::SetText(const QString &text) {
    setText(text);
    setCursorPosition(0);
}

LRESULT EditControl::Procedure(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_LBUTTONDOWN:
        SetFocus(handle());
        OnInput();
        return 0;
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
    case WM_MOUSEMOVE:
    case WM_KEYDOWN:
    case WM_KEYUP: OnInput(); return 0;
    case WM_SETFOCUS: OnFocusChange(EN_SETFOCUS); return 0;
    case WM_KILLFOCUS: OnFocusChange(EN_KILLFOCUS); return 0;
    case WM_SETFONT: setFont(FontOf(reinterpret_cast<HFONT>(wParam))); return 0;
    case EM_SETCUEBANNER:
        banner_ = QString::fromUtf16(reinterpret_cast<LPCWSTR>(lParam));
        ShowBanner();
        return TRUE;
    default: return 0;
    }
}

void EditControl::OnInput() {
    if (currentEvent() != nullptr) {
        LeaveToToolkit(currentEvent());
    }
}

// The toolkit's own handlers, called by name: event() would lead back into the procedures.
// NOLINTBEGIN(bugprone-parent-virtual-call)
void EditControl::LeaveToToolkit(QEvent *event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress: QLineEdit::mousePressEvent(static_cast<QMouseEvent *>(event)); break;
    case QEvent::MouseButtonRelease: QLineEdit::mouseReleaseEvent(static_cast<QMouseEvent *>(event)); break;
    case QEvent::MouseButtonDblClick: QLineEdit::mouseDoubleClickEvent(static_cast<QMouseEvent *>(event)); break;
    case QEvent::MouseMove: QLineEdit::mouseMoveEvent(static_cast<QMouseEvent *>(event)); break;
    case QEvent::KeyPress: QLineEdit::keyPressEvent(static_cast<QKeyEvent *>(event)); break;
    case QEvent::KeyRelease: QLineEdit::keyReleaseEvent(static_cast<QKeyEvent *>(event)); break;
    default: break;
    }
}
// NOLINTEND(bugprone-parent-virtual-call)

void EditControl::OnFocusChange(WORD notification) {
    ShowBanner();
    Notify(notification);
}

void EditControl::ShowBanner() {
    setPlaceholderText(hasFocus() ? QString() : banner_);
}

void EditControl::AskForColours() {
    QImage nowhere(1, 1, QImage::Format_RGB32);
    QPainter probe(&nowhere);
    const ContextScope context(probe);
    const UINT message = isEnabled() ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC;
    const auto dc = reinterpret_cast<WPARAM>(context.dc());
    const LRESULT brush = SendMessageW(facts().parent, message, dc, reinterpret_cast<LPARAM>(handle()));
    QPalette colours = palette();
    colours.setColor(QPalette::Text, context.TextColour());
    colours.setColor(QPalette::Base, BrushColour(reinterpret_cast<HBRUSH>(brush)));
    colours.setColor(QPalette::PlaceholderText, QColor(bannerColour));
    setPalette(colours);
}

void EditControl::showEvent(QShowEvent *event) {
    QLineEdit::showEvent(event);
    AskForColours();
}

void EditControl::changeEvent(QEvent *event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && isVisible()) {
        AskForColours();
    }
}

} // namespace ovrin::layer

// LISTBOX, a plain widget with the platform's own rules: single selection, owner-drawn fixed rows; LB_ADDSTRING,
// LB_RESETCONTENT, LB_GETCURSEL, LB_SETCURSEL, LB_GETCOUNT, LB_SETITEMHEIGHT, LB_GETITEMHEIGHT; notifications on the
// user's changes only: a press selects, its release reports, keys report at once.
// Not here: strings, columns, multiple selection, sorting, scrolling by a drag beyond the edge.
#include "platform/winapi/qt/ListBoxControl.h"

#include "platform/winapi/qt/DeviceContext.h"

#include <QAccessible>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace ovrin::layer {

namespace {

constexpr int rowsOfWheelStep = 3;
constexpr int wheelStep = 120;

// Dark and quiet, as its surroundings are.
constexpr const char *scrollBarStyle = "QScrollBar { background: #0b0f16; width: 12px; margin: 0; }"
                                       "QScrollBar::handle { background: #30394b; min-height: 32px; margin: 2px; }"
                                       "QScrollBar::handle:hover { background: #3e495e; }"
                                       "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
                                       "QScrollBar::add-page, QScrollBar::sub-page { background: none; }";

} // namespace

ListBoxControl::ListBoxControl(const Facts &facts, QWidget *parent) : MessageSource(facts, parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    MeasureRows();
}

void ListBoxControl::MeasureRows() {
    MEASUREITEMSTRUCT item{};
    item.CtlType = ODT_LISTBOX;
    item.CtlID = static_cast<UINT>(facts().id);
    item.itemHeight = static_cast<UINT>(rowHeight_);
    SendMessageW(facts().parent, WM_MEASUREITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
    rowHeight_ = static_cast<int>(item.itemHeight);
}

LRESULT ListBoxControl::Procedure(UINT message, WPARAM wParam, LPARAM lParam) {
    const int y = UnpackPoint(lParam).y();
    switch (message) {
    case WM_LBUTTONDOWN: OnPress(y); return 0;
    case WM_MOUSEMOVE: OnDrag(y); return 0;
    case WM_LBUTTONUP: OnRelease(); return 0;
    case WM_LBUTTONDBLCLK: Notify(LBN_DBLCLK); return 0;
    case WM_KEYDOWN: OnKey(wParam); return 0;
    case WM_SETFOCUS: OnFocusChange(LBN_SETFOCUS); return 0;
    case WM_KILLFOCUS:
        tracking_ = false;
        OnFocusChange(LBN_KILLFOCUS);
        return 0;
    case WM_PAINT: Draw(); return 0;
    default: return OnListMessage(message, wParam, lParam);
    }
}

LRESULT ListBoxControl::OnListMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case LB_ADDSTRING: return AddRow(reinterpret_cast<LPCWSTR>(lParam));
    case LB_RESETCONTENT: Reset(); return 0;
    case LB_SETCURSEL: return SelectByProgram(static_cast<int>(wParam));
    case LB_GETCURSEL: return selected_;
    case LB_GETCOUNT: return RowCount();
    case LB_SETITEMHEIGHT: return SetRowHeight(static_cast<int>(lParam));
    case LB_GETITEMHEIGHT: return rowHeight_;
    default: return 0;
    }
}

LRESULT ListBoxControl::AddRow(LPCWSTR text) {
    rows_.append(QString::fromUtf16(text));
    UpdateScrollBar();
    update();
    return RowCount() - 1;
}

void ListBoxControl::Reset() {
    rows_.clear();
    selected_ = -1;
    tracking_ = false;
    topRow_ = 0;
    UpdateScrollBar();
    update();
}

LRESULT ListBoxControl::SelectByProgram(int row) {
    if (row < -1 || row >= RowCount()) {
        return LB_ERR;
    }
    Select(row, FullRows());
    return row == -1 ? LB_ERR : row;
}

LRESULT ListBoxControl::SetRowHeight(int height) {
    constexpr int largest = 255;
    if (height < 1 || height > largest) {
        return LB_ERR;
    }
    rowHeight_ = height;
    UpdateScrollBar();
    update();
    return 0;
}

void ListBoxControl::OnPress(int y) {
    SetFocus(handle());
    tracking_ = true;
    selectedBeforePress_ = selected_;
    OnDrag(y);
}

void ListBoxControl::OnDrag(int y) {
    const int row = RowAt(y);
    if (tracking_ && row >= 0) {
        Select(row, ShownRows()); // else the list would move on under the mouse
    }
}

void ListBoxControl::OnRelease() {
    if (std::exchange(tracking_, false) && selected_ != selectedBeforePress_) {
        Notify(LBN_SELCHANGE);
    }
}

void ListBoxControl::OnKey(WPARAM key) {
    const int page = std::max(1, FullRows() - 1);
    int row = selected_;
    switch (key) {
    case VK_UP:
    case VK_LEFT: row -= 1; break;
    case VK_DOWN:
    case VK_RIGHT: row += 1; break;
    case VK_PRIOR: row -= page; break;
    case VK_NEXT: row += page; break;
    case VK_HOME: row = 0; break;
    case VK_END: row = RowCount() - 1; break;
    default: return;
    }
    row = std::clamp(row, 0, std::max(0, RowCount() - 1));
    if (row < RowCount() && row != selected_) {
        tracking_ = false;
        Select(row, FullRows());
        Notify(LBN_SELCHANGE);
    }
}

void ListBoxControl::OnFocusChange(WORD notification) {
    update();
    if ((facts().style & LBS_NOTIFY) != 0) {
        Notify(notification);
    }
}

QRect ListBoxControl::RowRect(int row) const {
    const int barWidth = scrollBar_ != nullptr && scrollBar_->isVisibleTo(this) ? scrollBar_->width() : 0;
    return {0, (row - topRow_) * rowHeight_, width() - barWidth, rowHeight_};
}

int ListBoxControl::RowAt(int y) const {
    const int row = topRow_ + (std::max(0, y) / rowHeight_);
    return row < RowCount() ? row : -1;
}

int ListBoxControl::FullRows() const {
    return height() / rowHeight_;
}

int ListBoxControl::ShownRows() const {
    return (height() + rowHeight_ - 1) / rowHeight_;
}

void ListBoxControl::Select(int row, int rowsInView) {
    if (row == selected_) {
        return;
    }
    selected_ = row;
    ScrollIntoView(row, std::max(1, rowsInView));
    repaint(); // now: the notification that follows may hide the list
    if (hasFocus() && row >= 0) {
        QAccessibleEvent focused(this, QAccessible::Focus);
        focused.setChild(row);
        QAccessible::updateAccessibility(&focused);
    }
}

void ListBoxControl::ScrollTo(int topRow) {
    topRow_ = std::clamp(topRow, 0, std::max(0, RowCount() - FullRows()));
    if (scrollBar_ != nullptr) {
        scrollBar_->setValue(topRow_);
    }
    update();
}

void ListBoxControl::ScrollIntoView(int row, int rowsInView) {
    if (row >= 0 && row < topRow_) {
        ScrollTo(row);
    } else if (row >= topRow_ + rowsInView) {
        ScrollTo(row - rowsInView + 1);
    }
}

void ListBoxControl::UpdateScrollBar() {
    const int hidden = RowCount() - FullRows();
    const bool wanted = (facts().style & WS_VSCROLL) != 0 && hidden > 0;
    if (wanted && scrollBar_ == nullptr) {
        scrollBar_ = new QScrollBar(Qt::Vertical, this);
        scrollBar_->setStyleSheet(QString::fromLatin1(scrollBarStyle));
        QObject::connect(scrollBar_, &QScrollBar::valueChanged, this, [this](int value) { ScrollTo(value); });
    }
    if (scrollBar_ != nullptr) {
        const int barWidth = scrollBar_->sizeHint().width();
        scrollBar_->setGeometry(width() - barWidth, 0, barWidth, height());
        scrollBar_->setRange(0, std::max(0, hidden));
        scrollBar_->setPageStep(std::max(1, FullRows()));
        scrollBar_->setVisible(wanted);
    }
    ScrollTo(topRow_);
}

void ListBoxControl::Draw() {
    const ContextScope context(*activePainter);
    const auto dc = reinterpret_cast<WPARAM>(context.dc());
    const LRESULT brush = SendMessageW(facts().parent, WM_CTLCOLORLISTBOX, dc, reinterpret_cast<LPARAM>(handle()));
    activePainter->fillRect(rect(), BrushColour(reinterpret_cast<HBRUSH>(brush)));
    const int end = std::min(RowCount(), topRow_ + (height() / rowHeight_) + 1);
    for (int row = topRow_; row < end; ++row) {
        DrawRow(context.dc(), row);
    }
}

void ListBoxControl::DrawRow(HDC dc, int row) {
    const QRect box = RowRect(row);
    const bool carries = hasFocus() && row == std::max(selected_, 0);
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_LISTBOX;
    item.CtlID = static_cast<UINT>(facts().id);
    item.itemID = static_cast<UINT>(row);
    item.itemAction = ODA_DRAWENTIRE;
    item.itemState =
        (row == selected_ ? ODS_SELECTED : 0) | (carries ? ODS_FOCUS : 0) | (isEnabled() ? 0 : ODS_DISABLED);
    item.hwndItem = handle();
    item.hDC = dc;
    item.rcItem = {box.left(), box.top(), box.left() + box.width(), box.top() + box.height()};
    SendMessageW(facts().parent, WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
}

void ListBoxControl::paintEvent(QPaintEvent * /*event*/) {
    PaintBy(WM_PAINT);
}

void ListBoxControl::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    UpdateScrollBar();
}

void ListBoxControl::wheelEvent(QWheelEvent *event) {
    if ((facts().style & WS_VSCROLL) != 0) {
        wheelTurned_ += event->angleDelta().y() * rowsOfWheelStep; // a fine wheel turns by less than a row
        ScrollTo(topRow_ - (wheelTurned_ / wheelStep));
        wheelTurned_ %= wheelStep;
    }
    event->accept();
}

} // namespace ovrin::layer

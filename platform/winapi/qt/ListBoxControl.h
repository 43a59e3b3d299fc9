// LISTBOX, owner-drawn with fixed rows, a plain widget with the platform's own rules.
#pragma once

#include "platform/winapi/qt/MessageSource.h"

#include <QStringList>
#include <QWidget>

class QScrollBar;

namespace ovrin::layer {

class ListBoxControl : public MessageSource<QWidget> {
public:
    ListBoxControl(const Facts &facts, QWidget *parent);

    [[nodiscard]] QString Text() const override { return {}; }
    void SetText(const QString & /*text*/) override {}

    // The texts given with the rows, kept for screen readers alone.
    [[nodiscard]] const QStringList &RowTexts() const { return rows_; }
    [[nodiscard]] int SelectedRow() const { return selected_; }
    [[nodiscard]] QRect RowRect(int row) const;
    // -1 below the last row.
    [[nodiscard]] int RowAt(int y) const;

protected:
    LRESULT Procedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void MeasureRows();
    LRESULT OnListMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT AddRow(LPCWSTR text);
    void Reset();
    LRESULT SelectByProgram(int row);
    LRESULT SetRowHeight(int height);

    void OnPress(int y);
    void OnDrag(int y);
    void OnRelease();
    void OnKey(WPARAM key);
    void OnFocusChange(WORD notification);

    [[nodiscard]] int RowCount() const { return static_cast<int>(rows_.size()); }
    [[nodiscard]] int FullRows() const;
    [[nodiscard]] int ShownRows() const; // the last one perhaps in part
    void Select(int row, int rowsInView);
    void ScrollTo(int topRow);
    void ScrollIntoView(int row, int rowsInView);
    void UpdateScrollBar();

    void Draw();
    void DrawRow(HDC dc, int row);

    QStringList rows_;
    int rowHeight_ = 16;
    int selected_ = -1;
    int topRow_ = 0;
    int selectedBeforePress_ = -1;
    int wheelTurned_ = 0;             // in parts of a row, what has not scrolled a whole one yet
    bool tracking_ = false;           // from a press to its release
    QScrollBar *scrollBar_ = nullptr; // made when rows don't fit for the first time
};

} // namespace ovrin::layer

// BUTTON, owner-drawn, a plain widget with the platform's own rules.
#pragma once

#include "platform/winapi/qt/MessageSource.h"

#include <QWidget>

namespace ovrin::layer {

class ButtonControl : public MessageSource<QWidget> {
public:
    ButtonControl(const Facts &facts, QWidget *parent);

    [[nodiscard]] QString Text() const override { return text_; }
    void SetText(const QString &text) override;

    // A whole click, for a screen reader.
    void Click() { Notify(BN_CLICKED); }

protected:
    LRESULT Procedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    enum class Held { Nothing, Mouse, Space };

    void Press(Held by);
    void Release(Held by);
    void DropPress();
    void OnFocusChange(WORD notification);
    void SetPushed(bool pushed);
    [[nodiscard]] UINT DrawState() const;
    void Draw();

    QString text_;
    Held held_ = Held::Nothing; // what keeps the button captured
    bool pushed_ = false;       // looks pressed: held, and the mouse not dragged off
};

} // namespace ovrin::layer

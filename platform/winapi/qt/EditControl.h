// EDIT, a single line over the toolkit's own.
#pragma once

#include "platform/winapi/qt/MessageSource.h"

#include <QLineEdit>

namespace ovrin::layer {

class EditControl : public MessageSource<QLineEdit> {
public:
    EditControl(const Facts &facts, QWidget *parent);

    [[nodiscard]] QString Text() const override { return text(); }
    void SetText(const QString &text) override;

protected:
    LRESULT Procedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    void LeaveToToolkit(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void OnInput();
    void OnFocusChange(WORD notification);
    void ShowBanner();
    void AskForColours();

    QString banner_;
};

} // namespace ovrin::layer

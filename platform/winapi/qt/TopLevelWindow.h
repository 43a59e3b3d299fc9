// A window with a frame of the desktop's, and the classes that such windows are made of.
#pragma once

#include "platform/winapi/qt/MessageSource.h"

#include <QWidget>

#include <string>

namespace ovrin::layer {

struct WindowClass {
    std::u16string name;
    WNDPROC procedure;
    HICON icon;
};

// Null for a class that nobody has registered.
[[nodiscard]] const WindowClass *FindWindowClass(LPCWSTR name);

class TopLevelWindow : public MessageSource<QWidget> {
public:
    TopLevelWindow(const Facts &facts, const WindowClass &windowClass, const QRect &place);

    [[nodiscard]] QString Text() const override { return windowTitle(); }
    void SetText(const QString &text) override { setWindowTitle(text); }

    // Zero while minimised.
    [[nodiscard]] QSize ClientSize() const;

    // Shows the window and comes back when it has been painted for the first time.
    void ShowAndWait();
    void TellSize();

protected:
    LRESULT Procedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool event(QEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void OnDeactivated();
    void TellActive(bool active);

    const WindowClass &class_;
    bool shownBefore_ = false;
    bool active_ = false;
};

} // namespace ovrin::layer

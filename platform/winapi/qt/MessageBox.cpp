// The message box: title, plain text, one of three icons, one OK button. The owner takes no input meanwhile and goes on
// painting. Not here: other buttons, other icons, boxes without MB_SETFOREGROUND.
#include "platform/winapi/qt/WindowHost.h"

#include <QMessageBox>
#include <QPointer>

#include <cassert>

namespace {

constexpr UINT iconMask = 0xF0;

QMessageBox::Icon IconFor(UINT flags) {
    switch (flags & iconMask) {
    case MB_ICONERROR: return QMessageBox::Critical;
    case MB_ICONWARNING: return QMessageBox::Warning;
    case MB_ICONINFORMATION: return QMessageBox::Information;
    default: return QMessageBox::NoIcon;
    }
}

} // namespace

int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR title, UINT flags) {
    assert((flags & ~(iconMask | MB_SETFOREGROUND)) == MB_OK);
    auto *host = ovrin::layer::HostOf(owner);
    // The owner may end while the box is up, and the box with it.
    const QPointer<QMessageBox> box = new QMessageBox(host == nullptr ? nullptr : &host->Widget());
    box->setIcon(IconFor(flags));
    box->setWindowTitle(QString::fromUtf16(title));
    box->setTextFormat(Qt::PlainText); // a path may look like markup
    box->setText(QString::fromUtf16(text));
    box->setStandardButtons(QMessageBox::Ok);
    box->exec();
    delete box;
    return IDOK;
}

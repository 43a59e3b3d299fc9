// The one icon group of the program and the arrow cursor. They last as long as the process. Not here: other icons and
// cursors, sizes by request.
#include "platform/winapi/qt/Icons.h"

#include "platform/winapi/qt/HandleTable.h"

#include <QFile>

namespace ovrin::layer {

namespace {

constexpr int iconSizes[] = {16, 24, 32, 48, 64, 128, 256};

HandleTable<HICON, QIcon> &Icons() {
    static HandleTable<HICON, QIcon> table;
    return table;
}

std::unique_ptr<QIcon> IconFromResources() {
    auto icon = std::make_unique<QIcon>();
    for (const int size : iconSizes) {
        icon->addFile(QStringLiteral(":/ovrin/icon/%1.png").arg(size), QSize(size, size));
    }
    return icon;
}

} // namespace

QIcon IconOf(HICON icon) {
    const QIcon *found = Icons().Find(icon);
    return found == nullptr ? QIcon() : *found;
}

} // namespace ovrin::layer

HICON LoadIconW(HINSTANCE /*instance*/, LPCWSTR /*name*/) {
    if (!QFile::exists(QStringLiteral(":/ovrin/icon/16.png"))) {
        return nullptr;
    }
    static const HICON icon = ovrin::layer::Icons().Add(ovrin::layer::IconFromResources());
    return icon;
}

// The toolkit shows the arrow by itself: the handle stands for it.
HCURSOR LoadCursorA(HINSTANCE /*instance*/, LPCSTR /*name*/) {
    static const HCURSOR arrow = ovrin::layer::Icons().Add(std::make_unique<QIcon>());
    return arrow;
}

// The one icon group of the program and the arrow cursor. They last as long as the process. Not here: other icons and
// cursors, sizes by request.
#include "platform/winapi/qt/Icons.h"

#include "platform/winapi/qt/HandleTable.h"

#include <QFile>

namespace ovrin::layer {

namespace {

constexpr int iconSizes[] = {16, 24, 32, 48, 64, 128, 256};

// Handles stand for pictures that are read when they are first shown.
enum class Picture { ProgramIcon, Arrow };

HandleTable<HICON, Picture> &Icons() {
    static HandleTable<HICON, Picture> table;
    return table;
}

QIcon IconFromResources() {
    QIcon icon;
    for (const int size : iconSizes) {
        icon.addFile(QStringLiteral(":/ovrin/icon/%1.png").arg(size), QSize(size, size));
    }
    return icon;
}

} // namespace

QIcon IconOf(HICON icon) {
    const Picture *found = Icons().Find(icon);
    return found != nullptr && *found == Picture::ProgramIcon ? IconFromResources() : QIcon();
}

} // namespace ovrin::layer

using ovrin::layer::Picture;

HICON LoadIconW(HINSTANCE /*instance*/, LPCWSTR /*name*/) {
    if (!QFile::exists(QStringLiteral(":/ovrin/icon/16.png"))) {
        return nullptr;
    }
    static const HICON icon = ovrin::layer::Icons().Add(std::make_unique<Picture>(Picture::ProgramIcon));
    return icon;
}

// The toolkit shows the arrow by itself: the handle stands for it.
HCURSOR LoadCursorA(HINSTANCE /*instance*/, LPCSTR /*name*/) {
    static const HCURSOR arrow = ovrin::layer::Icons().Add(std::make_unique<Picture>(Picture::Arrow));
    return arrow;
}

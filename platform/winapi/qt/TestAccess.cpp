#include "platform/winapi/qt/TestAccess.h"

#include "platform/winapi/qt/ComObject.h"
#include "platform/winapi/qt/DeviceContext.h"
#include "platform/winapi/qt/WindowHost.h"

namespace ovrin::layer {

QWidget *WidgetOf(HWND window) {
    WindowHost *host = HostOf(window);
    return host == nullptr ? nullptr : &host->Widget();
}

LiveCounts CountLiveObjects() {
    const DrawingCounts drawing = CountDrawingObjects();
    return {AllHosts().size(), drawing.contexts, drawing.brushes, drawing.pens,
            drawing.fonts,     drawing.bitmaps,  drawing.shapes,  LiveObject::Count()};
}

} // namespace ovrin::layer

// Lines with a wide pen and frames of inverting dots, in whole pixels. Not here: pens of width 1.
#include "platform/winapi/qt/GdiObjects.h"
#include "platform/winapi/qt/PaintOperation.h"

#include <QLineF>
#include <QPainterPath>
#include <QPolygon>

#include <vector>

namespace {

using namespace ovrin::layer;

// A pixel belongs to a shape if its top left corner does, borders to the left and above included; the toolkit asks for
// its middle.
constexpr qreal cornerForMiddle = 31.0 / 64; // short of a half by the least that the toolkit tells apart

// The band around a line: its sides are shifted by whole pixels.
QPolygon BandAround(QPoint start, QPoint end, int width) {
    const QLineF line(start, end);
    const QLineF side = line.normalVector().unitVector();
    const QPoint shift(qRound(side.dx() * width / 2), qRound(side.dy() * width / 2));
    return {{start - shift, start + shift, end + shift, end - shift}};
}

// Its ends and joints are round.
void DrawWideLine(QPainter &painter, QPoint start, QPoint end, const Pen &pen) {
    const qreal radius = pen.width / 2.0;
    QPainterPath ends;
    ends.setFillRule(Qt::WindingFill);
    ends.addEllipse(QPointF(start), radius, radius);
    ends.addEllipse(QPointF(end), radius, radius);
    painter.fillPath(ends, pen.colour);
    QPainterPath band;
    band.addPolygon(QPolygonF(BandAround(start, end, pen.width)).translated(cornerForMiddle, cornerForMiddle));
    painter.fillPath(band, pen.colour);
}

QPoint PointOf(const POINT &point) {
    return {point.x, point.y};
}

// Every second pixel of the rectangle's edge, counted from the context's first one.
std::vector<QRect> DotsAround(const RECT &rect) {
    std::vector<QRect> dots;
    const auto add = [&](int x, int y) {
        if ((x + y) % 2 == 0) {
            dots.emplace_back(x, y, 1, 1);
        }
    };
    for (int x = rect.left; x < rect.right; ++x) {
        add(x, rect.top);
        add(x, rect.bottom - 1);
    }
    for (int y = rect.top + 1; y < rect.bottom - 1; ++y) {
        add(rect.left, y);
        add(rect.right - 1, y);
    }
    return dots;
}

} // namespace

BOOL Polyline(HDC dc, const POINT *points, int count) {
    const Context *context = Resolve(Tables().contexts, dc);
    if (context == nullptr || points == nullptr || count < 2) {
        return FALSE;
    }
    const Pen *pen = Tables().pens.Find(context->pen);
    assert(pen->width > 1);
    if (const PaintOperation painter(*context); painter) {
        for (int index = 1; index < count; ++index) {
            DrawWideLine(*painter.operator->(), PointOf(points[index - 1]), PointOf(points[index]), *pen);
        }
    }
    return TRUE;
}

BOOL DrawFocusRect(HDC dc, const RECT *rect) {
    const Context *context = Resolve(Tables().contexts, dc);
    if (context == nullptr || rect == nullptr) {
        return FALSE;
    }
    if (const PaintOperation painter(*context); painter && rect->left < rect->right && rect->top < rect->bottom) {
        painter->setCompositionMode(QPainter::RasterOp_NotDestination);
        for (const QRect &dot : DotsAround(*rect)) {
            painter->fillRect(dot, Qt::black);
        }
    }
    return TRUE;
}

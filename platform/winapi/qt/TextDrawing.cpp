// DrawTextW: one line or several, centred across and (one line only) down, words wrapped at blanks, ellipsis at the end
// or, for paths, before the last element; always clipped to the box. An ampersand is text like any other.
// Not here: measuring without drawing, tabs, prefixes, right alignment, breaks inside words, a length of -1.
#include "platform/winapi/qt/TextDrawing.h"

#include "platform/winapi/qt/DeviceContext.h"
#include "platform/winapi/qt/PaintOperation.h"

#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace ovrin::layer {

namespace {

QStringList WrapAtBlanks(const QString &text, const QFontMetricsF &metrics, int width) {
    QStringList lines;
    QString line;
    bool first = true;
    for (const QString &word : text.split(QLatin1Char(' '))) {
        const QString longer = first ? word : line + QLatin1Char(' ') + word;
        const bool wraps = !first && !word.isEmpty() && metrics.horizontalAdvance(longer) > width;
        if (wraps) {
            lines.append(line);
        }
        line = wraps ? word : longer;
        first = false;
    }
    lines.append(line);
    for (QString &done : lines) {
        while (lines.size() > 1 && done.endsWith(QLatin1Char(' '))) {
            done.chop(1); // the blanks at a break take no room
        }
    }
    return lines;
}

QString ElidePath(const QString &path, const QFontMetricsF &metrics, int width) {
    const auto last = std::max(path.lastIndexOf(QLatin1Char('\\')), path.lastIndexOf(QLatin1Char('/')));
    if (last <= 0) {
        return metrics.elidedText(path, Qt::ElideMiddle, width);
    }
    const QString tail = path.mid(last);
    const QString head = metrics.elidedText(path.left(last), Qt::ElideRight, width - metrics.horizontalAdvance(tail));
    return head.isEmpty() ? metrics.elidedText(QChar(0x2026) + tail, Qt::ElideRight, width) : head + tail;
}

QString Elide(const QString &line, const QFontMetricsF &metrics, int width, UINT format) {
    const bool shortens = (format & (DT_PATH_ELLIPSIS | DT_END_ELLIPSIS)) != 0;
    if (!shortens || metrics.horizontalAdvance(line) <= width) {
        return line;
    }
    return (format & DT_PATH_ELLIPSIS) != 0 ? ElidePath(line, metrics, width)
                                            : metrics.elidedText(line, Qt::ElideRight, width);
}

// Control characters have no picture, and some would steer the toolkit's own line breaking and shortening.
QString WithoutControls(QString text) {
    for (QChar &character : text) {
        if (character.category() == QChar::Other_Control) {
            character = QLatin1Char(' ');
        }
    }
    return text;
}

QStringList Paragraphs(QString text, UINT format) {
    if ((format & DT_SINGLELINE) != 0) {
        return {text};
    }
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text.split(QLatin1Char('\n'));
}

// A line laid out by itself, always from the left: the box's sides don't follow the script.
class LineLayout {
public:
    LineLayout(const QString &text, const QFont &font) : layout_(text, font) {
        constexpr qreal endless = 1e6;
        QTextOption option;
        option.setWrapMode(QTextOption::NoWrap);
        option.setTextDirection(Qt::LeftToRight);
        layout_.setTextOption(option);
        layout_.beginLayout();
        line_ = layout_.createLine();
        if (line_.isValid()) {
            line_.setLineWidth(endless);
        }
        layout_.endLayout();
    }

    [[nodiscard]] int Width() const {
        return line_.isValid() ? static_cast<int>(std::ceil(line_.horizontalAdvance())) : 0;
    }
    void Draw(QPainter &painter, QPointF baseline) const {
        if (line_.isValid()) {
            line_.draw(&painter, baseline - QPointF(0, line_.ascent()));
        }
    }

private:
    QTextLayout layout_;
    QTextLine line_;
};

struct TextBox {
    const Context &context;
    const RECT &rect;
    UINT format;
    QFont font;

    [[nodiscard]] int LineHeight() const { return QFontMetrics(font).height(); }
    [[nodiscard]] int Top() const {
        const bool centred = (format & (DT_VCENTER | DT_SINGLELINE)) == (DT_VCENTER | DT_SINGLELINE);
        return rect.top + (centred ? (rect.bottom - rect.top - LineHeight()) / 2 : 0);
    }
};

void DrawLine(QPainter &painter, const TextBox &box, const QString &text, int top) {
    const LineLayout line(text, box.font);
    const int width = line.Width();
    const int spare = box.rect.right - box.rect.left - width;
    const int left = box.rect.left + ((box.format & DT_CENTER) != 0 ? spare / 2 : 0);
    if (box.context.backMode == OPAQUE) {
        painter.fillRect(left, top, width, box.LineHeight(), ColourOf(box.context.backColour));
    }
    line.Draw(painter, QPointF(left, top + QFontMetrics(box.font).ascent()));
}

void DrawLines(QPainter &painter, const TextBox &box, const QStringList &lines) {
    const QRect area(QPoint(box.rect.left, box.rect.top), QPoint(box.rect.right - 1, box.rect.bottom - 1));
    if (!area.isValid()) {
        return;
    }
    painter.setClipRect(area, Qt::IntersectClip);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setPen(ColourOf(box.context.textColour));
    int top = box.Top();
    for (const QString &line : lines) {
        DrawLine(painter, box, line, top);
        top += box.LineHeight();
    }
}

} // namespace

QStringList FitText(const QString &text, const QFontMetricsF &metrics, int width, UINT format) {
    QStringList lines;
    for (const QString &paragraph : Paragraphs(text, format)) {
        const QString plain = WithoutControls(paragraph);
        const bool wraps = (format & DT_WORDBREAK) != 0 && (format & DT_SINGLELINE) == 0;
        lines += wraps ? WrapAtBlanks(plain, metrics, width) : QStringList{plain};
    }
    lines.last() = Elide(lines.last(), metrics, width, format);
    return lines;
}

} // namespace ovrin::layer

int DrawTextW(HDC dc, LPCWSTR text, int length, RECT *rect, UINT format) {
    using namespace ovrin::layer;
    constexpr UINT known = DT_CENTER | DT_VCENTER | DT_WORDBREAK | DT_SINGLELINE | DT_PATH_ELLIPSIS | DT_END_ELLIPSIS;
    assert(length >= 0 && (format & ~known) == 0);
    const Context *context = Resolve(Tables().contexts, dc);
    if (context == nullptr || text == nullptr || rect == nullptr || length <= 0) {
        return 0;
    }
    const PaintOperation painter(*context);
    if (!painter) {
        return 0;
    }
    const TextBox box{*context, *rect, format & known, QFont(FontOf(context->font), painter->device())};
    const QStringList lines =
        FitText(QString::fromUtf16(text, length), QFontMetricsF(box.font), rect->right - rect->left, box.format);
    DrawLines(*painter.operator->(), box, lines);
    return box.Top() - rect->top + static_cast<int>(lines.size()) * box.LineHeight();
}

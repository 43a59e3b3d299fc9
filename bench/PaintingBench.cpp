// A whole repaint of the launcher's window beside the same shapes and texts drawn with the toolkit directly, each into
// a fresh buffer that is copied out, the controls on top. PaintingBench [ROUNDS], a hundred repaints each
//
// A program of its own and not a benchmark library's, since the two sides take turns. Shown are medians, and what a
// thousand repaints leave behind.
#include "bench/Rounds.h"
#include "bench/Timing.h"
#include "launcher/LauncherControls.h"
#include "launcher/LauncherWindow.h"
#include "launcher/look/ControlColours.h"
#include "launcher/look/ScenePainter.h"
#include "launcher/workflows/RecentListView.h"
#include "platform/winapi/qt/DeviceContext.h"
#include "platform/winapi/qt/GdiObjects.h"
#include "platform/winapi/qt/TestAccess.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <cstdio>
#include <cstdlib>
#include <malloc.h>
#include <vector>

namespace ovrin::bench {

namespace {

constexpr QSize clientSize{1220, 820};

HWND OpenWindow(LauncherState &state) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = LauncherWndProc;
    windowClass.lpszClassName = WIDE("PaintingBench");
    RegisterClassExW(&windowClass);
    return CreateWindowExW(0, windowClass.lpszClassName, WIDE(""), WS_CAPTION, 0, 0, clientSize.width(),
                           clientSize.height(), nullptr, nullptr, nullptr, &state);
}

void FillList(LauncherState &state) {
    for (int row = 0; row < 4; ++row) {
        state.recentProjects.push_back(
            {.path = "/home/developer/Documents/OvrinProjects/Game/Game.oproject", .name = "A game"});
    }
    RefreshRecentList(state);
}

struct Item {
    int id;
    UINT row;
    UINT state;
    RECT rect; // of the window
};

std::vector<Item> ItemsOf(const LauncherLayout &layout) {
    std::vector<Item> items = {{ControlId::templateFace, 0, 0, layout.templateFaceRect},
                               {ControlId::browse, 0, 0, layout.browseButtonRect},
                               {ControlId::createProject, 0, 0, layout.createButtonRect},
                               {ControlId::openSelected, 0, 0, layout.openSelectedButtonRect},
                               {ControlId::openProject, 0, 0, layout.openProjectButtonRect},
                               {ControlId::removeMissing, 0, 0, layout.removeMissingButtonRect},
                               {ControlId::quit, 0, 0, layout.quitButtonRect}};
    const RECT &list = layout.recentListRect;
    for (UINT row = 0; row < 4; ++row) {
        const LONG top = list.top + static_cast<LONG>(row) * layout.recentRowHeight;
        items.push_back({ControlId::recentList,
                         row,
                         row == 0 ? ODS_SELECTED : 0U,
                         {list.left, top, list.right, top + layout.recentRowHeight}});
    }
    return items;
}

// The launcher's own painting, on a context over `target`.
class OurSide {
public:
    OurSide(HWND window, const LauncherState &state) : window_(window), state_(state), items_(ItemsOf(state.layout)) {}

    void Repaint(QPainter &target) const {
        const layer::ContextScope context(target);
        {
            const MemoryCanvas canvas{context.dc(), {clientSize.width(), clientSize.height()}};
            PaintScene(window_, state_, canvas.dc());
            canvas.CopyTo(context.dc());
        }
        for (const Item &item : items_) {
            DRAWITEMSTRUCT drawn{};
            drawn.CtlID = static_cast<UINT>(item.id);
            drawn.itemID = item.row;
            drawn.itemState = item.state;
            drawn.hwndItem = GetDlgItem(window_, item.id);
            drawn.hDC = context.dc();
            drawn.rcItem = item.rect;
            SendMessageW(window_, WM_DRAWITEM, drawn.CtlID, reinterpret_cast<LPARAM>(&drawn));
        }
    }

private:
    HWND window_;
    const LauncherState &state_;
    std::vector<Item> items_;
};

QRect RectOf(const RECT &rect) {
    return {QPoint(rect.left, rect.top), QPoint(rect.right - 1, rect.bottom - 1)};
}

// As a program would draw the same picture with the toolkit alone.
class ToolkitSide {
public:
    ToolkitSide(HWND window, const LauncherState &state)
        : state_(state), items_(ItemsOf(state.layout)), title_(layer::FontOf(state.titleFont.get())),
          label_(layer::FontOf(state.labelFont.get())), body_(layer::FontOf(state.bodyFont.get())),
          caption_(layer::FontOf(state.captionFont.get())) {
        for (const Item &item : items_) {
            WideChar text[128]{};
            GetWindowTextW(GetDlgItem(window, item.id), text, 128);
            texts_.push_back(item.id == ControlId::templateFace ? QStringLiteral("Blank Project")
                                                                : QString::fromUtf16(text));
        }
    }

    void Repaint(QPainter &target) const {
        QImage buffer(clientSize, QImage::Format_RGB32);
        {
            QPainter painter(&buffer);
            DrawScene(painter);
        }
        target.drawImage(0, 0, buffer);
        target.save();
        for (std::size_t index = 0; index < items_.size(); ++index) {
            DrawItem(target, items_[index], texts_[index]);
        }
        target.restore();
    }

private:
    static void Panel(QPainter &painter, const RECT &rect, qreal radius, const PanelColours &colours) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(layer::ColourOf(colours.border));
        painter.setBrush(layer::ColourOf(colours.fill));
        painter.drawRoundedRect(QRectF(rect.left + 0.5, rect.top + 0.5, rect.right - rect.left, rect.bottom - rect.top),
                                radius, radius);
    }

    static void Fill(QPainter &painter, const RECT &rect, COLORREF colour) {
        painter.fillRect(RectOf(rect), layer::ColourOf(colour));
    }

    struct Run {
        const QFont &font;
        COLORREF colour = 0;
        int flags = Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine;
    };
    static void Text(QPainter &painter, const RECT &rect, const QString &text, const Run &run) {
        painter.setFont(run.font);
        painter.setPen(layer::ColourOf(run.colour));
        painter.drawText(RectOf(rect), run.flags, text);
    }

    void DrawScene(QPainter &painter) const {
        const LauncherLayout &layout = state_.layout;
        painter.fillRect(QRect({0, 0}, clientSize), layer::ColourOf(Theme::windowBase));
        Panel(painter, layout.newProjectCardRect, 28, {Theme::newProjectCard, Theme::quietBorder});
        Panel(painter, layout.recentCardRect, 28, {Theme::recentCard, Theme::quietBorder});
        Fill(painter, {64, 52, 148, 56}, Theme::orange);
        Fill(painter, {62, 324, 132, 328}, Theme::blue);
        for (const RECT *frame : {&layout.nameFieldRect, &layout.templateFieldRect, &layout.locationFieldRect}) {
            Panel(painter, *frame, 16, {Theme::field, Theme::fieldBorder});
        }
        Panel(painter, layout.recentFrameRect, 16, {Theme::field, Theme::quietBorder});
        Text(painter, layout.newProjectTitleRect, QStringLiteral("New Project"), {title_, Theme::primaryText});
        Text(painter, layout.nameLabelRect, QStringLiteral("Project Name"), {label_, Theme::primaryText});
        Text(painter, layout.templateLabelRect, QStringLiteral("Template"), {label_, Theme::primaryText});
        Text(painter, layout.locationLabelRect, QStringLiteral("Location"), {label_, Theme::primaryText});
        Text(painter, layout.recentTitleRect, QStringLiteral("Recent Projects"), {title_, Theme::primaryText});
        Text(painter, layout.recentSubtitleRect,
             QStringLiteral("Continue where you left off or browse for another .oproject file."),
             {body_, Theme::mutedText});
    }

    void DrawItem(QPainter &painter, const Item &item, const QString &text) const {
        switch (item.id) {
        case ControlId::templateFace: return DrawFace(painter, item.rect, text);
        case ControlId::recentList: return DrawRow(painter, item);
        default: return DrawButton(painter, item, text);
        }
    }

    void DrawButton(QPainter &painter, const Item &item, const QString &text) const {
        const ButtonColours colours = ColoursOfButton(item.id, {});
        const RECT inner{item.rect.left + 1, item.rect.top + 1, item.rect.right - 1, item.rect.bottom - 1};
        Fill(painter, item.rect, CardBehindButton(item.id));
        Panel(painter, inner, 14, colours.panel);
        Text(painter, inner, text, {label_, colours.text, Qt::AlignCenter | Qt::TextSingleLine});
    }

    void DrawFace(QPainter &painter, const RECT &rect, const QString &text) const {
        Fill(painter, rect, Theme::field);
        Panel(painter, rect, 10, ColoursOfFace({}));
        Text(painter, {rect.left + 10, rect.top, rect.right - 32, rect.bottom}, text,
             {label_, Theme::primaryText, Qt::AlignVCenter | Qt::TextSingleLine});
        const int x = rect.right - 17, y = rect.top + 16;
        painter.setPen(QPen(layer::ColourOf(ChevronColour(false)), 2));
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.drawPolyline(QPolygon({{x - 5, y - 2}, {x, y + 4}, {x + 5, y - 2}}));
    }

    void DrawRow(QPainter &painter, const Item &item) const {
        const RECT row{item.rect.left + 4, item.rect.top + 4, item.rect.right - 4, item.rect.bottom - 4};
        const RecentProject &project = state_.recentProjects[item.row];
        const int width = row.right - row.left - 34;
        Fill(painter, item.rect, Theme::field);
        Panel(painter, row, 12, ColoursOfRow(item.row, item.state != 0, false));
        Text(painter, {row.left + 18, row.top + 10, row.right - 16, row.top + 32},
             QFontMetrics(label_).elidedText(QString::fromStdString(project.name), Qt::ElideRight, width),
             {label_, Theme::primaryText});
        Text(painter, {row.left + 18, row.top + 35, row.right - 16, row.bottom - 10},
             QFontMetrics(caption_).elidedText(QString::fromStdString(project.path.string()), Qt::ElideMiddle, width),
             {caption_, Theme::mutedText});
    }

    const LauncherState &state_;
    std::vector<Item> items_;
    std::vector<QString> texts_;
    QFont title_, label_, body_, caption_;
};

void Compare(const OurSide &ours, const ToolkitSide &toolkit, QPainter &target, int rounds) {
    constexpr int repaintsInRound = 100;
    Values ourTimes, toolkitTimes;
    for (int repaint = 0; repaint < rounds * repaintsInRound; ++repaint) {
        ourTimes.push_back(TimeEach(1, [&] { ours.Repaint(target); }));
        toolkitTimes.push_back(TimeEach(1, [&] { toolkit.Repaint(target); }));
    }
    constexpr double wantedRatio = 1.25; // at most
    const double our = Median(ourTimes), theirs = Median(toolkitTimes);
    std::printf("launcher %.3f ms, toolkit alone %.3f ms, ratio %.3f, wanted %.2f\n", our / 1e6, theirs / 1e6,
                our / theirs, wantedRatio);
}

// Drawing objects and bytes of the heap that are there now.
void ShowRest(const OurSide &ours, QPainter &target) {
    constexpr int repaints = 1000;
    const layer::LiveCounts before = layer::CountLiveObjects();
    const std::size_t bytes = mallinfo2().uordblks;
    for (int repaint = 0; repaint < repaints; ++repaint) {
        ours.Repaint(target);
    }
    const bool same = layer::CountLiveObjects() == before;
    const auto more = static_cast<long long>(mallinfo2().uordblks) - static_cast<long long>(bytes);
    std::printf("%d repaints: %s drawing objects left, %lld bytes of heap more\n", repaints, same ? "no" : "SOME",
                more);
}

void RunAll(int rounds) {
    LauncherState state;
    const HWND window = OpenWindow(state);
    FillList(state);
    const OurSide ours{window, state};
    const ToolkitSide toolkit{window, state};
    QImage picture(clientSize, QImage::Format_RGB32);
    QPainter target(&picture);
    ours.Repaint(target); // finds fonts and memory
    toolkit.Repaint(target);
    Compare(ours, toolkit, target, rounds);
    ShowRest(ours, target);
    if (const char *folder = std::getenv("OVRIN_BENCH_PICTURES")) {
        ours.Repaint(target);
        picture.save(QString::fromLocal8Bit(folder) + QStringLiteral("/launcher.png"));
        toolkit.Repaint(target);
        picture.save(QString::fromLocal8Bit(folder) + QStringLiteral("/toolkit.png"));
    }
    DestroyWindow(window);
}

} // namespace

} // namespace ovrin::bench

int main(int argc, char **argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    setenv("OVRIN_USER_SETTINGS_DIR", "/nonexistent", 1); // the user's own list is none of our business
    const QApplication application(argc, argv);
    return ovrin::bench::RunRounds("PaintingBench", {argv, argv + argc}, ovrin::bench::RunAll);
}

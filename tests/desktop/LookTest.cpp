// What is painted, pixel by pixel where the colour is certain: away from text and from the rounded corners.
#include "launcher/TemplateSelector.h"
#include "launcher/look/ControlPainters.h"
#include "launcher/look/Drawing.h"
#include "launcher/look/ScenePainter.h"
#include "launcher/workflows/RecentListView.h"
#include "tests/desktop/DesktopDriver.h"
#include "tests/desktop/Recorder.h"
#include "tests/desktop/Sandbox.h"

#include <gtest/gtest.h>

#include <sstream>
#include <utility>

namespace ovrin::desktop {

namespace {

constexpr SIZE clientSize{1220, 820};
constexpr COLORREF black = 0, base = 0x120C09, firstCard = 0x231914, secondCard = 0x1E1511, field = 0x160F0B,
                   orange = 0x2C84F2, blue = 0xFF9C2E, fieldBorder = 0x5E493E, quietBorder = 0x4B3930,
                   selectedRow = 0x482C1C;

// Pixels of one colour that follow each other: how many, and which colour.
using Runs = std::vector<std::pair<int, COLORREF>>;

std::string Shown(const Runs &runs) {
    std::ostringstream text;
    int length = 0;
    for (auto run = runs.begin(); run != runs.end(); ++run) {
        length += run->first;
        if (run + 1 == runs.end() || run[1].second != run->second) {
            text << std::dec << std::exchange(length, 0) << " of " << std::hex << run->second << ", ";
        }
    }
    return text.str();
}

Runs PixelsFrom(const Canvas &canvas, POINT point, POINT step, int length) {
    Runs pixels;
    for (; length > 0; --length, point = {point.x + step.x, point.y + step.y}) {
        pixels.emplace_back(1, canvas.PixelAt(point));
    }
    return pixels;
}

std::string Across(const Canvas &canvas, POINT point, int length) {
    return Shown(PixelsFrom(canvas, point, {1, 0}, length));
}

std::string Down(const Canvas &canvas, POINT point, int length) {
    return Shown(PixelsFrom(canvas, point, {0, 1}, length));
}

// True if something else than `background` shows in the rectangle.
bool ShowsText(const Canvas &canvas, const RECT &rect, COLORREF background) {
    for (LONG y = rect.top; y < rect.bottom; ++y) {
        const int width = rect.right - rect.left;
        if (Across(canvas, {rect.left, y}, width) != Shown({{width, background}})) {
            return true;
        }
    }
    return false;
}

void FillRecentList(LauncherState &state, int rows) {
    for (int row = 0; row < rows; ++row) {
        state.recentProjects.push_back({.path = "somewhere/Game.oproject", .name = "Game"});
    }
    RefreshRecentList(state);
}

struct Item {
    int id = 0;
    UINT state = 0;
    RECT rect{};
    UINT row = 0;
};

void PaintItem(const LauncherRun &run, const Canvas &canvas, const Item &item) {
    DRAWITEMSTRUCT drawn{};
    drawn.CtlID = static_cast<UINT>(item.id);
    drawn.itemID = item.row;
    drawn.itemState = item.state;
    drawn.hwndItem = GetDlgItem(run.window, item.id);
    drawn.hDC = canvas.dc();
    drawn.rcItem = item.rect;
    EXPECT_EQ(SendMessageW(run.window, WM_DRAWITEM, drawn.CtlID, reinterpret_cast<LPARAM>(&drawn)), 1);
}

TEST(Scene, ShowsTheEmptyStateAtTheTopOfItsBoxUntilThereIsAProject) {
    const Sandbox sandbox;
    RunLauncher([](const LauncherRun &run) {
        const RECT &box = run.state.layout.emptyTextRect;
        const Canvas empty{clientSize}, filled{clientSize};
        PaintScene(run.window, run.state, empty.dc());
        EXPECT_TRUE(ShowsText(empty, {box.left, box.top, box.right, box.top + 24}, field));
        EXPECT_FALSE(ShowsText(empty, {box.left, box.top + 24, box.right, box.bottom}, field));
        FillRecentList(run.state, 1);
        PaintScene(run.window, run.state, filled.dc());
        EXPECT_FALSE(ShowsText(filled, box, field));
    });
}

TEST(Scene, HasItsCardsBarsAndFramesOnExactlyTheirPixels) {
    const Sandbox sandbox;
    RunLauncher([](const LauncherRun &run) {
        FillRecentList(run.state, 1);
        const Canvas canvas{clientSize};
        PaintScene(run.window, run.state, canvas.dc());
        const Runs down = {{34, base},       {1, quietBorder}, {93, firstCard},  {1, fieldBorder}, {45, field},
                           {1, fieldBorder}, {39, firstCard},  {1, fieldBorder}, {45, field},      {1, fieldBorder},
                           {21, firstCard},  {1, quietBorder}, {23, base},       {1, quietBorder}, {89, secondCard},
                           {1, quietBorder}, {293, field},     {1, quietBorder}, {95, secondCard}, {1, quietBorder},
                           {33, base}};
        EXPECT_EQ(Down(canvas, {800, 0}, 820), Shown(down));
        const Runs across = {{34, base},       {1, quietBorder}, {29, firstCard},  {1, fieldBorder}, {777, field},
                             {1, fieldBorder}, {13, firstCard},  {1, fieldBorder}, {299, field},     {1, fieldBorder},
                             {29, firstCard},  {1, quietBorder}, {33, base}};
        EXPECT_EQ(Across(canvas, {0, 150}, 1220), Shown(across));
        EXPECT_EQ(Down(canvas, {100, 40}, 22), Shown({{12, firstCard}, {4, orange}, {6, firstCard}}));
        EXPECT_EQ(Across(canvas, {60, 52}, 100), Shown({{4, firstCard}, {84, orange}, {12, firstCard}}));
        EXPECT_EQ(Down(canvas, {100, 310}, 22), Shown({{14, secondCard}, {4, blue}, {4, secondCard}}));
        EXPECT_EQ(Across(canvas, {60, 327}, 100), Shown({{2, secondCard}, {70, blue}, {28, secondCard}}));
    });
}

TEST(Scene, OnlyTheFrameOfTheFocusedFieldChanges) {
    constexpr std::pair<HWND LauncherState::*, RECT LauncherLayout::*> fields[] = {
        {&LauncherState::projectNameEdit, &LauncherLayout::nameFieldRect},
        {&LauncherState::templateButton, &LauncherLayout::templateFieldRect},
        {&LauncherState::templatePopup, &LauncherLayout::templateFieldRect},
        {&LauncherState::locationEdit, &LauncherLayout::locationFieldRect},
        {&LauncherState::recentList, &LauncherLayout::recentFrameRect}};
    const Sandbox sandbox;
    RunLauncher([&](const LauncherRun &run) {
        FillRecentList(run.state, 1);
        SetFocus(run.state.quitButton);
        const Canvas resting{clientSize};
        PaintScene(run.window, run.state, resting.dc());
        const auto expectOrange = [&](const RECT &frame) {
            const Canvas canvas{clientSize};
            PaintScene(run.window, run.state, canvas.dc());
            const int straight = frame.right - frame.left - 36;
            EXPECT_EQ(Across(canvas, {frame.left + 18, frame.top}, straight), Shown({{straight, orange}}));
            for (LONG y = 0; y < clientSize.cy; ++y) {
                const LONG end = y >= frame.top && y <= frame.bottom ? frame.left : clientSize.cx;
                EXPECT_EQ(Across(canvas, {0, y}, end), Across(resting, {0, y}, end)) << y;
            }
        };
        OpenTemplatePopup(run.state); // the focus stays where it is
        expectOrange(run.state.layout.templateFieldRect);
        CloseTemplatePopup(run.state);
        ShowWindow(run.state.templatePopup, SW_SHOWNA);
        for (const auto &[control, frame] : fields) {
            SetFocus(run.state.*control);
            expectOrange(run.state.layout.*frame);
        }
    });
}

TEST(ActionButton, ShowsItsCardAtTheCornersAndItsStateInside) {
    struct Case {
        int id;
        UINT state;
        bool hovered;
        COLORREF card, border, fill;
    };
    constexpr Case cases[] = {
        {1003, ODS_FOCUS, true, firstCard, blue, 0x3B302A},
        {1006, ODS_DISABLED | ODS_SELECTED, true, secondCard, 0x225AA0, 0x204E89},
        {1009, ODS_SELECTED, false, secondCard, 0x56433A, 0x18110D},
    };
    const Sandbox sandbox;
    RunLauncher([&](const LauncherRun &run) {
        for (const Case &each : cases) {
            SCOPED_TRACE(each.id);
            run.state.hoveredControl = each.hovered ? GetDlgItem(run.window, each.id) : nullptr;
            const Canvas canvas{{182, 42}};
            PaintItem(run, canvas, {.id = each.id, .state = each.state, .rect = {1, 1, 181, 41}});
            const Runs down = {{1, black},      {1, each.card},   {1, each.border},
                               {37, each.fill}, {1, each.border}, {1, black}};
            EXPECT_EQ(Down(canvas, {160, 0}, 42), Shown(down));
            EXPECT_EQ(Across(canvas, {0, 1}, 182), Shown({{1, black}, {180, each.card}, {1, black}}));
            EXPECT_EQ(canvas.PixelAt({180, 20}), each.border);
            EXPECT_TRUE(ShowsText(canvas, {60, 10, 120, 32}, each.fill));
        }
        run.state.hoveredControl = nullptr;
    });
}

TEST(ListRow, ShowsSelectionParityAndTheFocusOfItsList) {
    struct Case {
        int id;
        UINT row;
        UINT state;
        COLORREF border, fill, dot;
    };
    constexpr Case cases[] = {
        {1005, 1, 0, fieldBorder, 0x1B130F, 0x1B130F},
        {1005, 0, ODS_FOCUS, blue, 0x221812, 0xDDE7ED},
        {1005, 1, ODS_SELECTED | ODS_FOCUS, orange, selectedRow, 0xB7D3E3},
        {1011, 3, ODS_FOCUS, blue, 0x1B130F, 0x1B130F},
        {1011, 2, ODS_SELECTED | ODS_FOCUS, orange, selectedRow, selectedRow},
    };
    const Sandbox sandbox;
    RunLauncher([&](const LauncherRun &run) {
        FillRecentList(run.state, 2);
        for (const Case &each : cases) {
            SCOPED_TRACE(&each - cases);
            const Canvas canvas{{400, 74}};
            PaintItem(run, canvas, {.id = each.id, .state = each.state, .rect = {0, 1, 400, 73}, .row = each.row});
            const Runs down = {{1, black},      {4, field},       {1, each.border}, {3, each.fill}, {1, each.dot},
                               {59, each.fill}, {1, each.border}, {3, field},       {1, black}};
            EXPECT_EQ(Down(canvas, {301, 0}, 74), Shown(down));
            const int side = each.id == 1005 ? 4 : 5;
            EXPECT_EQ(Across(canvas, {0, 35}, 12), Shown({{side, field}, {1, each.border}, {11 - side, each.fill}}));
            EXPECT_EQ(canvas.PixelAt({400 - side, 35}), each.border);
            for (const POINT dot : {POINT{13, 9}, POINT{12, 64}, POINT{387, 63}, POINT{300, 64}}) {
                EXPECT_EQ(canvas.PixelAt(dot), each.dot) << dot.x << "," << dot.y;
            }
            EXPECT_EQ(canvas.PixelAt({12, 9}), each.fill) << "between two dots";
        }
        const Canvas canvas{{400, 74}};
        PaintItem(run, canvas, {.id = 1005, .state = ODS_FOCUS, .rect = {0, 1, 400, 73}, .row = 2});
        PaintItem(run, canvas, {.id = 1005, .state = ODS_FOCUS, .rect = {0, 1, 400, 73}, .row = 0xFFFFFFFF});
        EXPECT_FALSE(ShowsText(canvas, {0, 0, 400, 74}, black)) << "no such project: nothing at all";
        PaintItem(run, canvas, {.id = 1011, .state = ODS_FOCUS, .rect = {0, 1, 400, 73}, .row = 4});
        EXPECT_FALSE(ShowsText(canvas, {0, 1, 400, 73}, field)) << "no such template: the background alone";
    });
}

TEST(ListRow, KeepsALongNameAndALongPathWithinItsMargins) {
    constexpr COLORREF fill = 0x221812;
    const Sandbox sandbox;
    RunLauncher([](const LauncherRun &run) {
        run.state.recentProjects.push_back(
            {.path = std::string(300, 'p') + "/W.oproject", .name = std::string(300, 'W')});
        const Canvas canvas{{400, 72}};
        PaintItem(run, canvas, {.id = 1005, .state = 0, .rect = {0, 0, 400, 72}, .row = 0});
        EXPECT_TRUE(ShowsText(canvas, {350, 14, 380, 36}, fill));
        EXPECT_TRUE(ShowsText(canvas, {350, 39, 380, 58}, fill));
        EXPECT_FALSE(ShowsText(canvas, {380, 18, 396, 56}, fill));
        EXPECT_FALSE(ShowsText(canvas, {5, 18, 22, 56}, fill));
    });
}

TEST(TemplateFace, StandsOnItsWholeItemAndShowsTheOpenPopup) {
    struct Case {
        UINT state;
        bool open;
        COLORREF border, fill, chevron;
    };
    constexpr Case cases[] = {
        {0, false, fieldBorder, field, 0xB9A093},
        {ODS_SELECTED, false, fieldBorder, 0x201610, 0xB9A093},
        {0, true, orange, 0x281C14, orange},
    };
    const Sandbox sandbox;
    RunLauncher([&](const LauncherRun &run) {
        for (const Case &each : cases) {
            SCOPED_TRACE(&each - cases);
            run.state.templatePopupOpen = each.open;
            const Canvas canvas{{290, 40}};
            PaintItem(run, canvas, {.id = 1010, .state = each.state, .rect = {0, 0, 284, 32}});
            EXPECT_EQ(Down(canvas, {220, 0}, 32), Shown({{1, each.border}, {31, each.fill}}));
            EXPECT_EQ(Down(canvas, {283, 12}, 8), Shown({{8, each.fill}})) << "the right border is cut off";
            const Runs ends = {{2, each.fill}, {2, each.chevron}, {8, each.fill}, {2, each.chevron}, {2, each.fill}};
            const Runs middle = {{4, each.fill}, {4, each.chevron}, {1, each.fill}, {4, each.chevron}, {3, each.fill}};
            const Runs point = {{7, each.fill}, {3, each.chevron}, {6, each.fill}};
            EXPECT_EQ(Across(canvas, {259, 13}, 16), Shown(ends));
            EXPECT_EQ(Across(canvas, {259, 17}, 16), Shown(middle));
            EXPECT_EQ(Across(canvas, {259, 20}, 16), Shown(point));
        }
        run.state.templatePopupOpen = false;
    });
}

TEST(Painting, LeavesTheContextAsItWas) {
    const Sandbox sandbox;
    RunLauncher([](const LauncherRun &run) {
        const Canvas canvas{clientSize};
        const UniqueFont font = CreateUiFont(
            run.window, {.points = 9, .weight = 400, .face = WIDE("A face name that is longer than allowed")});
        const UniquePen pen{CreatePen(PS_SOLID, 2, 0)};
        const SelectionScope selectedFont{canvas.dc(), font.get()};
        const SelectionScope selectedPen{canvas.dc(), pen.get()};
        SetTextColor(canvas.dc(), 0x123456);
        FillRecentList(run.state, 1);
        PaintScene(run.window, run.state, canvas.dc());
        for (const int id : {1004, 1005, 1010, 1011}) {
            PaintItem(run, canvas, {.id = id, .state = ODS_FOCUS, .rect = {0, 0, 180, 72}});
        }
        EXPECT_EQ(SetBkMode(canvas.dc(), TRANSPARENT), OPAQUE);
        EXPECT_EQ(SetTextColor(canvas.dc(), 0), 0x123456U);
        EXPECT_EQ(SelectObject(canvas.dc(), font.get()), font.get());
        EXPECT_EQ(SelectObject(canvas.dc(), pen.get()), pen.get());
    });
}

TEST(Painting, GoesOnWhereNothingCanBeDrawn) {
    Graphics graphics{nullptr};
    DrawRoundedPanel(graphics, {{0, 0, 40, 40}, 14, {orange, blue}});
    EXPECT_NE(graphics.firstFailure(), Gdiplus::Ok);
    for (const auto painter : {PaintActionButton, PaintRecentRow, PaintTemplateRow, PaintTemplateFace}) {
        painter(LauncherState{}, nullptr);
    }
}

TEST(Painting, LeavesNothingBehind) {
    constexpr int repaints = 1000;
    const Sandbox sandbox;
    RunLauncher([](const LauncherRun &run) {
        const auto repaint = [&](int times) {
            for (int time = 0; time < times; ++time) {
                RedrawWindow(run.window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
            }
            Settle();
        };
        FillRecentList(run.state, 3);
        OpenTemplatePopup(run.state);
        repaint(20);
        const std::size_t before = CountDrawingObjects(), memory = AllocatedMemory();
        EXPECT_GT(before, 5U) << "the fonts and brushes of the window at least";
        repaint(repaints);
        EXPECT_EQ(CountDrawingObjects(), before);
        EXPECT_LT(AllocatedMemory(), memory + std::size_t{8} * repaints) << "less than any object takes";
    });
}

} // namespace

} // namespace ovrin::desktop

// What no script can ask of the launcher's window; all the rest is in the transcripts.
#include "launcher/look/ControlPainters.h"
#include "launcher/look/Drawing.h"
#include "tests/desktop/ScriptPlayer.h"

#include <gtest/gtest.h>

namespace ovrin::desktop {

namespace {

TEST(LauncherWindow, AnswersWhatThePlatformAsks) {
    const Sandbox sandbox;
    RunLauncher([&](const LauncherRun &run) {
        MINMAXINFO sizes{};
        EXPECT_EQ(SendMessageW(run.window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&sizes)), 0);
        EXPECT_EQ(sizes.ptMinTrackSize.x, 1100);
        EXPECT_EQ(sizes.ptMinTrackSize.y, 760);
        EXPECT_EQ(SendMessageW(run.window, WM_ERASEBKGND, 0, 0), 1);
        EXPECT_EQ(SendMessageW(run.window, WM_DRAWITEM, 0, 0), 0);
        MEASUREITEMSTRUCT item{};
        item.CtlID = ControlId::recentList;
        EXPECT_EQ(SendMessageW(run.window, WM_MEASUREITEM, 1005, reinterpret_cast<LPARAM>(&item)), 1);
        EXPECT_EQ(item.itemHeight, 72U);
        EXPECT_EQ(CreateWindowExW(0, WIDE("OvrinLauncherWindow"), WIDE(""), 0, 0, 0, 9, 9, nullptr, nullptr, nullptr,
                                  nullptr),
                  nullptr)
            << "without a state there is no window";
    });
}

TEST(Painting, GoesOnWhereNothingCanBeDrawn) {
    Graphics graphics{nullptr};
    DrawRoundedPanel(graphics, {{0, 0, 40, 40}, 14, {0x2C84F2, 0xFF9C2E}});
    EXPECT_NE(graphics.firstFailure(), Gdiplus::Ok);
    for (const auto painter : {PaintActionButton, PaintRecentRow, PaintTemplateRow, PaintTemplateFace}) {
        painter(LauncherState{}, nullptr);
    }
}

TEST(Painting, LeavesNothingBehind) {
    constexpr int repaints = 1000;
    const Sandbox sandbox;
    RunLauncher([&](LauncherRun &run) {
        const auto repaint = [&](int times) {
            for (int time = 0; time < times; ++time) {
                RedrawWindow(run.window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
            }
            Settle();
        };
        ScriptPlayer player{run, sandbox};
        player.Play("rows 3");
        player.Play("click face");
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

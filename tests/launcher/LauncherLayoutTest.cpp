#include "launcher/LauncherLayout.h"

#include <gtest/gtest.h>

#include <ostream>

static bool operator==(const RECT &a, const RECT &b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

static void PrintTo(const RECT &rect, std::ostream *out) {
    *out << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom;
}

namespace ovrin {
namespace {

TEST(LauncherLayout, PlacesEverythingAtTheCreatedSize) {
    const struct {
        const char *label;
        RECT LauncherLayout::*field;
        RECT expected;
    } cases[] = {
        {"new project card", &LauncherLayout::newProjectCardRect, {34, 34, 1186, 282}},
        {"new project title", &LauncherLayout::newProjectTitleRect, {64, 62, 1156, 86}},
        {"name label", &LauncherLayout::nameLabelRect, {64, 102, 842, 120}},
        {"name field", &LauncherLayout::nameFieldRect, {64, 128, 842, 174}},
        {"name edit", &LauncherLayout::nameEditRect, {80, 139, 826, 163}},
        {"template label", &LauncherLayout::templateLabelRect, {856, 102, 1156, 120}},
        {"template field", &LauncherLayout::templateFieldRect, {856, 128, 1156, 174}},
        {"template face", &LauncherLayout::templateFaceRect, {864, 135, 1148, 167}},
        {"template popup", &LauncherLayout::templatePopupRect, {856, 180, 1156, 348}},
        {"location label", &LauncherLayout::locationLabelRect, {64, 188, 1156, 206}},
        {"location field", &LauncherLayout::locationFieldRect, {64, 214, 832, 260}},
        {"location edit", &LauncherLayout::locationEditRect, {80, 225, 816, 249}},
        {"browse", &LauncherLayout::browseButtonRect, {844, 217, 964, 257}},
        {"create", &LauncherLayout::createButtonRect, {976, 217, 1156, 257}},
        {"recent card", &LauncherLayout::recentCardRect, {34, 306, 1186, 786}},
        {"recent title", &LauncherLayout::recentTitleRect, {62, 330, 1158, 354}},
        {"recent subtitle", &LauncherLayout::recentSubtitleRect, {62, 360, 1158, 382}},
        {"recent frame", &LauncherLayout::recentFrameRect, {62, 396, 1158, 690}},
        {"recent list", &LauncherLayout::recentListRect, {68, 402, 1152, 684}},
        {"empty text", &LauncherLayout::emptyTextRect, {90, 424, 1130, 662}},
        {"open selected", &LauncherLayout::openSelectedButtonRect, {62, 712, 232, 754}},
        {"open project", &LauncherLayout::openProjectButtonRect, {244, 712, 414, 754}},
        {"remove missing", &LauncherLayout::removeMissingButtonRect, {426, 712, 586, 754}},
        {"quit", &LauncherLayout::quitButtonRect, {1048, 712, 1158, 754}},
    };
    // Only the size counts, not where the client rectangle lies.
    for (const RECT &client : {RECT{0, 0, 1220, 820}, RECT{-7, 5, 1213, 825}}) {
        const LauncherLayout layout = ComputeLauncherLayout(client);
        for (const auto &testCase : cases) {
            EXPECT_EQ(layout.*testCase.field, testCase.expected) << testCase.label;
        }
        EXPECT_EQ(layout.recentRowHeight, 72);
    }
}

TEST(LauncherLayout, TemplateColumnFollowsTheWidthBetweenItsBounds) {
    const struct {
        LONG width;
        LONG column;
    } cases[] = {{1029, 300}, {1028, 300}, {1027, 299}, {1000, 290}, {821, 231}, {820, 230}, {300, 230}, {0, 230}};
    for (const auto &testCase : cases) {
        const LauncherLayout layout = ComputeLauncherLayout({0, 0, testCase.width, 820});
        const LONG left = testCase.width - 64 - testCase.column;
        EXPECT_EQ(layout.templateFieldRect, (RECT{left, 128, testCase.width - 64, 174})) << testCase.width;
        EXPECT_EQ(layout.nameFieldRect.right, left - 14) << testCase.width;
        EXPECT_EQ(layout.createButtonRect.right, testCase.width - 64) << testCase.width;
    }
}

TEST(LauncherLayout, AMinimisedWindowGivesInvertedRectangles) {
    const LauncherLayout layout = ComputeLauncherLayout({});
    EXPECT_EQ(layout.newProjectCardRect, (RECT{34, 34, -34, 282}));
    EXPECT_EQ(layout.templatePopupRect, (RECT{-294, 180, -64, 348}));
    EXPECT_EQ(layout.recentFrameRect, (RECT{62, 396, -62, -130}));
}

} // namespace
} // namespace ovrin

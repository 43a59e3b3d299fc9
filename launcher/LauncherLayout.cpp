#include "launcher/LauncherLayout.h"

#include <algorithm>

namespace ovrin {

namespace {

constexpr LONG windowMargin = 34;
constexpr LONG firstCardInset = 64;  // window margin and the first card's inner margin
constexpr LONG secondCardInset = 62; // window margin and the second card's inner margin
constexpr std::int32_t recentRowHeight = 72;

LONG TemplateColumnWidth(LONG width) {
    return std::min(std::max((width - 2 * firstCardInset) / 3, LONG{230}), LONG{300});
}

void PlaceNewProjectCard(LauncherLayout &layout, LONG width) {
    const LONG right = width - firstCardInset;
    const LONG column = right - TemplateColumnWidth(width); // left edge of the template column
    const LONG nameRight = column - 14;
    layout.newProjectCardRect = {windowMargin, 34, width - windowMargin, 282};
    layout.newProjectTitleRect = {firstCardInset, 62, right, 86};
    layout.nameLabelRect = {firstCardInset, 102, nameRight, 120};
    layout.nameFieldRect = {firstCardInset, 128, nameRight, 174};
    layout.nameEditRect = {firstCardInset + 16, 139, nameRight - 16, 163};
    layout.templateLabelRect = {column, 102, right, 120};
    layout.templateFieldRect = {column, 128, right, 174};
    layout.templateFaceRect = {column + 8, 135, right - 8, 167};
    layout.templatePopupRect = {column, 180, right, 348};
}

// The Location row follows the width alone, not the template column.
void PlaceLocationRow(LauncherLayout &layout, LONG width) {
    const LONG right = width - firstCardInset;
    const LONG fieldRight = right - 324;
    layout.locationLabelRect = {firstCardInset, 188, right, 206};
    layout.locationFieldRect = {firstCardInset, 214, fieldRight, 260};
    layout.locationEditRect = {firstCardInset + 16, 225, fieldRight - 16, 249};
    layout.browseButtonRect = {right - 312, 217, right - 192, 257};
    layout.createButtonRect = {right - 180, 217, right, 257};
}

void PlaceRecentCard(LauncherLayout &layout, LONG width, LONG height) {
    const LONG right = width - secondCardInset;
    layout.recentCardRect = {windowMargin, 306, width - windowMargin, height - windowMargin};
    layout.recentTitleRect = {secondCardInset, 330, right, 354};
    layout.recentSubtitleRect = {secondCardInset, 360, right, 382};
    layout.recentFrameRect = {secondCardInset, 396, right, height - 130};
    layout.recentListRect = {secondCardInset + 6, 402, right - 6, height - 136};
    layout.emptyTextRect = {secondCardInset + 28, 424, right - 28, height - 158};
}

void PlaceBottomRow(LauncherLayout &layout, LONG width, LONG height) {
    const LONG top = height - 108;
    const LONG bottom = height - 66;
    const LONG right = width - secondCardInset;
    layout.openSelectedButtonRect = {62, top, 232, bottom};
    layout.openProjectButtonRect = {244, top, 414, bottom};
    layout.removeMissingButtonRect = {426, top, 586, bottom};
    layout.quitButtonRect = {right - 110, top, right, bottom};
}

} // namespace

LauncherLayout ComputeLauncherLayout(const RECT &clientRect) {
    const LONG width = clientRect.right - clientRect.left;
    const LONG height = clientRect.bottom - clientRect.top;
    LauncherLayout layout;
    PlaceNewProjectCard(layout, width);
    PlaceLocationRow(layout, width);
    PlaceRecentCard(layout, width, height);
    PlaceBottomRow(layout, width, height);
    layout.recentRowHeight = recentRowHeight;
    return layout;
}

} // namespace ovrin

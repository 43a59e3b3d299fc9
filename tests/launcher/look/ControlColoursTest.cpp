#include "launcher/look/ControlColours.h"

#include <gtest/gtest.h>

namespace ovrin {
namespace {

TEST(MixColour, GoesChannelByChannelAndCutsFractionsOff) {
    constexpr COLORREF orange = 0x2C84F2, blue = 0xFF9C2E;
    EXPECT_EQ(MixColour(orange, blue, 0), orange);
    EXPECT_EQ(MixColour(orange, blue, 1), blue);
    EXPECT_EQ(MixColour(orange, 0xFFFFFF, 0.08F), 0x3C8DF3U);
    EXPECT_EQ(MixColour(orange, 0x000000, 0.18F), 0x246CC6U);
    EXPECT_EQ(MixColour(0x000000, 0xFFFFFF, 0.5F), 0x7F7F7FU);
    EXPECT_EQ(ToArgb(0x160F0B), 0xFF0B0F16U);
}

TEST(ButtonColours, FollowHoverPressAndDisablingInEveryVariant) {
    constexpr ButtonCondition hovered{.hovered = true}, pressed{.pressed = true}, disabled{.disabled = true},
        hoveredAndPressed{.hovered = true, .pressed = true};
    constexpr struct {
        int id;
        PanelColours hovered;
        COLORREF pressedFill, hoveredAndPressedFill;
        PanelColours disabled;
    } variants[] = {
        {1004, {0x3C8DF3, 0x4190F3}, 0x246CC6, 0x3173C7, {0x204E89, 0x225AA0}},
        {1006, {0x3C8DF3, 0x4190F3}, 0x246CC6, 0x3173C7, {0x204E89, 0x225AA0}},
        {1003, {0x3B302A, 0x7E685D}, 0x231913, 0x302722, {0x1F1611, 0x4F3D34}},
        {1007, {0x3B302A, 0x7E685D}, 0x231913, 0x302722, {0x1F1611, 0x4F3D34}},
        {1008, {0x2F2A47, 0x564B95}, 0x17132D, 0x26223A, {0x181222, 0x32285C}},
        {1009, {0x302724, 0x66554D}, 0x18110D, 0x271F1D, {0x18100D, 0x3E2F28}},
    };
    for (const auto &variant : variants) {
        SCOPED_TRACE(variant.id);
        const auto colours = [&](const ButtonCondition &condition) { return ColoursOfButton(variant.id, condition); };
        EXPECT_EQ(colours(hovered).panel, variant.hovered);
        EXPECT_EQ(colours(pressed).panel.fill, variant.pressedFill);
        EXPECT_EQ(colours(pressed).panel.border, colours({}).panel.border);
        EXPECT_EQ(colours(hoveredAndPressed).panel.fill, variant.hoveredAndPressedFill);
        EXPECT_EQ(colours(hoveredAndPressed).text, colours({}).text);
        EXPECT_EQ(colours(disabled), (ButtonColours{variant.disabled, 0x8E796E}));
        EXPECT_EQ(colours({.hovered = true, .pressed = true, .disabled = true}), colours(disabled));
        EXPECT_EQ(colours({.hovered = true, .focused = true}).panel, (PanelColours{variant.hovered.fill, 0xFF9C2E}));
    }
}

TEST(RowColours, AlternateFromTheFirstRowOnAndASelectedRowStaysOrange) {
    constexpr PanelColours selected{0x482C1C, 0x2C84F2};
    EXPECT_EQ(ColoursOfRow(0, false, false), (PanelColours{0x221812, 0x5E493E}));
    EXPECT_EQ(ColoursOfRow(15, false, false), (PanelColours{0x1B130F, 0x5E493E}));
    EXPECT_EQ(ColoursOfRow(2, false, true), (PanelColours{0x221812, 0xFF9C2E}));
    EXPECT_EQ(ColoursOfRow(1, true, false), selected);
    EXPECT_EQ(ColoursOfRow(2, true, true), selected);
}

TEST(FaceColours, ShowHoverPressFocusAndTheOpenPopup) {
    constexpr COLORREF resting = 0x5E493E, orange = 0x2C84F2;
    const std::pair<FaceCondition, PanelColours> cases[] = {
        {{}, {0x160F0B, resting}},
        {{.hovered = true}, {0x281C14, resting}},
        {{.focused = true}, {0x160F0B, orange}},
        {{.popupOpen = true}, {0x281C14, orange}},
        {{.pressed = true}, {0x201610, resting}},
        {{.hovered = true, .pressed = true, .popupOpen = true}, {0x201610, orange}},
    };
    for (const auto &[condition, colours] : cases) {
        EXPECT_EQ(ColoursOfFace(condition), colours) << colours.fill << ' ' << colours.border;
    }
    EXPECT_EQ(FieldBorderColour(true, true), orange); // focus goes before quiet
    EXPECT_EQ(FieldBorderColour(false, true), 0x4B3930U);
    EXPECT_EQ(FieldBorderColour(false, false), resting);
}

} // namespace
} // namespace ovrin

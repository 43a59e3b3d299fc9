// Which colours a field or an owner-drawn control has, from its id or row and what is happening to it. Needs no window.
#pragma once

#include "launcher/LauncherState.h"
#include "launcher/look/Theme.h"

#include <cstddef>

namespace ovrin {

struct PanelColours {
    COLORREF fill;
    COLORREF border;

    bool operator==(const PanelColours &) const = default;
};

struct ButtonColours {
    PanelColours panel;
    COLORREF text;

    bool operator==(const ButtonColours &) const = default;
};

struct ButtonCondition {
    bool hovered = false;
    bool pressed = false;
    bool focused = false;
    bool disabled = false; // wins over hover and press
};

enum class ButtonVariant : std::size_t { Primary, Secondary, Danger, Quiet };

[[nodiscard]] constexpr ButtonVariant VariantOf(int id) {
    switch (id) {
    case ControlId::createProject:
    case ControlId::openSelected: return ButtonVariant::Primary;
    case ControlId::removeMissing: return ButtonVariant::Danger;
    case ControlId::quit: return ButtonVariant::Quiet;
    default: return ButtonVariant::Secondary;
    }
}

// The action button at rest; in the order of the variants.
constexpr ButtonColours buttonsAtRest[] = {
    {{Theme::orange, Theme::orange}, 0x0A0E11},
    {{0x2B1F18, 0x70584C}, Theme::primaryText},
    {{0x1D1838, 0x44388A}, 0xE0DCFF},
    {{Theme::recentCard, 0x56433A}, Theme::mutedText},
};

[[nodiscard]] constexpr ButtonColours ColoursOfButton(int id, const ButtonCondition &condition) {
    constexpr COLORREF white = 0xFFFFFF, black = 0x000000;
    ButtonColours colours = buttonsAtRest[static_cast<std::size_t>(VariantOf(id))];
    PanelColours &panel = colours.panel;
    if (condition.hovered && !condition.disabled) {
        panel = {MixColour(panel.fill, white, 0.08F), MixColour(panel.border, white, 0.10F)};
    }
    if (condition.pressed && !condition.disabled) {
        panel.fill = MixColour(panel.fill, black, 0.18F);
    }
    if (condition.focused) {
        panel.border = Theme::blue;
    }
    if (condition.disabled) {
        panel = {MixColour(panel.fill, Theme::windowBase, 0.45F), MixColour(panel.border, Theme::windowBase, 0.35F)};
        colours.text = Theme::faintText;
    }
    return colours;
}

// Shows around the rounded corners of the button.
[[nodiscard]] constexpr COLORREF CardBehindButton(int id) {
    return id == ControlId::browse || id == ControlId::createProject ? Theme::newProjectCard : Theme::recentCard;
}

// A row of either list, by its index from 0.
[[nodiscard]] constexpr PanelColours ColoursOfRow(std::size_t index, bool selected, bool focused) {
    if (selected) {
        return {0x482C1C, Theme::orange};
    }
    return {index % 2 == 0 ? COLORREF{0x221812} : COLORREF{0x1B130F}, focused ? Theme::blue : Theme::fieldBorder};
}

struct FaceCondition {
    bool hovered = false;
    bool pressed = false;
    bool focused = false;
    bool popupOpen = false;
};

[[nodiscard]] constexpr PanelColours ColoursOfFace(const FaceCondition &condition) {
    const bool active = condition.hovered || condition.popupOpen;
    const COLORREF unpressed = active ? COLORREF{0x281C14} : Theme::field;
    return {condition.pressed ? COLORREF{0x201610} : unpressed,
            condition.focused || condition.popupOpen ? Theme::orange : Theme::fieldBorder};
}

[[nodiscard]] constexpr COLORREF ChevronColour(bool popupOpen) {
    return popupOpen ? Theme::orange : Theme::mutedText;
}

// A quiet frame stands back while it hasn't the focus.
[[nodiscard]] constexpr COLORREF FieldBorderColour(bool focused, bool quiet) {
    const COLORREF resting = quiet ? Theme::quietBorder : Theme::fieldBorder;
    return focused ? Theme::orange : resting;
}

} // namespace ovrin

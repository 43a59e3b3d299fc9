#include "launcher/look/ScenePainter.h"

#include "launcher/look/Drawing.h"
#include "launcher/look/Theme.h"

namespace ovrin {

namespace {

constexpr float cardRadius = 28;

struct SceneCard {
    RECT LauncherLayout::*rect;
    COLORREF fill;
    LONG barLeft; // of the accent bar, from the card's left
    LONG barWidth;
    COLORREF barColour;
};

constexpr SceneCard sceneCards[] = {
    {&LauncherLayout::newProjectCardRect, Theme::newProjectCard, 30, 84, Theme::orange},
    {&LauncherLayout::recentCardRect, Theme::recentCard, 28, 70, Theme::blue},
};

struct SceneField {
    RECT LauncherLayout::*rect;
    HWND LauncherState::*control;
    HWND LauncherState::*popup; // the other part of a selector; an open one counts as focused
    bool quiet;
};

constexpr SceneField sceneFields[] = {
    {&LauncherLayout::nameFieldRect, &LauncherState::projectNameEdit, nullptr, false},
    {&LauncherLayout::templateFieldRect, &LauncherState::templateButton, &LauncherState::templatePopup, false},
    {&LauncherLayout::locationFieldRect, &LauncherState::locationEdit, nullptr, false},
    {&LauncherLayout::recentFrameRect, &LauncherState::recentList, nullptr, true},
};

struct SceneText {
    WideTextView text;
    RECT LauncherLayout::*rect;
    UniqueFont LauncherState::*font;
    COLORREF colour;
    UINT format;
};

constexpr SceneText sceneTexts[] = {
    {WIDE("New Project"), &LauncherLayout::newProjectTitleRect, &LauncherState::titleFont, Theme::primaryText,
     DT_SINGLELINE},
    {WIDE("Project Name"), &LauncherLayout::nameLabelRect, &LauncherState::labelFont, Theme::primaryText,
     DT_SINGLELINE},
    {WIDE("Template"), &LauncherLayout::templateLabelRect, &LauncherState::labelFont, Theme::primaryText,
     DT_SINGLELINE},
    {WIDE("Location"), &LauncherLayout::locationLabelRect, &LauncherState::labelFont, Theme::primaryText,
     DT_SINGLELINE},
    {WIDE("Recent Projects"), &LauncherLayout::recentTitleRect, &LauncherState::titleFont, Theme::primaryText,
     DT_SINGLELINE},
    {WIDE("Continue where you left off or browse for another .oproject file."), &LauncherLayout::recentSubtitleRect,
     &LauncherState::bodyFont, Theme::mutedText, DT_SINGLELINE},
};

constexpr SceneText emptyStateText{
    WIDE("No recent projects yet. Create a project or open an existing .oproject to populate this list."),
    &LauncherLayout::emptyTextRect, &LauncherState::bodyFont, Theme::faintText, DT_CENTER | DT_VCENTER | DT_WORDBREAK};

void DrawSceneText(HDC dc, const LauncherState &state, const SceneText &text) {
    DrawTextRun(dc, state.layout.*text.rect, {text.text, (state.*text.font).get(), text.colour, text.format});
}

void SetSceneQuality(Graphics &graphics) {
    using namespace Gdiplus::DllExports;
    graphics.Note(GdipSetInterpolationMode(graphics.get(), Gdiplus::InterpolationModeHighQualityBicubic));
    graphics.Note(GdipSetCompositingQuality(graphics.get(), Gdiplus::CompositingQualityHighQuality));
}

void DrawAccentBar(Graphics &graphics, const LauncherState &state, const SceneCard &card) {
    constexpr LONG topInCard = 18, height = 4;
    const RECT &rect = state.layout.*card.rect;
    const LONG left = rect.left + card.barLeft, top = rect.top + topInCard;
    FillBar(graphics, {left, top, left + card.barWidth, top + height}, card.barColour);
}

void DrawCards(Graphics &graphics, const LauncherState &state) {
    for (const SceneCard &card : sceneCards) {
        DrawRoundedPanel(graphics, {state.layout.*card.rect, cardRadius, {card.fill, Theme::quietBorder}});
    }
    for (const SceneCard &card : sceneCards) {
        DrawAccentBar(graphics, state, card);
    }
}

void DrawTexts(HDC dc, const LauncherState &state) {
    for (const SceneText &text : sceneTexts) {
        DrawSceneText(dc, state, text);
    }
    if (state.recentProjects.empty()) {
        DrawSceneText(dc, state, emptyStateText);
    }
}

bool HasFocus(const LauncherState &state, const SceneField &field) {
    const HWND focus = GetFocus();
    if (field.popup == nullptr) {
        return focus != nullptr && focus == state.*field.control;
    }
    return state.templatePopupOpen ||
           (focus != nullptr && (focus == state.*field.control || focus == state.*field.popup));
}

} // namespace

void DrawFieldChrome(Graphics &graphics, const FieldChrome &chrome) {
    constexpr float radius = 16;
    DrawRoundedPanel(graphics, {chrome.rect, radius, {Theme::field, FieldBorderColour(chrome.focused, chrome.quiet)}});
}

void PaintScene(HWND window, const LauncherState &state, HDC dc) {
    RECT client{};
    GetClientRect(window, &client);
    Graphics graphics{dc};
    SetSceneQuality(graphics);
    FillBar(graphics, client, Theme::windowBase);
    DrawCards(graphics, state);
    for (const SceneField &field : sceneFields) {
        DrawFieldChrome(graphics, {state.layout.*field.rect, HasFocus(state, field), field.quiet});
    }
    DrawTexts(dc, state);
}

void PaintLauncherWindow(HWND window, const LauncherState *state) {
    const PaintScope paint{window};
    if (state == nullptr) {
        return;
    }
    RECT client{};
    GetClientRect(window, &client);
    const MemoryCanvas canvas{paint.dc(), {client.right - client.left, client.bottom - client.top}};
    PaintScene(window, *state, canvas.dc());
    canvas.CopyTo(paint.dc());
}

} // namespace ovrin

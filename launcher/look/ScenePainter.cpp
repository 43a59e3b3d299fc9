#include "launcher/look/ScenePainter.h"

#include "launcher/look/Drawing.h"
#include "launcher/look/Theme.h"

namespace ovrin {

namespace {

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

void PaintSceneText(HDC dc, const LauncherState &state, const SceneText &text) {
    DrawTextRun(dc, state.layout.*text.rect, {text.text, (state.*text.font).get(), text.colour, text.format});
}

void PaintScene(HDC dc, const RECT &client, const LauncherState &state) {
    const LauncherLayout &layout = state.layout;
    FillArea(dc, client, Theme::windowBase);
    FillArea(dc, layout.newProjectCardRect, Theme::newProjectCard);
    FillArea(dc, layout.recentCardRect, Theme::recentCard);
    for (const RECT *frame :
         {&layout.nameFieldRect, &layout.templateFieldRect, &layout.locationFieldRect, &layout.recentFrameRect}) {
        FillArea(dc, *frame, Theme::field);
    }
    for (const SceneText &text : sceneTexts) {
        PaintSceneText(dc, state, text);
    }
    if (state.recentProjects.empty()) {
        PaintSceneText(dc, state, emptyStateText);
    }
}

} // namespace

void PaintLauncherWindow(HWND window, const LauncherState *state) {
    const PaintScope paint{window};
    if (state == nullptr) {
        return;
    }
    RECT client{};
    GetClientRect(window, &client);
    const MemoryCanvas canvas{paint.dc(), {client.right - client.left, client.bottom - client.top}};
    PaintScene(canvas.dc(), client, *state);
    canvas.CopyTo(paint.dc());
}

} // namespace ovrin

#include "launcher/CommandRouting.h"

#include "launcher/FieldChrome.h"
#include "launcher/TemplateSelector.h"
#include "launcher/workflows/CreateProject.h"
#include "launcher/workflows/OpenProject.h"
#include "launcher/workflows/ProjectDialogs.h"
#include "launcher/workflows/RecentListView.h"

namespace ovrin {

namespace {

void OnRecentList(HWND window, LauncherState &state, WORD notification) {
    CloseTemplatePopup(state);
    switch (notification) {
    case LBN_DBLCLK: OpenSelectedProject(window, state); break;
    case LBN_SETFOCUS:
    case LBN_KILLFOCUS: InvalidateFieldChrome(state, state.recentList); break;
    default: break;
    }
}

void OnTemplateFace(LauncherState &state, WORD notification) {
    switch (notification) {
    case BN_CLICKED: state.templatePopupOpen ? CloseTemplatePopup(state) : OpenTemplatePopup(state); break;
    case BN_SETFOCUS:
    case BN_KILLFOCUS: InvalidateFieldChrome(state, state.templateButton); break;
    default: break;
    }
}

void OnTemplatePopup(LauncherState &state, WORD notification) {
    switch (notification) {
    case LBN_SELCHANGE:
    case LBN_DBLCLK:
        CommitTemplateChoice(state);
        SetFocus(state.templateButton);
        break;
    case LBN_SETFOCUS:
    case LBN_KILLFOCUS: InvalidateFieldChrome(state, state.templatePopup); break;
    default: break;
    }
}

// The six action buttons act on any notification, the second press of a double click included.
struct ActionCommand {
    int id;
    void (*run)(HWND window, LauncherState &state);
};

constexpr ActionCommand actionCommands[] = {
    {ControlId::browse, [](HWND, LauncherState &state) { BrowseForLocation(state); }},
    {ControlId::createProject, CreateProject},
    {ControlId::openSelected, OpenSelectedProject},
    {ControlId::openProject, [](HWND window, LauncherState &) { OpenProjectFromDialog(window); }},
    {ControlId::removeMissing, [](HWND, LauncherState &state) { RemoveMissingProjects(state); }},
};

void OnAction(HWND window, LauncherState &state, WORD id) {
    for (const ActionCommand &command : actionCommands) {
        if (command.id == id) {
            CloseTemplatePopup(state);
            command.run(window, state);
            return;
        }
    }
}

} // namespace

void RouteCommand(HWND window, LauncherState &state, WORD id, WORD notification) {
    switch (id) {
    case ControlId::recentList: OnRecentList(window, state, notification); break;
    case ControlId::templateFace: OnTemplateFace(state, notification); break;
    case ControlId::templatePopup: OnTemplatePopup(state, notification); break;
    case ControlId::quit: DestroyWindow(window); break;
    default: OnAction(window, state, id); break;
    }
}

} // namespace ovrin

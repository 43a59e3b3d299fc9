#include "launcher/LauncherControls.h"

#include "launcher/ControlProcedures.h"
#include "launcher/TemplateSelector.h"
#include "launcher/workflows/FormInput.h"
#include "launcher/workflows/ProjectTemplates.h"
#include "platform/text/NarrowPath.h"
#include "platform/winapi/Accessibility.h"

#include <vector>

namespace ovrin {

namespace {

constexpr DWORD childStyles = WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP;
constexpr DWORD editStyles = childStyles | WS_VISIBLE | ES_AUTOHSCROLL;
constexpr DWORD buttonStyles = childStyles | WS_VISIBLE | BS_OWNERDRAW;
constexpr DWORD popupStyles = childStyles | LBS_NOTIFY | LBS_OWNERDRAWFIXED | LBS_NOINTEGRALHEIGHT;
constexpr DWORD listStyles = popupStyles | WS_VISIBLE | WS_VSCROLL;

constexpr UINT_PTR subclassId = 1;

constexpr const WideChar *edit = WIDE("EDIT");
constexpr const WideChar *button = WIDE("BUTTON");
constexpr const WideChar *list = WIDE("LISTBOX");

constexpr std::array<LauncherControl, 11> controls{{
    {ControlId::projectName, &LauncherState::projectNameEdit, edit, editStyles, WIDE(""), WIDE("Project name"),
     WIDE("Project Name"), InputSubclassProc},
    {ControlId::templateFace, &LauncherState::templateButton, button, buttonStyles | BS_NOTIFY, WIDE(""), nullptr,
     WIDE("Template"), ButtonSubclassProc},
    {ControlId::location, &LauncherState::locationEdit, edit, editStyles, WIDE(""), WIDE("Project folder"),
     WIDE("Location"), InputSubclassProc},
    {ControlId::browse, &LauncherState::browseButton, button, buttonStyles, WIDE("Browse"), nullptr, nullptr,
     ButtonSubclassProc},
    {ControlId::createProject, &LauncherState::createButton, button, buttonStyles, WIDE("Create Project"), nullptr,
     nullptr, ButtonSubclassProc},
    {ControlId::recentList, &LauncherState::recentList, list, listStyles, nullptr, nullptr, WIDE("Recent Projects"),
     InputSubclassProc},
    {ControlId::openSelected, &LauncherState::openSelectedButton, button, buttonStyles, WIDE("Open Selected"), nullptr,
     nullptr, ButtonSubclassProc},
    {ControlId::openProject, &LauncherState::openProjectButton, button, buttonStyles, WIDE("Open Project..."), nullptr,
     nullptr, ButtonSubclassProc},
    {ControlId::removeMissing, &LauncherState::removeMissingButton, button, buttonStyles, WIDE("Remove Missing"),
     nullptr, nullptr, ButtonSubclassProc},
    {ControlId::quit, &LauncherState::quitButton, button, buttonStyles, WIDE("Quit"), nullptr, nullptr,
     ButtonSubclassProc},
    {ControlId::templatePopup, &LauncherState::templatePopup, list, popupStyles, nullptr, nullptr, WIDE("Templates"),
     InputSubclassProc},
}};

void InstallProcedures(LauncherState &state, SUBCLASSPROC procedure) {
    for (const LauncherControl &control : controls) {
        if (control.procedure == procedure) {
            SetWindowSubclass(state.*control.handle, procedure, subclassId, reinterpret_cast<DWORD_PTR>(&state));
        }
    }
}

HWND CreateControl(HWND parent, const LauncherControl &control, const WideChar *text) {
    const auto id = reinterpret_cast<HMENU>(static_cast<INT_PTR>(control.id));
    return CreateWindowExW(0, control.className, text, control.style, 0, 0, 0, 0, parent, id, nullptr, nullptr);
}

void CreateControls(LauncherState &state) {
    const WideText location = WideFromPath(DefaultProjectLocation());
    for (const LauncherControl &control : controls) {
        const bool isLocation = control.id == ControlId::location;
        state.*control.handle = CreateControl(state.mainWindow, control, isLocation ? location.c_str() : control.text);
    }
}

void ShowCueBanners(const LauncherState &state) {
    for (const LauncherControl &control : controls) {
        if (control.cueBanner != nullptr) {
            SendMessageW(state.*control.handle, EM_SETCUEBANNER, 0, reinterpret_cast<LPARAM>(control.cueBanner));
        }
    }
}

void FillTemplatePopup(const LauncherState &state) {
    for (const ProjectTemplate &row : projectTemplates) {
        SendMessageW(state.templatePopup, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.label.data()));
    }
    SendMessageW(state.templatePopup, LB_SETITEMHEIGHT, 0, templateRowHeight);
    SendMessageW(state.templatePopup, LB_SETCURSEL, 0, 0);
}

void SetControlFonts(const LauncherState &state) {
    for (const LauncherControl &control : controls) {
        if (const HWND window = state.*control.handle) {
            SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(state.bodyFont.get()), TRUE);
        }
    }
}

void NameForScreenReaders(const LauncherState &state) {
    std::vector<AccessibleName> names;
    for (const LauncherControl &control : controls) {
        if (control.accessibleName != nullptr) {
            names.push_back({state.*control.handle, control.accessibleName});
        }
    }
    SetAccessibleNames(names);
}

void MoveControl(HWND control, const RECT &rect) {
    MoveWindow(control, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, TRUE);
}

void PlaceTemplatePopup(const LauncherState &state) {
    MoveControl(state.templatePopup, state.layout.templatePopupRect);
    SendMessageW(state.templatePopup, LB_SETITEMHEIGHT, 0, templateRowHeight);
    ShowWindow(state.templatePopup, state.templatePopupOpen ? SW_SHOWNA : SW_HIDE);
}

} // namespace

const std::array<LauncherControl, 11> &LauncherControls() {
    return controls;
}

void CreateLauncherControls(LauncherState &state) {
    CreateControls(state);
    ShowCueBanners(state);
    FillTemplatePopup(state);
    SetControlFonts(state);
    InstallProcedures(state, ButtonSubclassProc);
    InstallProcedures(state, InputSubclassProc);
    NameForScreenReaders(state);
}

void ApplyLauncherLayout(LauncherState &state) {
    RECT client{};
    GetClientRect(state.mainWindow, &client);
    state.layout = ComputeLauncherLayout(client);
    const LauncherLayout &layout = state.layout;

    MoveControl(state.projectNameEdit, layout.nameEditRect);
    MoveControl(state.templateButton, layout.templateFaceRect);
    PlaceTemplatePopup(state);
    MoveControl(state.locationEdit, layout.locationEditRect);
    MoveControl(state.browseButton, layout.browseButtonRect);
    MoveControl(state.createButton, layout.createButtonRect);
    MoveControl(state.recentList, layout.recentListRect);
    SendMessageW(state.recentList, LB_SETITEMHEIGHT, 0, layout.recentRowHeight);
    MoveControl(state.openSelectedButton, layout.openSelectedButtonRect);
    MoveControl(state.openProjectButton, layout.openProjectButtonRect);
    MoveControl(state.removeMissingButton, layout.removeMissingButtonRect);
    MoveControl(state.quitButton, layout.quitButtonRect);
    if (state.templatePopupOpen) {
        RaiseTemplatePopup(state);
    }
}

} // namespace ovrin

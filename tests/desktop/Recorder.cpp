#include "tests/desktop/Recorder.h"

#include "launcher/LauncherControls.h"
#include "launcher/LauncherWindow.h"
#include "tests/desktop/DesktopDriver.h"

namespace ovrin {

// The entry, as it is compiled for these tests, registers this procedure in the place of LauncherWndProc.
LRESULT CALLBACK RecordingWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

namespace desktop {

namespace {

constexpr UINT_PTR recorderSubclass = 2;

struct Name {
    WPARAM value;
    std::string_view text;
};

constexpr Name controlNames[] = {{ControlId::projectName, "name"},   {ControlId::location, "location"},
                                 {ControlId::browse, "browse"},      {ControlId::createProject, "create"},
                                 {ControlId::recentList, "recent"},  {ControlId::openSelected, "open-selected"},
                                 {ControlId::openProject, "open"},   {ControlId::removeMissing, "remove-missing"},
                                 {ControlId::quit, "quit"},          {ControlId::templateFace, "face"},
                                 {ControlId::templatePopup, "popup"}};
constexpr Name buttonNotices[] = {
    {BN_CLICKED, "clicked"}, {BN_DOUBLECLICKED, "double-clicked"}, {BN_SETFOCUS, "focus"}, {BN_KILLFOCUS, "blur"}};
constexpr Name editNotices[] = {
    {EN_SETFOCUS, "focus"}, {EN_KILLFOCUS, "blur"}, {EN_CHANGE, "change"}, {EN_UPDATE, "update"}};
constexpr Name listNotices[] = {
    {LBN_SELCHANGE, "selection"}, {LBN_DBLCLK, "double-click"}, {LBN_SETFOCUS, "focus"}, {LBN_KILLFOCUS, "blur"}};
constexpr Name keyNames[] = {{VK_RETURN, "Enter"}, {VK_ESCAPE, "Escape"}, {VK_SPACE, "Space"}, {VK_TAB, "Tab"},
                             {VK_UP, "Up"},        {VK_DOWN, "Down"},     {VK_HOME, "Home"},   {VK_END, "End"}};

struct Recording {
    Recorder recorder;
    HWND window = nullptr;
    LauncherState *state = nullptr;
};
Recording *recording = nullptr; // of the run that is on

template<std::size_t size>
std::string_view NameIn(const Name (&names)[size], WPARAM value) {
    for (const Name &name : names) {
        if (name.value == value) {
            return name.text;
        }
    }
    return "?";
}

bool IsEdit(int id) {
    return id == ControlId::projectName || id == ControlId::location;
}

bool IsList(int id) {
    return id == ControlId::recentList || id == ControlId::templatePopup;
}

std::string_view NoticeName(int id, WORD notice) {
    if (IsEdit(id)) {
        return NameIn(editNotices, notice);
    }
    return IsList(id) ? NameIn(listNotices, notice) : NameIn(buttonNotices, notice);
}

std::string Joined(std::string_view who, std::string_view what) {
    std::string text{who};
    return text.append(" ").append(what);
}

std::string DrawnState(UINT state) {
    std::string text;
    text += (state & ODS_SELECTED) != 0 ? "selected " : "";
    text += (state & ODS_FOCUS) != 0 ? "focused " : "";
    text += (state & ODS_DISABLED) != 0 ? "disabled " : "";
    return text.empty() ? "plain" : text.substr(0, text.size() - 1);
}

LRESULT CALLBACK RecordingControlProc(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR /*id*/,
                                      DWORD_PTR /*data*/) {
    if (recording != nullptr) {
        recording->recorder.SeeControlMessage(control, message, wParam);
    }
    return DefSubclassProc(control, message, wParam, lParam);
}

std::string MeasuredLine(LPARAM lParam) {
    const auto *item = reinterpret_cast<const MEASUREITEMSTRUCT *>(lParam);
    return Joined(Joined("measured", ControlName(static_cast<int>(item->CtlID))), std::to_string(item->itemHeight));
}

} // namespace

std::string_view ControlName(int id) {
    return NameIn(controlNames, static_cast<WPARAM>(id));
}

HWND ControlNamed(const LauncherState &state, std::string_view name) {
    for (const LauncherControl &control : LauncherControls()) {
        if (ControlName(control.id) == name) {
            return state.*control.handle;
        }
    }
    return state.mainWindow;
}

std::vector<std::string> Recorder::TakeLines() {
    std::vector<std::string> taken = std::exchange(lines_, {});
    if (!held_ && std::exchange(mouseOverTold_, mouseOver_) != mouseOver_) {
        taken.push_back(Joined("mouse over", mouseOver_ != 0 ? ControlName(mouseOver_) : "no button"));
    }
    for (const auto &[item, state] : drawn_) {
        if (std::exchange(told_[item], state) != state) {
            const auto &[id, row] = item;
            const std::string who = Joined("drawn", ControlName(id));
            taken.push_back(Joined(IsList(id) ? Joined(who, std::to_string(static_cast<int>(row))) : who, state));
        }
    }
    return taken;
}

void Recorder::WatchControls(const LauncherState &state) {
    for (const LauncherControl &control : LauncherControls()) {
        SetWindowSubclass(state.*control.handle, RecordingControlProc, recorderSubclass, 0);
    }
}

void Recorder::SeeWindowMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto packed = static_cast<DWORD_PTR>(lParam);
    const auto pair = [&](char between) {
        return std::to_string(static_cast<SHORT>(LOWORD(packed))) + between +
               std::to_string(static_cast<SHORT>(HIWORD(packed)));
    };
    switch (message) {
    case WM_NCCREATE: return Note("window created, frame");
    case WM_CREATE: return Note("window created");
    case WM_DESTROY: drawn_.clear(); return Note("window destroyed");
    case WM_CLOSE: return Note("window close");
    case WM_SIZE: return Note((wParam == SIZE_MINIMIZED ? "window minimised " : "window size ") + pair('x'));
    case WM_ACTIVATEAPP: return Note(wParam != 0 ? "application active" : "application inactive");
    case WM_LBUTTONDOWN: return Note("window press " + pair(','));
    case WM_DRAWITEM: return SeeDrawing(reinterpret_cast<const DRAWITEMSTRUCT *>(lParam));
    case WM_COMMAND: return SeeCommand(wParam);
    default: SeeFocusOrKey("window", message, wParam);
    }
}

void Recorder::SeeControlMessage(HWND control, UINT message, WPARAM wParam) {
    const int id = GetDlgCtrlID(control);
    SeeMouse(id, message);
    SeeFocusOrKey(ControlName(id), message, wParam);
}

void Recorder::SeeDrawing(const DRAWITEMSTRUCT *item) {
    if (item != nullptr) {
        const bool row = item->CtlType == ODT_LISTBOX;
        drawn_[{static_cast<int>(item->CtlID), row ? item->itemID : 0U}] = DrawnState(item->itemState);
    }
}

void Recorder::SeeCommand(WPARAM wParam) {
    const int id = LOWORD(wParam);
    Note(Joined(Joined("command", ControlName(id)), NoticeName(id, HIWORD(wParam))));
}

void Recorder::SeeFocusOrKey(std::string_view who, UINT message, WPARAM wParam) {
    if (message == WM_SETFOCUS || message == WM_KILLFOCUS) {
        Note(Joined(who, message == WM_SETFOCUS ? "focus" : "blur"));
    } else if (message == WM_KEYDOWN && NameIn(keyNames, wParam) != "?") {
        Note(Joined(Joined(who, "key"), NameIn(keyNames, wParam)));
    }
}

// Only the buttons follow the mouse.
void Recorder::SeeMouse(int id, UINT message) {
    if (IsEdit(id) || IsList(id)) {
        return;
    }
    if (message == WM_LBUTTONDOWN || message == WM_LBUTTONUP) {
        held_ = message == WM_LBUTTONDOWN;
    } else if (message == WM_MOUSEMOVE) {
        mouseOver_ = id;
    } else if (message == WM_MOUSELEAVE && mouseOver_ == id) {
        mouseOver_ = 0;
    }
}

int RunLauncher(const std::function<void(const LauncherRun &)> &act) {
    Recording run;
    recording = &run;
    CallFromLoop([&] {
        act({.window = run.window, .state = *run.state, .recorder = run.recorder});
        if (IsWindow(run.window) != 0) {
            DestroyWindow(run.window);
        }
    });
    const int exitCode = RunEntry();
    recording = nullptr;
    return exitCode;
}

} // namespace desktop

LRESULT CALLBACK RecordingWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    using desktop::recording;
    if (message == WM_NCCREATE && recording->window == nullptr) {
        recording->window = window;
        recording->state =
            static_cast<LauncherState *>(reinterpret_cast<const CREATESTRUCTW *>(lParam)->lpCreateParams);
    }
    recording->recorder.SeeWindowMessage(message, wParam, lParam);
    const LRESULT result = LauncherWndProc(window, message, wParam, lParam);
    if (message == WM_MEASUREITEM) {
        recording->recorder.Note(desktop::MeasuredLine(lParam));
    }
    if (message == WM_CREATE && result == 0) {
        desktop::Recorder::WatchControls(*recording->state);
    }
    return result;
}

} // namespace ovrin

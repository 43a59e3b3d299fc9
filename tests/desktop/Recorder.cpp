#include "tests/desktop/Recorder.h"

#include "launcher/LauncherControls.h"
#include "launcher/LauncherWindow.h"
#include "tests/desktop/DesktopDriver.h"

#include <algorithm>
#include <stdexcept>

namespace ovrin {

// The entry, as it is compiled for these tests, registers this procedure in the place of LauncherWndProc.
LRESULT CALLBACK RecordingWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

namespace desktop {

namespace {

constexpr UINT_PTR recorderSubclass = 2;

constexpr KnownControl knownControls[] = {
    {"name", ControlId::projectName, Kind::Edit, &LauncherLayout::nameEditRect},
    {"location", ControlId::location, Kind::Edit, &LauncherLayout::locationEditRect},
    {"browse", ControlId::browse, Kind::Button, &LauncherLayout::browseButtonRect},
    {"create", ControlId::createProject, Kind::Button, &LauncherLayout::createButtonRect},
    {"recent", ControlId::recentList, Kind::List, &LauncherLayout::recentListRect},
    {"open-selected", ControlId::openSelected, Kind::Button, &LauncherLayout::openSelectedButtonRect},
    {"open", ControlId::openProject, Kind::Button, &LauncherLayout::openProjectButtonRect},
    {"remove-missing", ControlId::removeMissing, Kind::Button, &LauncherLayout::removeMissingButtonRect},
    {"quit", ControlId::quit, Kind::Button, &LauncherLayout::quitButtonRect},
    {"face", ControlId::templateFace, Kind::Button, &LauncherLayout::templateFaceRect},
    {"popup", ControlId::templatePopup, Kind::List, &LauncherLayout::templatePopupRect}};

struct Name {
    std::string_view text;
    WPARAM value;
};
using Names = std::vector<Name>;
const std::map<Kind, Names> notices = {
    {Kind::Button,
     {{"clicked", BN_CLICKED}, {"double-clicked", BN_DOUBLECLICKED}, {"focus", BN_SETFOCUS}, {"blur", BN_KILLFOCUS}}},
    {Kind::Edit, {{"focus", EN_SETFOCUS}, {"blur", EN_KILLFOCUS}, {"change", EN_CHANGE}, {"update", EN_UPDATE}}},
    {Kind::List,
     {{"selection", LBN_SELCHANGE}, {"double-click", LBN_DBLCLK}, {"focus", LBN_SETFOCUS}, {"blur", LBN_KILLFOCUS}}}};
const Names keys = {{"Enter", VK_RETURN}, {"Escape", VK_ESCAPE}, {"Space", VK_SPACE}, {"Tab", VK_TAB},
                    {"Up", VK_UP},        {"Down", VK_DOWN},     {"Home", VK_HOME},   {"End", VK_END}};

LauncherRun *running = nullptr;

template<typename Table, typename Value, typename Member>
const auto &Find(const Table &table, const Value &value, Member member) {
    const auto found = std::ranges::find(table, value, member);
    return found != std::end(table) ? *found : throw std::out_of_range{"a name that the tests don't know"};
}

std::string DrawnState(UINT state) {
    std::string text = (state & ODS_SELECTED) != 0 ? " selected" : "";
    text += (state & ODS_FOCUS) != 0 ? " focused" : "";
    text += (state & ODS_DISABLED) != 0 ? " disabled" : "";
    return text.empty() ? "plain" : text.substr(1);
}

LRESULT CALLBACK RecordingControlProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR /*id*/,
                                      DWORD_PTR /*data*/) {
    if (running != nullptr) {
        running->recorder.SeeControlMessage(ControlWithId(GetDlgCtrlID(window)), message, wParam);
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

} // namespace

const KnownControl &ControlWithId(int id) {
    return Find(knownControls, id, &KnownControl::id);
}

const KnownControl &ControlNamed(std::string_view name) {
    return Find(knownControls, name, &KnownControl::name);
}

WPARAM KeyNamed(std::string_view name) {
    return Find(keys, name, &Name::text).value;
}

std::string Line(std::initializer_list<std::string_view> words) {
    std::string line;
    for (const std::string_view word : words) {
        line.append(line.empty() || word.empty() ? "" : " ").append(word);
    }
    return line;
}

std::vector<std::string> Recorder::TakeLines() {
    std::vector<std::string> taken = std::exchange(lines_, {});
    if (!held_ && std::exchange(mouseOverTold_, mouseOver_) != mouseOver_) {
        taken.push_back(Line({"mouse over", mouseOver_}));
    }
    for (const auto &[item, state] : drawn_) {
        if (std::exchange(told_[item], state) != state) {
            const KnownControl &control = ControlWithId(item.first);
            const std::string row = control.kind == Kind::List ? std::to_string(item.second) : "";
            taken.push_back(Line({"drawn", control.name, row, state}));
        }
    }
    return taken;
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
    case WM_COMMAND: return SeeCommand(ControlWithId(LOWORD(wParam)), HIWORD(wParam));
    default: SeeFocusOrKey("window", message, wParam);
    }
}

void Recorder::SeeDrawing(const DRAWITEMSTRUCT *item) {
    if (item != nullptr) {
        const UINT row = item->CtlType == ODT_LISTBOX ? item->itemID : 0;
        drawn_[{static_cast<int>(item->CtlID), row}] = DrawnState(item->itemState);
    }
}

void Recorder::SeeCommand(const KnownControl &control, WORD notice) {
    Note(Line({"command", control.name, Find(notices.at(control.kind), notice, &Name::value).text}));
}

void Recorder::SeeControlMessage(const KnownControl &control, UINT message, WPARAM wParam) {
    if (control.kind == Kind::Button) { // no other follows the mouse
        SeeMouse(control.name, message);
    }
    SeeFocusOrKey(control.name, message, wParam);
}

void Recorder::SeeFocusOrKey(std::string_view who, UINT message, WPARAM wParam) {
    const auto key = std::ranges::find(keys, wParam, &Name::value);
    if (message == WM_SETFOCUS || message == WM_KILLFOCUS) {
        Note(Line({who, message == WM_SETFOCUS ? "focus" : "blur"}));
    } else if (message == WM_KEYDOWN && key != keys.end()) {
        Note(Line({who, "key", key->text}));
    }
}

void Recorder::SeeMouse(std::string_view button, UINT message) {
    if (message == WM_LBUTTONDOWN || message == WM_LBUTTONUP) {
        held_ = message == WM_LBUTTONDOWN;
    } else if (message == WM_MOUSEMOVE) {
        mouseOver_ = button;
    } else if (message == WM_MOUSELEAVE && mouseOver_ == button) {
        mouseOver_ = "no button";
    }
}

int RunLauncher(const std::function<void(LauncherRun &)> &act) {
    LauncherRun run;
    running = &run;
    const int exitCode = RunEntry([&] {
        act(run);
        if (IsWindow(run.window) != 0) {
            DestroyWindow(run.window);
        }
    });
    running = nullptr;
    return exitCode;
}

} // namespace desktop

LRESULT CALLBACK RecordingWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    auto &[first, state, recorder] = *desktop::running;
    if (message == WM_NCCREATE && first == nullptr) {
        first = window;
        state = static_cast<LauncherState *>(reinterpret_cast<const CREATESTRUCTW *>(lParam)->lpCreateParams);
    }
    recorder.SeeWindowMessage(message, wParam, lParam);
    const LRESULT result = LauncherWndProc(window, message, wParam, lParam);
    if (message == WM_MEASUREITEM) {
        const auto &[type, id, row, width, height, data] = *reinterpret_cast<const MEASUREITEMSTRUCT *>(lParam);
        recorder.Note(
            desktop::Line({"measured", desktop::ControlWithId(static_cast<int>(id)).name, std::to_string(height)}));
    }
    if (message == WM_CREATE && result == 0) {
        for (const LauncherControl &control : LauncherControls()) {
            SetWindowSubclass(state->*control.handle, desktop::RecordingControlProc, desktop::recorderSubclass, 0);
        }
    }
    return result;
}

} // namespace ovrin

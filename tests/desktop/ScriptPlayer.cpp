#include "tests/desktop/ScriptPlayer.h"

#include "launcher/LauncherControls.h"
#include "launcher/workflows/EditorLaunch.h"
#include "launcher/workflows/RecentListView.h"
#include "tests/desktop/DesktopDriver.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <stdexcept>

namespace ovrin::desktop {

namespace {

// What a window manager makes of it is done here at once, whether one is there or not.
void Minimise(HWND window) {
    ShowWindow(window, SW_MINIMIZE);
    DeactivateApplication(window);
}

void Restore(HWND window) {
    ActivateApplication(window);
    ShowWindow(window, SW_RESTORE);
    Settle();
}

constexpr POINT nowhere{10, 10}; // in the window, over no control

const std::map<std::string, WPARAM> keys = {{"Enter", VK_RETURN}, {"Escape", VK_ESCAPE}, {"Space", VK_SPACE},
                                            {"Tab", VK_TAB},      {"Up", VK_UP},         {"Down", VK_DOWN},
                                            {"Home", VK_HOME},    {"End", VK_END}};

const std::map<std::string_view, RECT LauncherLayout::*> places = {
    {"name", &LauncherLayout::nameEditRect},          {"location", &LauncherLayout::locationEditRect},
    {"browse", &LauncherLayout::browseButtonRect},    {"create", &LauncherLayout::createButtonRect},
    {"recent", &LauncherLayout::recentListRect},      {"open-selected", &LauncherLayout::openSelectedButtonRect},
    {"open", &LauncherLayout::openProjectButtonRect}, {"remove-missing", &LauncherLayout::removeMissingButtonRect},
    {"quit", &LauncherLayout::quitButtonRect},        {"face", &LauncherLayout::templateFaceRect},
    {"popup", &LauncherLayout::templatePopupRect}};

std::string BoxLine(const MessageBoxSeen &box) {
    const std::map<UINT, std::string> icons = {
        {MB_ICONERROR, "error"}, {MB_ICONWARNING, "warning"}, {MB_ICONINFORMATION, "information"}};
    const auto icon = icons.find(box.icon);
    std::string line = "message box ";
    line.append(icon != icons.end() ? icon->second : "plain").append(": ");
    for (const WideChar unit : box.title) {
        line += static_cast<char>(unit);
    }
    return line;
}

std::string SelectorLine(const LauncherState &state) {
    const std::string line = state.templatePopupOpen ? "selector open, row " : "selector closed, row ";
    return line + std::to_string(state.selectedTemplate);
}

void PlayKey(const LauncherRun &run, std::istringstream &words) {
    std::string key;
    words >> key;
    std::string more;
    KeyPlace place = KeyPlace::Main;
    int presses = 1;
    while (words >> more) {
        if (more == "keypad") {
            place = KeyPlace::Keypad;
        } else {
            presses = std::stoi(more);
        }
    }
    PressKey(run.window, keys.at(key), place, presses);
}

} // namespace

ScriptPlayer::ScriptPlayer(const LauncherRun &run, const Sandbox &sandbox)
    : run_{run}, sandbox_{sandbox}, selector_{SelectorLine(run.state)} {
    OnMessageBox([this](const MessageBoxSeen &box) {
        run_.recorder.Note(BoxLine(box));
        if (const std::string step = std::exchange(stepInBox_, {}); !step.empty()) {
            PlayStep(step);
            run_.recorder.Note("message box answered");
        }
    });
}

ScriptPlayer::~ScriptPlayer() {
    OnMessageBox(nullptr);
}

std::vector<std::string> ScriptPlayer::Play(const std::string &step) {
    PlayStep(step);
    std::vector<std::string> lines = run_.recorder.TakeLines();
    const std::string selector = SelectorLine(run_.state);
    if (std::exchange(selector_, selector) != selector) {
        lines.push_back(selector);
    }
    return lines;
}

void ScriptPlayer::PlayStep(const std::string &step) {
    std::istringstream words{step};
    std::string verb;
    words >> verb;
    if (verb == "start") {
        return; // all that is asked for has been seen
    }
    if (verb == "key") {
        return PlayKey(run_, words);
    }
    std::string target;
    std::getline(words >> std::ws, target);
    if (!PlayMouse(verb, target)) {
        PlayOther(verb, target);
    }
    Settle();
    AwaitMouseLeave();
}

bool ScriptPlayer::PlayMouse(const std::string &verb, const std::string &target) {
    const std::map<std::string, void (*)(HWND, POINT)> verbs = {{"move", MoveMouse},
                                                                {"press", PressMouse},
                                                                {"release", ReleaseMouse},
                                                                {"double-click", DoubleClickMouse},
                                                                {"click", [](HWND window, POINT point) {
                                                                     PressMouse(window, point);
                                                                     ReleaseMouse(window, point);
                                                                 }}};
    const auto found = verbs.find(verb);
    if (found == verbs.end()) {
        return false;
    }
    mouse_ = PointOf(target);
    MoveMouse(run_.window, mouse_); // so that what it leaves is told first
    AwaitMouseLeave();
    pressed_ = verb == "press" || (pressed_ && verb == "move");
    found->second(run_.window, mouse_);
    return true;
}

void ScriptPlayer::PlayOther(const std::string &verb, const std::string &target) {
    const HWND window = run_.window;
    const HWND control = ControlNamed(run_.state, target);
    const std::map<std::string, std::function<void()>> verbs = {
        {"rows", [&] { FillRecentList(std::stoi(target)); }},
        {"in-box", [&] { stepInBox_ = target; }},
        {"type",
         [&] {
             TypeText(window, WideText{target.begin(), target.end()});
         }},
        {"minimise", [&] { Minimise(window); }},
        {"restore", [&] { Restore(window); }},
        {"deactivate", [&] { DeactivateApplication(window); }},
        {"activate", [&] { ActivateApplication(window); }},
        {"close", [&] { SendMessageW(window, WM_CLOSE, 0, 0); }},
        {"focus", [&] { SetFocus(control); }},
        {"hide", [&] { ShowWindow(control, SW_HIDE); }},
        {"show", [&] { ShowWindow(control, SW_SHOW); }},
        {"disable", [&] { EnableWindow(control, FALSE); }},
        {"enable", [&] { EnableWindow(control, TRUE); }},
        {"editors", [&] { NoteEditors(); }},
    };
    const auto found = verbs.find(verb);
    if (found == verbs.end()) {
        throw std::invalid_argument{"no such step: " + verb};
    }
    found->second();
}

// That the mouse has left a button may be told some time later, but not while a press holds the mouse.
void ScriptPlayer::AwaitMouseLeave() const {
    const bool left = PumpUntil([this] {
        const HWND hovered = run_.state.hoveredControl;
        if (pressed_ || hovered == nullptr || IsWindow(hovered) == 0) {
            return true;
        }
        const auto place = places.find(ControlName(GetDlgCtrlID(hovered)));
        return PtInRect(&(run_.state.layout.*place->second), mouse_) != 0;
    });
    if (!left) {
        run_.recorder.Note("the mouse never leaves");
    }
}

POINT ScriptPlayer::PointOf(const std::string &target) const {
    std::string name;
    std::istringstream parts{target};
    std::getline(parts, name, ':');
    POINT point = nowhere;
    char comma = 0;
    if (name == "window") {
        parts >> point.x >> comma >> point.y;
        return point;
    }
    const RECT &rect = run_.state.layout.*places.at(name);
    LONG row = 0;
    if (!(parts >> row)) {
        return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    }
    const LONG height = name == "popup" ? 40 : run_.state.layout.recentRowHeight;
    return {(rect.left + rect.right) / 2, rect.top + row * height + height / 2};
}

// What the editors were given that have been started; an editor of our own comes last, so that none is missed.
void ScriptPlayer::NoteEditors() const {
    const auto calls = [this] { return sandbox_.EditorCalls(); };
    const std::string last = "[last]";
    const bool started = PumpUntil([&] { return !calls().empty(); }) && LaunchEditor(nullptr, {WIDE("last")});
    if (!started || !PumpUntil([&] { return calls().back() == last; })) {
        run_.recorder.Note("no editor");
    }
    const std::string home = sandbox_.folder().Path().generic_string();
    for (std::string call : calls()) {
        std::replace(call.begin(), call.end(), '\\', '/');
        const std::size_t place = call.find(home);
        if (place != std::string::npos) {
            call = call.substr(0, place).append("~").append(call.substr(place + home.size()));
        }
        if (call != last) {
            run_.recorder.Note(std::string{"editor "}.append(call));
        }
    }
}

// Projects that exist, so that Remove Missing keeps them.
void ScriptPlayer::FillRecentList(int rows) {
    run_.state.recentProjects.clear();
    for (int row = 0; row < rows; ++row) {
        const std::string name = "Project" + std::to_string(row);
        run_.state.recentProjects.push_back({.path = sandbox_.folder().Make(name + ".oproject"), .name = name});
    }
    RefreshRecentList(run_.state);
}

} // namespace ovrin::desktop

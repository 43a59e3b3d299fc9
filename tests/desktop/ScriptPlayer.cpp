#include "tests/desktop/ScriptPlayer.h"

#include "launcher/workflows/EditorLaunch.h"
#include "launcher/workflows/FormInput.h"
#include "launcher/workflows/RecentListView.h"
#include "platform/text/TextConversion.h"

#include <algorithm>
#include <chrono>
#include <iomanip>

namespace ovrin::desktop {

namespace {

constexpr POINT nowhere{10, 10}; // in the window, over no control

const std::map<std::string, std::vector<MouseAct>> mouseVerbs = {
    {"move", {MouseAct::Move}},
    {"press", {MouseAct::Press}},
    {"release", {MouseAct::Release}},
    {"click", {MouseAct::Press, MouseAct::Release}},
    {"double-click", {MouseAct::Press, MouseAct::Release, MouseAct::PressAgain, MouseAct::Release}}};

// What a window manager makes of it is done here at once, whether one is there or not.
void Minimise(HWND window) {
    ShowWindow(window, SW_MINIMIZE);
    SetActive(window, false);
}

void Restore(HWND window) {
    SetActive(window, true);
    ShowWindow(window, SW_RESTORE);
    Settle();
}

// Handles messages until `condition` holds. False after a minute, which only a broken program reaches.
bool PumpUntil(const std::function<bool()> &condition) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes{1};
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) {
            return false;
        }
        Settle();
    }
    return true;
}

std::string SelectorLine(const LauncherState &state) {
    const std::string line = state.templatePopupOpen ? "selector open, row " : "selector closed, row ";
    return line + std::to_string(state.selectedTemplate);
}

// Style, size and text; without the style's parts that follow the content or that a platform adds to a main window.
std::string Facts(HWND window) {
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
    const DWORD others = WS_VISIBLE | WS_DISABLED | WS_VSCROLL | ((style & WS_CHILD) != 0 ? 0 : WS_CLIPSIBLINGS);
    RECT client{};
    GetClientRect(window, &client);
    std::ostringstream facts;
    facts << std::hex << (style & ~others) << std::dec << ' ' << client.right << 'x' << client.bottom
          << (IsWindowVisible(window) != 0 ? "" : " hidden") << (IsWindowEnabled(window) != 0 ? "" : " disabled")
          << " \"" << WideToUtf8(ReadFormText(window)) << '"';
    return facts.str();
}

} // namespace

ScriptPlayer::ScriptPlayer(LauncherRun &run, const Sandbox &sandbox)
    : run_(run), sandbox_(sandbox), selector_(SelectorLine(*run.state)) {
    OnMessageBox([this](const MessageBoxSeen &box) { AnswerBox(box); });
}

std::string ScriptPlayer::Play(const std::string &step) {
    if (!std::exchange(started_, true) && step != "start") { // the creation is told only where a script asks for it
        UseMouse(run_.window, nowhere, MouseAct::Move);
        static_cast<void>(run_.recorder.TakeLines());
    }
    PlayStep(step);
    std::string told;
    for (const std::string &line : run_.recorder.TakeLines()) {
        told += line + "\n";
    }
    const std::string selector = SelectorLine(*run_.state);
    return std::exchange(selector_, selector) == selector ? told : told.append(selector) + "\n";
}

void ScriptPlayer::PlayStep(const std::string &step) {
    std::string verb, target;
    std::istringstream words{step};
    words >> verb;
    std::getline(words >> std::ws, target);
    const auto rest = [&] { return std::istringstream{target}; };
    const std::map<std::string, std::function<void()>> verbs = {
        {"start", [] {}}, // all that is asked for has been seen
        {"key", [&] { PlayKey(rest()); }},
        {"type", [&] { TypeText(run_.window, Utf8ToWide(target)); }},
        {"text", [&] { SetText(rest()); }},
        {"rows", [&] { FillRecentList(std::stoi(target)); }},
        {"long-row", [&] { AddLongRow(); }},
        {"in-box", [&] { stepInBox_ = target; }},
        {"minimise", [&] { Minimise(run_.window); }},
        {"restore", [&] { Restore(run_.window); }},
        {"deactivate", [&] { SetActive(run_.window, false); }},
        {"activate", [&] { SetActive(run_.window, true); }},
        {"close", [&] { SendMessageW(run_.window, WM_CLOSE, 0, 0); }},
        {"focus", [&] { SetFocus(HandleOf(target)); }},
        {"hide", [&] { ShowWindow(HandleOf(target), SW_HIDE); }},
        {"show", [&] { ShowWindow(HandleOf(target), SW_SHOWNA); }},
        {"disable", [&] { EnableWindow(HandleOf(target), FALSE); }},
        {"enable", [&] { EnableWindow(HandleOf(target), TRUE); }},
        {"editors", [&] { NoteEditors(); }},
        {"make", [&] { MakeFile(rest()); }},
        {"files", [&] { NoteFiles(); }},
        {"facts", [&] { NoteControls(rest()); }},
        {"scene", [&] { picture_.PaintScene(); }},
        {"item", [&] { picture_.PaintItem(rest()); }},
        {"across", [&] { run_.recorder.Note(picture_.Across(target)); }},
        {"down", [&] { run_.recorder.Note(picture_.Down(target)); }},
        {"area", [&] { run_.recorder.Note(picture_.Area(rest())); }},
        {"changed", [&] { run_.recorder.Note(picture_.Changed()); }},
    };
    const auto mouse = mouseVerbs.find(verb);
    mouse != mouseVerbs.end() ? PlayMouse(mouse->second, target) : verbs.at(verb)();
    Settle();
    AwaitMouseLeave();
}

void ScriptPlayer::PlayMouse(const std::vector<MouseAct> &acts, const std::string &target) {
    mouse_ = PointOf(target);
    UseMouse(run_.window, mouse_, MouseAct::Move); // so that what it leaves is told first
    AwaitMouseLeave();
    for (const MouseAct act : acts) {
        pressed_ = act == MouseAct::Press || (pressed_ && act == MouseAct::Move);
        UseMouse(run_.window, mouse_, act);
    }
}

void ScriptPlayer::PlayKey(std::istringstream words) const {
    std::string key, more;
    words >> key;
    KeyPlace place = KeyPlace::Main;
    int presses = 1;
    while (words >> more) {
        more == "keypad" ? void(place = KeyPlace::Keypad) : void(presses = std::stoi(more));
    }
    PressKey(run_.window, KeyNamed(key), place, presses);
}

void ScriptPlayer::AnswerBox(const MessageBoxSeen &box) {
    // What follows these words is the system's.
    constexpr std::string_view systems = "create_directories: ...";
    const std::string text = WideToUtf8(box.text), buttons = std::to_string(box.buttons);
    run_.recorder.Note(Line({"message box:", box.icon, "with", buttons, "button,", WideToUtf8(box.title)}));
    run_.recorder.Note(Line({"says:", text.starts_with(systems.substr(0, 20)) ? systems : text}));
    if (const std::string step = std::exchange(stepInBox_, {}); !step.empty()) {
        PlayStep(step);
        run_.recorder.Note("message box answered");
    }
}

void ScriptPlayer::SetText(std::istringstream words) const {
    std::string name, text;
    words >> name >> std::quoted(text);
    if (text.starts_with('~')) {
        text.replace(0, 1, NarrowFromPathLenient(sandbox_.folder().Path()));
    }
    SetWindowTextW(HandleOf(name), Utf8ToWide(text).c_str());
}

// That the mouse has left a button may be told some time later, but not while a press holds the mouse.
void ScriptPlayer::AwaitMouseLeave() {
    const bool left = PumpUntil([this] {
        const HWND hovered = run_.state->hoveredControl;
        return pressed_ || hovered == nullptr || IsWindow(hovered) == 0 ||
               PtInRect(&(run_.state->layout.*ControlWithId(GetDlgCtrlID(hovered)).place), mouse_) != 0;
    });
    if (!left) {
        run_.recorder.Note("the mouse never leaves");
    }
}

std::string ScriptPlayer::Shown(std::string text) const {
    std::ranges::replace(text, '\\', '/');
    const std::string home = sandbox_.folder().Path().generic_string();
    const std::size_t place = text.find(home);
    return place == std::string::npos ? text : text.erase(place, home.size()).insert(place, 1, '~');
}

HWND ScriptPlayer::HandleOf(const std::string &name) const {
    return name == "window" ? run_.window : GetDlgItem(run_.window, ControlNamed(name).id);
}

POINT ScriptPlayer::PointOf(const std::string &target) const {
    std::string name;
    std::istringstream parts{target};
    std::getline(parts, name, ':');
    if (name == "window") {
        POINT point{};
        parts >> point.x;
        parts.ignore() >> point.y;
        return point;
    }
    const RECT &rect = run_.state->layout.*ControlNamed(name).place;
    LONG row = 0;
    const LONG x = (rect.left + rect.right) / 2;
    if (!(parts >> row)) {
        return {x, (rect.top + rect.bottom) / 2};
    }
    const LONG height = name == "popup" ? 40 : run_.state->layout.recentRowHeight;
    return {x, rect.top + row * height + height / 2};
}

// What the editors were given that have been started; an editor of our own comes last, so that none is missed.
void ScriptPlayer::NoteEditors() {
    const auto calls = [this] { return sandbox_.EditorCalls(); };
    const bool started = PumpUntil([&] { return !calls().empty(); }) && LaunchEditor(nullptr, {WIDE("last")});
    if (!started || !PumpUntil([&] { return calls().back() == "[last]"; })) {
        run_.recorder.Note("no editor");
    }
    for (const std::string &call : calls()) {
        if (call != "[last]") {
            run_.recorder.Note(Line({"editor", Shown(call)}));
        }
    }
}

void ScriptPlayer::MakeFile(std::istringstream words) const {
    std::string path, content;
    words >> path >> content;
    sandbox_.folder().Make(path, content);
}

void ScriptPlayer::NoteFiles() {
    std::vector<std::string> entries;
    for (const auto &entry : std::filesystem::recursive_directory_iterator{sandbox_.folder().Path()}) {
        entries.push_back(Shown(NarrowFromPathLenient(entry.path())));
    }
    std::ranges::sort(entries);
    std::ranges::for_each(entries, [this](const std::string &entry) { run_.recorder.Note(Line({"file", entry})); });
}

void ScriptPlayer::NoteControls(std::istringstream names) {
    for (std::string name; names >> name;) {
        const HWND control = HandleOf(name);
        run_.recorder.Note(Line({name, Shown(Facts(control))}));
        if (name != "window" && ControlNamed(name).kind == Kind::List) {
            run_.recorder.Note(Line({name, "rows", std::to_string(SendMessageW(control, LB_GETCOUNT, 0, 0)), "of",
                                     std::to_string(SendMessageW(control, LB_GETITEMHEIGHT, 0, 0))}));
        }
    }
}

void ScriptPlayer::AddLongRow() const {
    run_.state->recentProjects.push_back(
        {.path = std::string(300, 'p') + "/W.oproject", .name = std::string(300, 'W')});
}

// Projects that exist, so that Remove Missing keeps them.
void ScriptPlayer::FillRecentList(int rows) {
    run_.state->recentProjects.clear();
    for (int row = 0; row < rows; ++row) {
        const std::string name = "Project" + std::to_string(row);
        run_.state->recentProjects.push_back({.path = sandbox_.folder().Make(name + ".oproject"), .name = name});
    }
    RefreshRecentList(*run_.state);
}

} // namespace ovrin::desktop

// Writes down, as symbolic lines, what the launcher's procedures see: it stands in front of the window procedure from
// the first message on, and in front of every control procedure.
#pragma once

#include "launcher/LauncherState.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ovrin::desktop {

// The short name of a control in scripts and transcripts; the main window is "window".
[[nodiscard]] std::string_view ControlName(int id);
[[nodiscard]] HWND ControlNamed(const LauncherState &state, std::string_view name);

class Recorder {
public:
    void Note(std::string line) { lines_.push_back(std::move(line)); }
    // What was seen since the last call, in order; then the button that the mouse is over, and each owner-drawn item,
    // where they differ from what was told last. These are told by their outcome, since the platform chooses the
    // moments of drawing and of telling that the mouse has left; while a button is held the latter isn't told at all.
    [[nodiscard]] std::vector<std::string> TakeLines();

    static void WatchControls(const LauncherState &state);
    void SeeWindowMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void SeeControlMessage(HWND control, UINT message, WPARAM wParam);

private:
    using Item = std::pair<int, UINT>; // control id and row

    void SeeDrawing(const DRAWITEMSTRUCT *item);
    void SeeCommand(WPARAM wParam);
    void SeeFocusOrKey(std::string_view who, UINT message, WPARAM wParam);
    void SeeMouse(int id, UINT message);

    std::vector<std::string> lines_;
    std::map<Item, std::string> told_;
    std::map<Item, std::string> drawn_;
    int mouseOver_ = 0; // id of the button
    int mouseOverTold_ = 0;
    bool held_ = false;
};

struct LauncherRun {
    HWND window;
    LauncherState &state;
    Recorder &recorder;
};

// Runs the program's own entry and calls `act` from its message loop, with the first paint done and nothing of the
// creation taken from the recorder yet; then closes what `act` left open. Gives the exit code.
int RunLauncher(const std::function<void(const LauncherRun &)> &act);

} // namespace ovrin::desktop

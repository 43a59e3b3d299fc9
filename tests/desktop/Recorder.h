// Writes down, as symbolic lines, what the launcher's procedures see: it stands in front of the window procedure from
// the first message on, and in front of every control procedure.
#pragma once

#include "launcher/LauncherState.h"

#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ovrin::desktop {

enum class Kind { Button, Edit, List };

// A control under its name in scripts and transcripts.
struct KnownControl {
    std::string_view name;
    int id;
    Kind kind;
    RECT LauncherLayout::*place;
};
[[nodiscard]] const KnownControl &ControlWithId(int id);
// Raises std::out_of_range for a name that no control, or no key, has.
[[nodiscard]] const KnownControl &ControlNamed(std::string_view name);
[[nodiscard]] WPARAM KeyNamed(std::string_view name);

// The words, without the empty ones, with a blank between each two.
[[nodiscard]] std::string Line(std::initializer_list<std::string_view> words);

class Recorder {
public:
    void Note(std::string line) { lines_.push_back(std::move(line)); }
    // What was seen since the last call, in order; then the button that the mouse is over, and each owner-drawn item,
    // where they differ from what was told last. These are told by their outcome, since the platform chooses the
    // moments of drawing and of telling that the mouse has left; while a button is held the latter isn't told at all.
    [[nodiscard]] std::vector<std::string> TakeLines();

    void SeeWindowMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void SeeControlMessage(const KnownControl &control, UINT message, WPARAM wParam);

private:
    using Item = std::pair<int, UINT>; // control id and row

    void SeeDrawing(const DRAWITEMSTRUCT *item);
    void SeeCommand(const KnownControl &control, WORD notice);
    void SeeFocusOrKey(std::string_view who, UINT message, WPARAM wParam);
    void SeeMouse(std::string_view button, UINT message);

    std::vector<std::string> lines_;
    std::map<Item, std::string> told_;
    std::map<Item, std::string> drawn_;
    std::string_view mouseOver_ = "no button";
    std::string_view mouseOverTold_ = mouseOver_;
    bool held_ = false;
};

struct LauncherRun {
    HWND window = nullptr;
    LauncherState *state = nullptr;
    Recorder recorder;
};

// Runs the program's own entry and calls `act` from its message loop, with the first paint done and nothing of the
// creation taken from the recorder yet; then closes what `act` left open. Gives the exit code.
int RunLauncher(const std::function<void(LauncherRun &)> &act);

} // namespace ovrin::desktop

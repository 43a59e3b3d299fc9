// Plays the steps of a transcript on a running launcher.
#pragma once

#include "tests/desktop/Recorder.h"
#include "tests/desktop/Sandbox.h"

#include <string>
#include <vector>

namespace ovrin::desktop {

// A step is a verb with its target: "click face", "key Enter name" (see PlayStep in the source for all verbs). A
// target is a control's name, a row of a list ("popup:2") or a point of the window ("window:500,300").
class ScriptPlayer {
public:
    ScriptPlayer(const LauncherRun &run, const Sandbox &sandbox);
    ScriptPlayer(const ScriptPlayer &) = delete;
    ScriptPlayer &operator=(const ScriptPlayer &) = delete;
    ~ScriptPlayer();

    // What the launcher's procedures saw of it, and at the end the selector where it has changed. Raises
    // std::invalid_argument for a step that can't be read.
    std::vector<std::string> Play(const std::string &step);

private:
    void PlayStep(const std::string &step);
    // False: not a verb of the mouse.
    bool PlayMouse(const std::string &verb, const std::string &target);
    void PlayOther(const std::string &verb, const std::string &target);
    [[nodiscard]] POINT PointOf(const std::string &target) const;
    void FillRecentList(int rows);
    void AwaitMouseLeave() const;
    void NoteEditors() const;

    const LauncherRun &run_;
    const Sandbox &sandbox_;
    std::string stepInBox_;
    std::string selector_;
    POINT mouse_{};
    bool pressed_ = false;
};

} // namespace ovrin::desktop

// Plays the steps of a transcript on a running launcher.
#pragma once

#include "tests/desktop/DesktopDriver.h"
#include "tests/desktop/Picture.h"
#include "tests/desktop/Sandbox.h"

#include <string>
#include <vector>

namespace ovrin::desktop {

// A step is a verb with its target: "click face", "key Enter keypad" (see PlayStep in the source for all verbs). A
// target is a control's name, a row of a list ("popup:2") or a point of the window ("window:500,300").
class ScriptPlayer {
public:
    ScriptPlayer(LauncherRun &run, const Sandbox &sandbox);
    ScriptPlayer(const ScriptPlayer &) = delete;
    ScriptPlayer &operator=(const ScriptPlayer &) = delete;
    ~ScriptPlayer() { OnMessageBox(nullptr); }

    // What the launcher's procedures saw of it, a line each, and at the end the selector where it has changed. Raises
    // std::out_of_range for a step that can't be read.
    std::string Play(const std::string &step);

private:
    void PlayStep(const std::string &step);
    void PlayMouse(const std::vector<MouseAct> &acts, const std::string &target);
    void PlayKey(std::istringstream words) const;
    void AnswerBox(const MessageBoxSeen &box);
    void SetText(std::istringstream words) const;
    void AwaitMouseLeave();
    void NoteEditors();
    void MakeFile(std::istringstream words) const;
    void NoteFiles();
    void NoteControls(std::istringstream names);
    // With the sandbox's folder as "~", alike on both platforms.
    [[nodiscard]] std::string Shown(std::string text) const;
    [[nodiscard]] HWND HandleOf(const std::string &name) const;
    [[nodiscard]] POINT PointOf(const std::string &target) const;
    void FillRecentList(int rows);
    void AddLongRow() const;

    LauncherRun &run_;
    const Sandbox &sandbox_;
    Picture picture_{run_};
    std::string stepInBox_;
    std::string selector_;
    POINT mouse_{};
    bool pressed_ = false;
    bool started_ = false;
};

} // namespace ovrin::desktop

// The driver on X11, by xdotool (the XTest extension) on the display that DISPLAY names.
#include "tests/program/ProgramDriver.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <system_error>

namespace ovrin::program {
namespace {

std::string Run(const std::string &command) {
    const std::unique_ptr<FILE, int (*)(FILE *)> pipe(popen((command + " 2>/dev/null").c_str(), "r"), pclose);
    std::string output;
    for (int letter = std::fgetc(pipe.get()); letter != EOF; letter = std::fgetc(pipe.get())) {
        output.push_back(static_cast<char>(letter));
    }
    return output;
}

// As one word for the shell.
std::string Quoted(const std::u8string &text) {
    std::string quoted = "'";
    for (const char8_t unit : text) {
        quoted += unit == u8'\'' ? std::string("'\\''") : std::string(1, static_cast<char>(unit));
    }
    return quoted + "'";
}

std::string XdoTool(const std::string &arguments) {
    return Run("xdotool " + arguments);
}

} // namespace

Process::Process(const std::filesystem::path &executable, const std::filesystem::path &workingFolder) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addchdir_np(&actions, workingFolder.c_str());
    std::string name = executable.string();
    char *const arguments[] = {name.data(), nullptr};
    pid_t child = 0;
    const int error = posix_spawn(&child, executable.c_str(), &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) {
        throw std::system_error(error, std::generic_category(), name);
    }
    id_ = static_cast<std::uint32_t>(child);
}

Process::~Process() {
    if (!ExitCode()) {
        kill(static_cast<pid_t>(id_), SIGKILL);
        waitpid(static_cast<pid_t>(id_), nullptr, 0);
    }
}

std::optional<int> Process::ExitCode() {
    int status = 0;
    if (!exitCode_ && waitpid(static_cast<pid_t>(id_), &status, WNOHANG) > 0) {
        exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }
    return exitCode_;
}

std::optional<Window> FindVisibleWindow(const Process &process, const std::string &title) {
    const std::string found =
        XdoTool("search --all --onlyvisible --pid " + std::to_string(process.Id()) + " --name '^" + title + "$'");
    return found.empty() ? std::nullopt : std::optional(Window{std::stoul(found)});
}

bool IsActive(Window window) {
    return XdoTool("getactivewindow") == std::to_string(window.id) + "\n";
}

void Click(Window window, Position position, int times) {
    XdoTool("mousemove --window " + std::to_string(window.id) + " " + std::to_string(position.x) + " " +
            std::to_string(position.y) + " click --repeat " + std::to_string(times) + " --delay 20 1");
}

void PressEnter() {
    XdoTool("key Return");
}

void PressEscape() {
    XdoTool("key Escape");
}

// Pasted: a key borrowed for a letter that the keyboard hasn't may be given back before a busy dialog has read it.
void ChooseInDialog(Window /*dialog*/, const std::filesystem::path &path) {
    Run("printf %s " + Quoted(path.u8string()) + " | xclip -selection clipboard >/dev/null");
    XdoTool("key ctrl+v Return");
}

void EraseText() {
    XdoTool("key End shift+Home BackSpace");
}

void Type(const std::u8string &text) {
    XdoTool("type --delay 4 -- " + Quoted(text));
}

// The window manager's own key, since no part of the frame has a fixed place.
void CloseByCaption(Window window) {
    XdoTool("windowfocus --sync " + std::to_string(window.id) + " key alt+F4");
}

void SetVariable(const std::string &name, const std::filesystem::path &value) {
    setenv(name.c_str(), value.c_str(), 1);
}

void UnsetVariable(const std::string &name) {
    unsetenv(name.c_str());
}

} // namespace ovrin::program

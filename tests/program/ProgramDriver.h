// Drives a running program as a user does: starts it, finds its windows, moves the real mouse, presses real keys.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <thread>

namespace ovrin::program {

// A started program. What still runs at the end of its scope is ended.
class Process {
public:
    Process(const std::filesystem::path &executable, const std::filesystem::path &workingFolder);
    Process(const Process &) = delete;
    Process &operator=(const Process &) = delete;
    ~Process();

    // Nothing while the program runs.
    [[nodiscard]] std::optional<int> ExitCode();
    [[nodiscard]] std::uint32_t Id() const { return id_; }

private:
    std::uint32_t id_ = 0;
    void *handle_ = nullptr; // of the process, on Windows
    std::optional<int> exitCode_;
};

struct Window {
    std::uintptr_t id = 0;
};

// In client pixels of the window.
struct Position {
    int x = 0;
    int y = 0;
};

// A visible top-level window with exactly this title.
[[nodiscard]] std::optional<Window> FindVisibleWindow(const Process &process, const std::string &title);
[[nodiscard]] bool IsActive(Window window);
void Click(Window window, Position position, int times = 1);
void PressEnter();
void PressEscape();
// Types a path where the active file dialog takes one, and confirms it.
void ChooseInDialog(Window dialog, const std::filesystem::path &path);
// Of the edit that has the focus; up to 300 characters.
void EraseText();
void Type(const std::u8string &text);
// As the caption's close button does; the window must be active.
void CloseByCaption(Window window);

void SetVariable(const std::string &name, const std::filesystem::path &value);
void UnsetVariable(const std::string &name);

// Asks again until the condition holds. The limit is one that only a broken program reaches.
template<typename Condition>
[[nodiscard]] bool WaitUntil(Condition condition) {
    constexpr auto limit = std::chrono::seconds(30);
    constexpr auto pause = std::chrono::milliseconds(10);
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(pause);
    }
    return true;
}

} // namespace ovrin::program

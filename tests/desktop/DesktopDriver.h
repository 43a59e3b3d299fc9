// What a user and the desktop do to the launcher: mouse, keyboard, activation, and an answer to each message box.
// One implementation for each platform. Points are client pixels of the main window; everything runs on the first
// thread, and input has been handled when a call returns.
#pragma once

#include "platform/text/WideText.h"
#include "platform/winapi/WinApi.h"

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

namespace ovrin::desktop {

struct MessageBoxSeen {
    WideText title;
    WideText text;
    std::string_view icon; // as the scripts call it
    int buttons;
};

// A PressAgain follows the release before it within the platform's double-click time; a Press never makes a double
// click, however soon it comes.
enum class MouseAct { Move, Press, PressAgain, Release };
void UseMouse(HWND window, POINT point, MouseAct act);

enum class KeyPlace { Main, Keypad };
// Goes down `presses` times before it comes up, as a key that is held.
void PressKey(HWND window, WPARAM key, KeyPlace place, int presses);
void TypeText(HWND window, WideTextView text);

// This program becomes the active one, or another does.
void SetActive(HWND window, bool active);

// Runs the program's entry, as often as a test likes, and calls `action` once from its message loop. Gives the exit
// code.
int RunEntry(std::function<void()> action);

// Handles what is waiting, painting included, until nothing is.
void Settle();

// Whether this is the test bed that stands in for Windows.
[[nodiscard]] bool IsWine();

// Called for each message box once it is up and before it is answered with OK; null takes it away.
void OnMessageBox(std::function<void(const MessageBoxSeen &)> observer);

// The pixels, row by row, of what `paint` puts on a black bitmap of that size.
[[nodiscard]] std::vector<COLORREF> Painted(SIZE size, const std::function<void(HDC)> &paint);

// What the process holds of the platform's drawing objects.
[[nodiscard]] std::size_t CountDrawingObjects();

// Bytes of the heap in use; always 0 under the address sanitizer, which tells of leaks by itself.
[[nodiscard]] std::size_t AllocatedMemory();

} // namespace ovrin::desktop

// What a user and the desktop do to the launcher: mouse, keyboard, activation, and an answer to each message box.
// One implementation for each platform. Points are client pixels of the main window; everything runs on the first
// thread, and input has been handled when a call returns.
#pragma once

#include "platform/text/WideText.h"
#include "platform/winapi/WinApi.h"

#include <cstddef>
#include <functional>
#include <memory>

namespace ovrin::desktop {

struct MessageBoxSeen {
    WideText title;
    WideText text;
    UINT icon; // MB_ICON..., 0 for none
    int buttons;
};

void MoveMouse(HWND window, POINT point);
void PressMouse(HWND window, POINT point);
void ReleaseMouse(HWND window, POINT point);
// Press, release, press, release within the platform's double-click time. Presses from the calls above never make a
// double click, however soon they follow each other.
void DoubleClickMouse(HWND window, POINT point);

enum class KeyPlace { Main, Keypad };
// Goes down `presses` times before it comes up, as a key that is held.
void PressKey(HWND window, WPARAM key, KeyPlace place = KeyPlace::Main, int presses = 1);
void TypeText(HWND window, WideTextView text);

// Another program becomes active; the way back makes this one active.
void DeactivateApplication(HWND window);
void ActivateApplication(HWND window);

// Calls `action` once from the program's message loop, the next time that it runs.
void CallFromLoop(std::function<void()> action);
// Runs the program's entry, as often as a test likes. Gives the exit code.
int RunEntry();

// Handles what is waiting, painting included, until nothing is.
void Settle();
// Runs messages until `condition` holds. False after a minute, which only a broken program reaches.
[[nodiscard]] bool PumpUntil(const std::function<bool()> &condition);

// Whether this is the test bed that stands in for Windows.
[[nodiscard]] bool IsWine();

// Called for each message box once it is up and before it is answered with OK; null takes it away.
void OnMessageBox(std::function<void(const MessageBoxSeen &)> observer);

// A bitmap to paint on, black at first.
class Canvas {
public:
    explicit Canvas(SIZE size);
    Canvas(const Canvas &) = delete;
    Canvas &operator=(const Canvas &) = delete;
    ~Canvas();

    [[nodiscard]] HDC dc() const;
    [[nodiscard]] COLORREF PixelAt(POINT point) const;

private:
    struct Bits;
    std::unique_ptr<Bits> bits_;
};

// What the process holds of the platform's drawing objects.
[[nodiscard]] std::size_t CountDrawingObjects();

// Bytes of the heap in use; always 0 under the address sanitizer, which tells of leaks by itself.
[[nodiscard]] std::size_t AllocatedMemory();

} // namespace ovrin::desktop

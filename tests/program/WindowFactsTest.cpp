// The window as another process sees it: class, title, styles, size, and the eleven controls.
#include "tests/program/LauncherProgramFixture.h"

#include <windows.h>

namespace ovrin::program {
namespace {

struct ControlFact {
    int id;
    const wchar_t *className;
    LONG style;
    std::wstring text;
    RECT place; // in client pixels
};

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

std::wstring TextOf(HWND window) {
    wchar_t text[1024] = {};
    SendMessageW(window, WM_GETTEXT, 1024, reinterpret_cast<LPARAM>(text));
    return text;
}

RECT PlaceOf(HWND control, HWND parent) {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT *>(&place), 2);
    return place;
}

TEST_F(LauncherProgram, ShowsTheWindowAndTheElevenControlsToOtherProcesses) {
    constexpr LONG edit = 0x54010080;
    constexpr LONG button = 0x5401000B;
    const ControlFact facts[] = {
        {1001, L"Edit", edit, L"", {80, 139, 826, 163}},
        {1010, L"Button", 0x5401400B, L"", {864, 135, 1148, 167}},
        {1002, L"Edit", edit, DefaultLocation().wstring(), {80, 225, 816, 249}},
        {1003, L"Button", button, L"Browse", {844, 217, 964, 257}},
        {1004, L"Button", button, L"Create Project", {976, 217, 1156, 257}},
        {1005, L"ListBox", 0x54210111, L"", {68, 402, 1152, 684}},
        {1006, L"Button", button, L"Open Selected", {62, 712, 232, 754}},
        {1007, L"Button", button, L"Open Project...", {244, 712, 414, 754}},
        {1008, L"Button", button, L"Remove Missing", {426, 712, 586, 754}},
        {1009, L"Button", button, L"Quit", {1048, 712, 1158, 754}},
        {1011, L"ListBox", 0x44010111, L"", {856, 180, 1156, 348}},
    };
    // With no recent project the list is hidden and has no scroll bar, and two of the buttons are disabled.
    constexpr LONG changing = WS_VISIBLE | WS_DISABLED | WS_VSCROLL;
    Process launcher(Launcher(), home_);
    const HWND window = reinterpret_cast<HWND>(WaitForLauncher(launcher).id);

    EXPECT_EQ(ClassOf(window), L"OvrinLauncherWindow");
    EXPECT_EQ(GetWindowLongW(window, GWL_STYLE) & ~(WS_VISIBLE | WS_CLIPSIBLINGS), 0x02CA0000);
    EXPECT_EQ(GetWindowLongW(window, GWL_EXSTYLE) & ~WS_EX_WINDOWEDGE, 0);
    RECT client{};
    GetClientRect(window, &client);
    EXPECT_EQ(client.right, 1220);
    EXPECT_EQ(client.bottom, 820);
    for (const ControlFact &fact : facts) {
        SCOPED_TRACE(fact.id);
        const HWND control = GetDlgItem(window, fact.id);
        ASSERT_NE(control, nullptr);
        EXPECT_EQ(ClassOf(control), fact.className);
        EXPECT_EQ(GetWindowLongW(control, GWL_STYLE) & ~changing, fact.style & ~changing);
        EXPECT_EQ(TextOf(control), fact.text);
        const RECT place = PlaceOf(control, window);
        EXPECT_TRUE(EqualRect(&place, &fact.place)) << place.left << ' ' << place.top << ' ' << place.right;
    }
}

} // namespace
} // namespace ovrin::program

// Real input through SendInput. Input carries times of its own, so that the machine's speed never decides what is a
// double click. A message box is met by a hook on activation and answered from inside its own message loop.
#include "tests/desktop/DesktopDriver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previousInstance, LPWSTR commandLine, int showCommand);

namespace ovrin::desktop {

namespace {

constexpr DWORD apart = 10'000; // milliseconds, far beyond any double-click time
constexpr DWORD inARow = 1;
constexpr UINT boxIsUp = WM_APP;
constexpr UINT callAction = WM_APP + 1;

std::function<void(const MessageBoxSeen &)> boxObserver;
HWND knownBox = nullptr;
std::function<void()> loopAction;

DWORD InputTime(DWORD step) {
    static DWORD now = 1;
    return now += step;
}

void SendMouse(HWND window, POINT point, DWORD flags, DWORD step) {
    ClientToScreen(window, &point);
    const LONG width = GetSystemMetrics(SM_CXSCREEN);
    const LONG height = GetSystemMetrics(SM_CYSCREEN);
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = (point.x * 65536 + width - 1) / width;
    input.mi.dy = (point.y * 65536 + height - 1) / height;
    input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | flags;
    input.mi.time = InputTime(step);
    SendInput(1, &input, sizeof input);
}

void SendKey(WORD key, WORD scan, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = scan;
    input.ki.dwFlags = flags;
    input.ki.time = InputTime(inARow);
    SendInput(1, &input, sizeof input);
}

WideText TextOf(HWND window) {
    std::array<wchar_t, 1024> buffer{};
    GetWindowTextW(window, buffer.data(), static_cast<int>(buffer.size()));
    return buffer.data();
}

UINT IconFlag(HICON icon) {
    const std::pair<LPCSTR, UINT> icons[] = {
        {IDI_ERROR, MB_ICONERROR}, {IDI_WARNING, MB_ICONWARNING}, {IDI_INFORMATION, MB_ICONINFORMATION}};
    for (const auto &[name, flag] : icons) {
        if (icon != nullptr && LoadIconA(nullptr, name) == icon) {
            return flag;
        }
    }
    return 0;
}

BOOL CALLBACK ReadBoxChild(HWND child, LPARAM target) {
    auto &box = *reinterpret_cast<MessageBoxSeen *>(target);
    std::array<wchar_t, 16> name{};
    GetClassNameW(child, name.data(), static_cast<int>(name.size()));
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(child, GWL_STYLE));
    if ((style & WS_VISIBLE) == 0) {
        return TRUE;
    }
    if (WideTextView{name.data()} == L"Button") {
        ++box.buttons;
    } else if ((style & SS_TYPEMASK) == SS_ICON) {
        box.icon = IconFlag(reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0)));
    } else {
        box.text += TextOf(child);
    }
    return TRUE;
}

void MeetBox(HWND box) {
    MessageBoxSeen seen{.title = TextOf(box), .text = {}, .icon = 0, .buttons = 0};
    EnumChildWindows(box, ReadBoxChild, reinterpret_cast<LPARAM>(&seen));
    if (boxObserver) {
        boxObserver(seen);
    }
    knownBox = nullptr;
    SendMessageW(box, WM_COMMAND, IDOK, 0);
}

LRESULT CALLBACK MeetingProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case boxIsUp: MeetBox(reinterpret_cast<HWND>(lParam)); return 0;
    case callAction: std::exchange(loopAction, nullptr)(); return 0;
    default: return DefWindowProcW(window, message, wParam, lParam);
    }
}

HWND MeetingWindow() {
    static const HWND window = [] {
        const HWND made = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        SetWindowLongPtrW(made, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&MeetingProc));
        return made;
    }();
    return window;
}

LRESULT CALLBACK WatchActivation(int code, WPARAM wParam, LPARAM lParam) {
    const auto window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_ACTIVATE && GetClassLongPtrW(window, GCW_ATOM) == 32770 && window != knownBox) {
        knownBox = window;
        PostMessageW(MeetingWindow(), boxIsUp, 0, static_cast<LPARAM>(wParam));
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

// Wine doesn't answer GetGuiResources. It keeps the table of handles where Windows has it: the block that describes the
// process holds its address, and each entry tells its kind, 0 for none.
std::size_t CountInSharedTable() {
    struct Entry {
        std::uint64_t object;
        std::uint32_t owner;
        std::uint16_t generation;
        std::uint8_t kind;
        std::uint8_t flags;
        std::uint64_t user;
    };
    constexpr std::size_t tableInBlock = 0xF8, entries = 65536;
    using GetBlock = const char *(WINAPI *)();
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetCurrentPeb");
    const char *block = reinterpret_cast<GetBlock>(reinterpret_cast<void *>(found))();
    const auto *table = *reinterpret_cast<const Entry *const *>(block + tableInBlock);
    return static_cast<std::size_t>(
        std::count_if(table, table + entries, [](const Entry &entry) { return entry.kind != 0; }));
}

// False when nothing is waiting, or the loop's end is.
bool HandleOneMessage() {
    MSG message;
    if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) == 0) {
        return false;
    }
    if (message.message == WM_QUIT) {
        PostQuitMessage(static_cast<int>(message.wParam));
        return false;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
    return true;
}

} // namespace

void CallFromLoop(std::function<void()> action) {
    loopAction = std::move(action);
    PostMessageW(MeetingWindow(), callAction, 0, 0);
}

int RunEntry() {
    // Wine tells that the mouse has left when this time is over.
    SystemParametersInfoW(SPI_SETMOUSEHOVERTIME, 10, nullptr, 0);
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    const int exitCode = wWinMain(instance, nullptr, nullptr, SW_SHOWNORMAL);
    UnregisterClassW(L"OvrinLauncherWindow", instance); // the entry leaves it to the end of the process
    SendMouse(GetDesktopWindow(), {0, 0}, 0, apart);
    Settle(); // what is left of this run must not reach the next one
    return exitCode;
}

void Settle() {
    while (HandleOneMessage()) {
    }
}

bool PumpUntil(const std::function<bool()> &condition) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes{1};
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) {
            return false;
        }
        Settle();
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
    return true;
}

void MoveMouse(HWND window, POINT point) {
    SendMouse(window, point, 0, inARow);
    Settle();
}

void PressMouse(HWND window, POINT point) {
    SendMouse(window, point, MOUSEEVENTF_LEFTDOWN, apart);
    Settle();
}

void ReleaseMouse(HWND window, POINT point) {
    SendMouse(window, point, MOUSEEVENTF_LEFTUP, inARow);
    Settle();
}

void DoubleClickMouse(HWND window, POINT point) {
    PressMouse(window, point);
    ReleaseMouse(window, point);
    SendMouse(window, point, MOUSEEVENTF_LEFTDOWN, inARow);
    Settle();
    ReleaseMouse(window, point);
}

void PressKey(HWND /*window*/, WPARAM key, KeyPlace place, int presses) {
    const auto code = static_cast<WORD>(key);
    const auto scan = static_cast<WORD>(MapVirtualKeyW(code, MAPVK_VK_TO_VSC));
    const bool extended = place == KeyPlace::Keypad || (key >= VK_PRIOR && key <= VK_DELETE);
    const DWORD flags = extended ? KEYEVENTF_EXTENDEDKEY : 0;
    for (int press = 0; press < presses; ++press) {
        SendKey(code, scan, flags);
    }
    SendKey(code, scan, flags | KEYEVENTF_KEYUP);
    Settle();
}

void TypeText(HWND /*window*/, WideTextView text) {
    for (const WideChar unit : text) {
        SendKey(0, unit, KEYEVENTF_UNICODE);
        SendKey(0, unit, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
    }
    Settle();
}

void DeactivateApplication(HWND /*window*/) {
    SetForegroundWindow(GetDesktopWindow());
    Settle();
}

void ActivateApplication(HWND window) {
    SetForegroundWindow(window);
    Settle();
}

bool IsWine() {
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

void OnMessageBox(std::function<void(const MessageBoxSeen &)> observer) {
    static const HHOOK hook = SetWindowsHookExW(WH_CBT, WatchActivation, nullptr, GetCurrentThreadId());
    static_cast<void>(hook);
    boxObserver = std::move(observer);
}

struct Canvas::Bits {
    explicit Bits(SIZE size) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = size.cx;
        info.bmiHeader.biHeight = -size.cy;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void *memory = nullptr;
        bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &memory, nullptr, 0);
        old = SelectObject(dc, bitmap);
    }
    Bits(const Bits &) = delete;
    Bits &operator=(const Bits &) = delete;
    ~Bits() {
        SelectObject(dc, old);
        DeleteObject(bitmap);
        DeleteDC(dc);
    }

    HDC dc = CreateCompatibleDC(nullptr);
    HBITMAP bitmap = nullptr;
    HGDIOBJ old = nullptr;
};

Canvas::Canvas(SIZE size) : bits_(std::make_unique<Bits>(size)) {}
Canvas::~Canvas() = default;

HDC Canvas::dc() const {
    return bits_->dc;
}

COLORREF Canvas::PixelAt(POINT point) const {
    return GetPixel(bits_->dc, point.x, point.y);
}

std::size_t CountDrawingObjects() {
    return IsWine() ? CountInSharedTable() : GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
}

std::size_t AllocatedMemory() {
    const HANDLE heap = GetProcessHeap();
    std::size_t size = 0;
    PROCESS_HEAP_ENTRY entry{};
    HeapLock(heap);
    while (HeapWalk(heap, &entry)) {
        size += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? entry.cbData : 0;
    }
    HeapUnlock(heap);
    return size;
}

} // namespace ovrin::desktop

namespace {

// Starts a program with our standard handles, on a desktop where one is named.
PROCESS_INFORMATION Start(std::wstring commandLine, std::wstring desktop) {
    STARTUPINFOW startUp{};
    startUp.cb = sizeof startUp;
    startUp.lpDesktop = desktop.empty() ? nullptr : desktop.data();
    startUp.dwFlags = STARTF_USESTDHANDLES;
    startUp.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    startUp.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION process{};
    CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startUp, &process);
    return process;
}

// Under Wine a window manager answers some time later, when the next input is already under way. So there the tests run
// on a desktop of their own that no window manager and no display has a part in.
int RunOnDesktopOfItsOwn() {
    const std::wstring name = L"ovrin-test-" + std::to_wstring(GetCurrentProcessId());
    SetEnvironmentVariableW(L"OVRIN_TEST_DESKTOP", name.c_str());
    const PROCESS_INFORMATION desktop = Start(L"explorer.exe /desktop=" + name + L",1400x1000,null", L"");
    WaitForInputIdle(desktop.hProcess, INFINITE);
    const PROCESS_INFORMATION tests = Start(GetCommandLineW(), name);
    WaitForSingleObject(tests.hProcess, INFINITE);
    DWORD exitCode = 1;
    GetExitCodeProcess(tests.hProcess, &exitCode);
    TerminateProcess(desktop.hProcess, 0);
    return static_cast<int>(exitCode);
}

} // namespace

int main(int argc, char **argv) {
    if (ovrin::desktop::IsWine() && GetEnvironmentVariableW(L"OVRIN_TEST_DESKTOP", nullptr, 0) == 0) {
        return RunOnDesktopOfItsOwn();
    }
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

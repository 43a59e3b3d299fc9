// Real input through SendInput. Input carries times of its own, so that the machine's speed never decides what is a
// double click. A message box is met by a hook on activation and answered from inside its own message loop.
#include "launcher/look/GdiHandles.h"
#include "launcher/workflows/FormInput.h"
#include "tests/desktop/DesktopDriver.h"
#include "tests/support/RunProbe.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previousInstance, LPWSTR commandLine, int showCommand);

namespace ovrin::desktop {

namespace {

constexpr DWORD apart = 10'000; // milliseconds, far beyond any double-click time
constexpr DWORD inARow = 1;

std::function<void(const MessageBoxSeen &)> boxObserver;
HWND knownBox = nullptr;
std::function<void()> posted;

DWORD InputTime(DWORD step) {
    static DWORD now = 1;
    return now += step;
}

void SendKey(WORD key, WORD scan, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki = {key, scan, flags, InputTime(inARow), 0};
    SendInput(1, &input, sizeof input);
}

std::string_view NameOf(HICON icon) {
    const std::pair<LPCSTR, std::string_view> icons[] = {
        {IDI_ERROR, "error"}, {IDI_WARNING, "warning"}, {IDI_INFORMATION, "information"}};
    for (const auto &[resource, name] : icons) {
        if (icon != nullptr && LoadIconA(nullptr, resource) == icon) {
            return name;
        }
    }
    return "plain";
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
        box.icon = NameOf(reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0)));
    } else {
        box.text += ReadFormText(child);
    }
    return TRUE;
}

void MeetBox(HWND box) {
    MessageBoxSeen seen{.title = ReadFormText(box), .text = {}, .icon = "plain", .buttons = 0};
    EnumChildWindows(box, ReadBoxChild, reinterpret_cast<LPARAM>(&seen));
    if (boxObserver) {
        boxObserver(seen);
    }
    knownBox = nullptr;
    SendMessageW(box, WM_COMMAND, IDOK, 0);
}

LRESULT CALLBACK CallPosted(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_APP) {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    std::exchange(posted, nullptr)();
    return 0;
}

// Calls it from the message loop that runs next, a message box's included.
void Post(std::function<void()> action) {
    static const HWND window =
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CallPosted));
    posted = std::move(action);
    PostMessageW(window, WM_APP, 0, 0);
}

LRESULT CALLBACK WatchActivation(int code, WPARAM wParam, LPARAM lParam) {
    const auto window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_ACTIVATE && GetClassLongPtrW(window, GCW_ATOM) == 32770 && window != knownBox) {
        knownBox = window;
        Post([window] { MeetBox(window); });
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

} // namespace

int RunEntry(std::function<void()> action) {
    Post(std::move(action));
    // Wine tells that the mouse has left when this time is over.
    SystemParametersInfoW(SPI_SETMOUSEHOVERTIME, 10, nullptr, 0);
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    const int exitCode = wWinMain(instance, nullptr, nullptr, SW_SHOWNORMAL);
    UnregisterClassW(L"OvrinLauncherWindow", instance);   // the entry leaves it to the end of the process
    UseMouse(GetDesktopWindow(), {0, 0}, MouseAct::Move); // what is left of this run must not reach the next one
    return exitCode;
}

void Settle() {
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0;) {
        if (message.message == WM_QUIT) {
            return PostQuitMessage(static_cast<int>(message.wParam));
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void UseMouse(HWND window, POINT point, MouseAct act) {
    constexpr DWORD buttons[] = {0, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP};
    ClientToScreen(window, &point);
    const LONG width = GetSystemMetrics(SM_CXSCREEN), height = GetSystemMetrics(SM_CYSCREEN);
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = (point.x * 65536 + width - 1) / width;
    input.mi.dy = (point.y * 65536 + height - 1) / height;
    input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | buttons[static_cast<int>(act)];
    input.mi.time = InputTime(act == MouseAct::Press ? apart : inARow);
    SendInput(1, &input, sizeof input);
    Settle();
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

void SetActive(HWND window, bool active) {
    SetForegroundWindow(active ? window : GetDesktopWindow());
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

std::vector<COLORREF> Painted(SIZE size, const std::function<void(HDC)> &paint) {
    std::vector<COLORREF> pixels(static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy));
    const UniqueBitmap bitmap{CreateBitmap(size.cx, size.cy, 1, 32, pixels.data())};
    const HDC dc = CreateCompatibleDC(nullptr);
    {
        const SelectionScope selected{dc, bitmap.get()};
        paint(dc);
        for (std::size_t at = 0; at < pixels.size(); ++at) {
            pixels[at] = GetPixel(dc, static_cast<LONG>(at) % size.cx, static_cast<LONG>(at) / size.cx);
        }
    }
    DeleteDC(dc);
    return pixels;
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

// Starts a program with our standard handles, on that desktop.
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
    const int exitCode = ovrin::testing::AwaitEnd(Start(GetCommandLineW(), name));
    TerminateProcess(desktop.hProcess, 0);
    return exitCode;
}

} // namespace

int main(int argc, char **argv) {
    if (ovrin::desktop::IsWine() && GetEnvironmentVariableW(L"OVRIN_TEST_DESKTOP", nullptr, 0) == 0) {
        return RunOnDesktopOfItsOwn();
    }
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

// The driver on Windows: SendInput, and the windows of other processes.
#include "tests/program/ProgramDriver.h"

#include <system_error>
#include <vector>
#include <windows.h>

namespace ovrin::program {
namespace {

struct Search {
    DWORD process = 0;
    std::wstring title;
    HWND found = nullptr;
};

BOOL CALLBACK MatchWindow(HWND window, LPARAM parameter) {
    Search &search = *reinterpret_cast<Search *>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    wchar_t title[256] = {};
    GetWindowTextW(window, title, 256);
    if (process != search.process || search.title != title || !IsWindowVisible(window)) {
        return TRUE;
    }
    search.found = window;
    return FALSE;
}

BOOL CALLBACK FindVisibleEdit(HWND window, LPARAM parameter) {
    wchar_t name[16] = {};
    GetClassNameW(window, name, 16);
    if (std::wstring(name) != L"Edit" || !IsWindowVisible(window)) {
        return TRUE;
    }
    *reinterpret_cast<HWND *>(parameter) = window;
    return FALSE;
}

HWND HandleOf(Window window) {
    return reinterpret_cast<HWND>(window.id);
}

INPUT KeyInput(WORD key, WORD scan, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = scan;
    input.ki.dwFlags = flags;
    return input;
}

// The place goes with the press itself: a cursor set beforehand may be moved back by an older event on its way.
INPUT MouseInput(POINT screen, DWORD flags) {
    constexpr LONG range = 65536;
    const LONG width = GetSystemMetrics(SM_CXSCREEN);
    const LONG height = GetSystemMetrics(SM_CYSCREEN);
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = (screen.x * range + range / 2) / width;
    input.mi.dy = (screen.y * range + range / 2) / height;
    input.mi.dwFlags = flags | MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    return input;
}

void Send(std::vector<INPUT> inputs) {
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

void Press(WORD key) {
    Send({KeyInput(key, 0, 0), KeyInput(key, 0, KEYEVENTF_KEYUP)});
}

} // namespace

Process::Process(const std::filesystem::path &executable, const std::filesystem::path &workingFolder) {
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION information{};
    if (!CreateProcessW(executable.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, workingFolder.c_str(),
                        &startup, &information)) {
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), executable.string());
    }
    CloseHandle(information.hThread);
    id_ = information.dwProcessId;
    handle_ = information.hProcess;
}

Process::~Process() {
    if (!ExitCode()) {
        TerminateProcess(handle_, 1);
        WaitForSingleObject(handle_, INFINITE);
    }
    CloseHandle(handle_);
}

std::optional<int> Process::ExitCode() {
    if (!exitCode_ && WaitForSingleObject(handle_, 0) == WAIT_OBJECT_0) {
        DWORD code = 0;
        GetExitCodeProcess(handle_, &code);
        exitCode_ = static_cast<int>(code);
    }
    return exitCode_;
}

std::optional<Window> FindVisibleWindow(const Process &process, const std::string &title) {
    Search search{process.Id(), std::wstring(title.begin(), title.end()), nullptr};
    EnumWindows(MatchWindow, reinterpret_cast<LPARAM>(&search));
    return search.found == nullptr ? std::nullopt
                                   : std::optional(Window{reinterpret_cast<std::uintptr_t>(search.found)});
}

bool IsActive(Window window) {
    return GetForegroundWindow() == HandleOf(window);
}

void Click(Window window, Position position, int times) {
    POINT point{position.x, position.y};
    ClientToScreen(HandleOf(window), &point);
    for (int count = 0; count < times; ++count) {
        Send({MouseInput(point, MOUSEEVENTF_LEFTDOWN), MouseInput(point, MOUSEEVENTF_LEFTUP)});
    }
}

void PressEnter() {
    Press(VK_RETURN);
}

void PressEscape() {
    Press(VK_ESCAPE);
}

// Into the edit itself, since the focus may be in the list; the first button of every such dialog confirms.
void ChooseInDialog(Window dialog, const std::filesystem::path &path) {
    HWND edit = nullptr;
    EnumChildWindows(HandleOf(dialog), FindVisibleEdit, reinterpret_cast<LPARAM>(&edit));
    SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
    PostMessageW(GetDlgItem(HandleOf(dialog), IDOK), BM_CLICK, 0, 0);
}

// Without the shift key: Wine may take it for released when the window becomes active at that moment.
void EraseText() {
    constexpr int longest = 300;
    Press(VK_END);
    for (int count = 0; count < longest; ++count) {
        Press(VK_BACK);
    }
}

void Type(const std::u8string &text) {
    for (const wchar_t unit : std::filesystem::path(text).wstring()) {
        Send({KeyInput(0, unit, KEYEVENTF_UNICODE), KeyInput(0, unit, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP)});
    }
}

void CloseByCaption(Window window) {
    PostMessageW(HandleOf(window), WM_CLOSE, 0, 0);
}

void SetVariable(const std::string &name, const std::filesystem::path &value) {
    SetEnvironmentVariableW(std::wstring(name.begin(), name.end()).c_str(), value.c_str());
}

void UnsetVariable(const std::string &name) {
    SetEnvironmentVariableW(std::wstring(name.begin(), name.end()).c_str(), nullptr);
}

} // namespace ovrin::program

// The entry over stand-ins for every platform function it calls: they record the calls and fail on demand.

#include "launcher/LauncherState.h"
#include "launcher/LauncherWindow.h"
#include "platform/winapi/WinApi.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previousInstance, LPWSTR commandLine, int showCommand);

namespace {

struct Script {
    Gdiplus::Status drawingStatus = Gdiplus::Ok;
    bool registers = true;
    bool creates = true;
    BOOL lastMessageResult = 0; // what GetMessageW gives after the ordinary messages
    int screenWidth = 1920;
    int screenHeight = 600; // lower than the window
};

Script script;
std::vector<std::string> calls;

template<typename Handle>
Handle FakeHandle(std::intptr_t value) {
    return reinterpret_cast<Handle>(value); // NOLINT(performance-no-int-to-ptr): any non-null handle will do
}

const HWND fakeWindow = FakeHandle<HWND>(7);
const auto fakeInstance = FakeHandle<HINSTANCE>(9);
int messagesLeft = 0;

int RunEntry(const Script &newScript, int showCommand = SW_SHOWDEFAULT) {
    script = newScript;
    calls.clear();
    messagesLeft = 1;
    char16_t ignored[] = u"--project ignored";
    return wWinMain(fakeInstance, nullptr, ignored, showCommand);
}

using Calls = std::vector<std::string>;

} // namespace

BOOL InitCommonControlsEx(const INITCOMMONCONTROLSEX *classes) {
    calls.push_back("controls " + std::to_string(classes->dwSize) + " " + std::to_string(classes->dwICC));
    return FALSE;
}
namespace Gdiplus {
Status GdiplusStartup(ULONG_PTR *token, const GdiplusStartupInput *input, GdiplusStartupOutput *output) {
    EXPECT_EQ(input->GdiplusVersion, 1U);
    EXPECT_EQ(output, nullptr);
    calls.emplace_back("drawing up");
    *token = 42;
    return script.drawingStatus;
}
void GdiplusShutdown(ULONG_PTR token) {
    calls.push_back("drawing down " + std::to_string(token));
}
} // namespace Gdiplus
HBRUSH CreateSolidBrush(COLORREF colour) {
    EXPECT_EQ(colour, 0x120C09U);
    calls.emplace_back("brush");
    return FakeHandle<HBRUSH>(5);
}
BOOL DeleteObject(HGDIOBJ object) {
    EXPECT_EQ(object, FakeHandle<HGDIOBJ>(5));
    calls.emplace_back("delete brush");
    return TRUE;
}
HCURSOR LoadCursorA(HINSTANCE, LPCSTR name) {
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(name), 32512U);
    return FakeHandle<HCURSOR>(3);
}
HICON LoadIconW(HINSTANCE instance, LPCWSTR name) {
    EXPECT_EQ(instance, fakeInstance);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(name), 101U);
    return FakeHandle<HICON>(4);
}
ATOM RegisterClassExW(const WNDCLASSEXW *windowClass) {
    EXPECT_EQ(windowClass->cbSize, 80U);
    EXPECT_EQ(windowClass->style, 3U);
    EXPECT_EQ(windowClass->lpfnWndProc, &ovrin::LauncherWndProc);
    EXPECT_EQ(windowClass->hbrBackground, FakeHandle<HBRUSH>(5));
    EXPECT_EQ(windowClass->hIcon, FakeHandle<HICON>(4));
    EXPECT_EQ(windowClass->hIconSm, FakeHandle<HICON>(4));
    EXPECT_EQ(windowClass->hCursor, FakeHandle<HCURSOR>(3));
    calls.emplace_back("register");
    return script.registers ? 1 : 0;
}
BOOL AdjustWindowRect(RECT *rect, DWORD style, BOOL menu) {
    EXPECT_EQ(style, 0x02CA0000U);
    EXPECT_EQ(menu, FALSE);
    *rect = {rect->left - 3, rect->top - 26, rect->right + 3, rect->bottom + 3};
    return TRUE;
}
int GetSystemMetrics(int index) {
    return index == SM_CXSCREEN ? script.screenWidth : script.screenHeight;
}
HWND CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x, int y, int width, int height,
                     HWND parent, HMENU menu, HINSTANCE instance, void *parameter) {
    EXPECT_EQ(std::u16string{className}, u"OvrinLauncherWindow");
    EXPECT_EQ(std::u16string{title}, u"OvrinEngine Launcher");
    EXPECT_TRUE(exStyle == 0 && style == 0x02CA0000U && parent == nullptr && menu == nullptr);
    EXPECT_EQ(instance, fakeInstance);
    EXPECT_EQ(static_cast<ovrin::LauncherState *>(parameter)->layout.recentRowHeight, 64);
    calls.push_back("create " + std::to_string(x) + "," + std::to_string(y) + " " + std::to_string(width) + "x" +
                    std::to_string(height));
    return script.creates ? fakeWindow : nullptr;
}
BOOL ShowWindow(HWND window, int command) {
    EXPECT_EQ(window, fakeWindow);
    calls.push_back("show " + std::to_string(command));
    return FALSE;
}
BOOL UpdateWindow(HWND) {
    calls.emplace_back("update");
    return FALSE;
}
BOOL RedrawWindow(HWND, const RECT *rect, HRGN region, UINT flags) {
    EXPECT_TRUE(rect == nullptr && region == nullptr);
    calls.push_back("redraw " + std::to_string(flags));
    return FALSE;
}
BOOL GetMessageW(MSG *message, HWND window, UINT first, UINT last) {
    EXPECT_TRUE(window == nullptr && first == 0 && last == 0);
    if (messagesLeft-- > 0) {
        return 5; // any positive result keeps the loop going
    }
    message->wParam = 0;
    return script.lastMessageResult;
}
BOOL TranslateMessage(const MSG *) {
    calls.emplace_back("translate");
    return FALSE;
}
LRESULT DispatchMessageW(const MSG *) {
    calls.emplace_back("dispatch");
    return 0;
}
namespace ovrin {
LRESULT CALLBACK LauncherWndProc(HWND, UINT, WPARAM, LPARAM) noexcept {
    return 0;
}
} // namespace ovrin

TEST(Entry, RunsFromStartToEndInOrder) {
    for (const BOOL end : {0, -1}) {
        EXPECT_EQ(RunEntry({.lastMessageResult = end}), 0);
        EXPECT_EQ(calls,
                  (Calls{"controls 8 16384", "drawing up", "brush", "register", "create 347,0 1226x849", "show 10",
                         "update", "redraw 385", "translate", "dispatch", "delete brush", "drawing down 42"}));
    }
}

TEST(Entry, AMinimisedStartOpensNormally) {
    RunEntry({}, SW_SHOWMINIMIZED);
    EXPECT_EQ(calls.at(5), "show 1");
}

TEST(Entry, AFailedStepUndoesWhatCameBeforeAndNothingElse) {
    const Calls begin{"controls 8 16384", "drawing up"};
    EXPECT_EQ(RunEntry({.drawingStatus = Gdiplus::GenericError}), 1);
    EXPECT_EQ(calls, begin);
    EXPECT_EQ(RunEntry({.registers = false}), 1);
    EXPECT_EQ(calls, (Calls{"controls 8 16384", "drawing up", "brush", "register", "delete brush", "drawing down 42"}));
    EXPECT_EQ(RunEntry({.creates = false}), 1);
    EXPECT_EQ(calls, (Calls{"controls 8 16384", "drawing up", "brush", "register", "create 347,0 1226x849",
                            "delete brush", "drawing down 42"}));
}

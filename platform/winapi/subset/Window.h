// Windows, messages, input focus and the message box, as far as the launcher uses them.
#pragma once

#include "platform/winapi/subset/Types.h"

using WNDPROC = LRESULT (*)(HWND, UINT, WPARAM, LPARAM);

constexpr UINT WM_CREATE = 0x0001;
constexpr UINT WM_DESTROY = 0x0002;
constexpr UINT WM_SIZE = 0x0005;
constexpr UINT WM_SETFOCUS = 0x0007;
constexpr UINT WM_KILLFOCUS = 0x0008;
constexpr UINT WM_PAINT = 0x000F;
constexpr UINT WM_CLOSE = 0x0010;
constexpr UINT WM_QUIT = 0x0012;
constexpr UINT WM_ERASEBKGND = 0x0014;
constexpr UINT WM_ACTIVATEAPP = 0x001C;
constexpr UINT WM_GETMINMAXINFO = 0x0024;
constexpr UINT WM_DRAWITEM = 0x002B;
constexpr UINT WM_MEASUREITEM = 0x002C;
constexpr UINT WM_SETFONT = 0x0030;
constexpr UINT WM_NCCREATE = 0x0081;
constexpr UINT WM_NCDESTROY = 0x0082;
constexpr UINT WM_KEYDOWN = 0x0100;
constexpr UINT WM_KEYUP = 0x0101;
constexpr UINT WM_COMMAND = 0x0111;
constexpr UINT WM_CTLCOLOREDIT = 0x0133;
constexpr UINT WM_CTLCOLORLISTBOX = 0x0134;
constexpr UINT WM_CTLCOLORSTATIC = 0x0138;
constexpr UINT WM_MOUSEMOVE = 0x0200;
constexpr UINT WM_LBUTTONDOWN = 0x0201;
constexpr UINT WM_LBUTTONUP = 0x0202;
constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
constexpr UINT WM_MOUSELEAVE = 0x02A3;

constexpr WPARAM SIZE_RESTORED = 0;
constexpr WPARAM SIZE_MINIMIZED = 1;

constexpr DWORD WS_CHILD = 0x40000000;
constexpr DWORD WS_VISIBLE = 0x10000000;
constexpr DWORD WS_DISABLED = 0x08000000;
constexpr DWORD WS_CLIPSIBLINGS = 0x04000000;
constexpr DWORD WS_CLIPCHILDREN = 0x02000000;
constexpr DWORD WS_CAPTION = 0x00C00000;
constexpr DWORD WS_VSCROLL = 0x00200000;
constexpr DWORD WS_SYSMENU = 0x00080000;
constexpr DWORD WS_MINIMIZEBOX = 0x00020000;
constexpr DWORD WS_TABSTOP = 0x00010000;

constexpr UINT CS_VREDRAW = 1;
constexpr UINT CS_HREDRAW = 2;

constexpr int GWLP_USERDATA = -21;
constexpr int GWL_STYLE = -16;

constexpr int SW_HIDE = 0;
constexpr int SW_SHOWNORMAL = 1;
constexpr int SW_SHOWMINIMIZED = 2;
constexpr int SW_SHOW = 5;
constexpr int SW_MINIMIZE = 6;
constexpr int SW_SHOWNA = 8;
constexpr int SW_RESTORE = 9;
constexpr int SW_SHOWDEFAULT = 10;

constexpr UINT SWP_NOACTIVATE = 0x0010;
constexpr UINT SWP_SHOWWINDOW = 0x0040;

constexpr UINT RDW_INVALIDATE = 0x0001;
constexpr UINT RDW_ALLCHILDREN = 0x0080;
constexpr UINT RDW_UPDATENOW = 0x0100;

constexpr int SM_CXSCREEN = 0;
constexpr int SM_CYSCREEN = 1;

constexpr WPARAM VK_RETURN = 0x0D;
constexpr WPARAM VK_ESCAPE = 0x1B;
constexpr WPARAM VK_SPACE = 0x20;
constexpr WPARAM VK_PRIOR = 0x21;
constexpr WPARAM VK_NEXT = 0x22;
constexpr WPARAM VK_END = 0x23;
constexpr WPARAM VK_HOME = 0x24;
constexpr WPARAM VK_LEFT = 0x25;
constexpr WPARAM VK_UP = 0x26;
constexpr WPARAM VK_RIGHT = 0x27;
constexpr WPARAM VK_DOWN = 0x28;
constexpr WPARAM VK_DELETE = 0x2E;
constexpr WPARAM VK_TAB = 0x09;

constexpr UINT MB_OK = 0;
constexpr UINT MB_ICONERROR = 0x10;
constexpr UINT MB_ICONWARNING = 0x30;
constexpr UINT MB_ICONINFORMATION = 0x40;
constexpr UINT MB_SETFOREGROUND = 0x10000;
constexpr int IDOK = 1;

constexpr DWORD TME_LEAVE = 2;

#define IDC_ARROW (MAKEINTRESOURCEA(32512))
#define HWND_TOP (static_cast<HWND>(nullptr))

struct WNDCLASSEXW {
    UINT cbSize;
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCWSTR lpszMenuName;
    LPCWSTR lpszClassName;
    HICON hIconSm;
};

struct CREATESTRUCTW {
    void *lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCWSTR lpszName;
    LPCWSTR lpszClass;
    DWORD dwExStyle;
};

struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
};

struct MINMAXINFO {
    POINT ptReserved;
    POINT ptMaxSize;
    POINT ptMaxPosition;
    POINT ptMinTrackSize;
    POINT ptMaxTrackSize;
};

struct TRACKMOUSEEVENT {
    DWORD cbSize;
    DWORD dwFlags;
    HWND hwndTrack;
    DWORD dwHoverTime;
};

// Classes, creation and destruction. A class needs a name, a procedure and no extra bytes. The parts of the launcher's
// styles that a toolkit window has by itself (clipping of children and siblings) are accepted and have no effect.
ATOM RegisterClassExW(const WNDCLASSEXW *windowClass);
HWND CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x, int y, int width, int height,
                     HWND parent, HMENU menuOrId, HINSTANCE instance, void *parameter);
BOOL DestroyWindow(HWND window);
BOOL IsWindow(HWND window);
HICON LoadIconW(HINSTANCE instance, LPCWSTR name);
HCURSOR LoadCursorA(HINSTANCE instance, LPCSTR name);

LONG_PTR SetWindowLongPtrW(HWND window, int index, LONG_PTR value);
LONG_PTR GetWindowLongPtrW(HWND window, int index);

// The message loop of the first thread. Input reaches the window procedures from inside GetMessageW, which comes back
// with WM_QUIT alone; TranslateMessage and DispatchMessageW have nothing left to do.
BOOL GetMessageW(MSG *message, HWND window, UINT first, UINT last);
BOOL TranslateMessage(const MSG *message);
LRESULT DispatchMessageW(const MSG *message);
void PostQuitMessage(int exitCode);
LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Geometry and visibility. Outer and client rectangle are the same: the frame belongs to the desktop.
BOOL AdjustWindowRect(RECT *rect, DWORD style, BOOL menu);
int GetSystemMetrics(int index);
UINT GetDpiForWindow(HWND window);
BOOL GetClientRect(HWND window, RECT *rect);
BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
BOOL SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags);
BOOL BringWindowToTop(HWND window);
BOOL ShowWindow(HWND window, int command);
BOOL IsWindowVisible(HWND window);
BOOL UpdateWindow(HWND window);
BOOL RedrawWindow(HWND window, const RECT *rect, HRGN region, UINT flags);
BOOL InvalidateRect(HWND window, const RECT *rect, BOOL erase);
BOOL InflateRect(RECT *rect, int dx, int dy);
BOOL PtInRect(const RECT *rect, POINT point);

// Input.
HWND SetFocus(HWND window);
HWND GetFocus();
// The calling thread's active window, and the one that the user works with; null where that is none of ours.
HWND GetActiveWindow();
HWND GetForegroundWindow();
BOOL EnableWindow(HWND window, BOOL enable);
BOOL IsWindowEnabled(HWND window);
BOOL TrackMouseEvent(TRACKMOUSEEVENT *event);

// Text of a window or control.
HWND GetDlgItem(HWND window, int id);
int GetDlgCtrlID(HWND window);
int GetWindowTextLengthW(HWND window);
int GetWindowTextW(HWND window, LPWSTR buffer, int size);
BOOL SetWindowTextW(HWND window, LPCWSTR text);

// Title, plain text, one of three icons and one OK button. Blocks; the rest of the program goes on painting.
int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR title, UINT flags);

// The whole life of the process: start-up order, message loop, exit code. A failed start-up is only an exit code.

#include "launcher/LauncherState.h"
#include "launcher/LauncherWindow.h"
#include "launcher/StartUp.h"
#include "launcher/look/Theme.h"
#include "platform/text/WideText.h"

namespace ovrin {

namespace {

constexpr const WideChar *className = WIDE("OvrinLauncherWindow");
constexpr const WideChar *windowTitle = WIDE("OvrinEngine Launcher");
constexpr DWORD windowStyle = WS_CLIPCHILDREN | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX;
constexpr RECT requestedClient{0, 0, 1220, 820};
constexpr WORD iconResource = 101;
constexpr int startUpFailed = 1;

class DrawingLibrary {
public:
    DrawingLibrary() noexcept {
        const Gdiplus::GdiplusStartupInput input;
        started_ = Gdiplus::GdiplusStartup(&token_, &input, nullptr) == Gdiplus::Ok;
    }
    DrawingLibrary(const DrawingLibrary &) = delete;
    DrawingLibrary &operator=(const DrawingLibrary &) = delete;
    ~DrawingLibrary() {
        if (started_) {
            Gdiplus::GdiplusShutdown(token_);
        }
    }

    [[nodiscard]] bool started() const noexcept { return started_; }

private:
    ULONG_PTR token_ = 0;
    bool started_ = false;
};

void InitialiseControlClasses() {
    INITCOMMONCONTROLSEX classes{};
    classes.dwSize = sizeof(classes);
    classes.dwICC = ICC_STANDARD_CLASSES;
    InitCommonControlsEx(&classes);
}

bool RegisterLauncherClass(HINSTANCE instance, HBRUSH background) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = LauncherWndProc;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.hIcon = LoadIconW(instance, MAKEINTRESOURCEW(iconResource));
    windowClass.hIconSm = LoadIconW(instance, MAKEINTRESOURCEW(iconResource));
    windowClass.hbrBackground = background;
    windowClass.lpszClassName = className;
    return RegisterClassExW(&windowClass) != 0;
}

HWND CreateLauncherWindow(HINSTANCE instance, LauncherState &state) {
    RECT outer = requestedClient;
    AdjustWindowRect(&outer, windowStyle, FALSE);
    const int width = outer.right - outer.left;
    const int height = outer.bottom - outer.top;
    const int x = CentredOrigin(GetSystemMetrics(SM_CXSCREEN), width);
    const int y = CentredOrigin(GetSystemMetrics(SM_CYSCREEN), height);
    return CreateWindowExW(0, className, windowTitle, windowStyle, x, y, width, height, nullptr, nullptr, instance,
                           &state);
}

// The first paint of the window and its controls is over before the first message is taken.
void ShowLauncherWindow(HWND window, int showCommand) {
    ShowWindow(window, ResolveShowCommand(showCommand));
    UpdateWindow(window);
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
}

int RunMessageLoop() {
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

int RunLauncher(HINSTANCE instance, int showCommand) {
    InitialiseControlClasses();
    LauncherState state; // goes last: the window refers to it
    const DrawingLibrary drawing;
    if (!drawing.started()) {
        return startUpFailed;
    }
    const UniqueBrush background{CreateSolidBrush(Theme::windowBase)};
    if (!RegisterLauncherClass(instance, background.get())) {
        return startUpFailed;
    }
    const HWND window = CreateLauncherWindow(instance, state);
    if (window == nullptr) {
        return startUpFailed;
    }
    ShowLauncherWindow(window, showCommand);
    return RunMessageLoop();
}

} // namespace

} // namespace ovrin

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previousInstance*/, LPWSTR /*commandLine*/, int showCommand) {
    return ovrin::RunLauncher(instance, showCommand);
}

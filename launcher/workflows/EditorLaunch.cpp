#include "launcher/workflows/EditorLaunch.h"

#include "core/paths/EnginePaths.h"
#include "core/paths/FileStatus.h"
#include "core/paths/PathForm.h"
#include "launcher/workflows/EditorCommandLine.h"
#include "platform/text/NarrowPath.h"

#include <exception>

namespace ovrin {

namespace {

constexpr LauncherMessage editorMissing{WIDE("Editor Missing"),
                                        WIDE("OvrinEditor.exe was not found next to the launcher."), MB_ICONERROR};
constexpr LauncherMessage launchFailed{WIDE("Launch Failed"), WIDE("Failed to start OvrinEditor.exe."), MB_ICONERROR};

class UniqueHandle {
public:
    explicit UniqueHandle(HANDLE handle) noexcept : handle_(handle) {}
    UniqueHandle(const UniqueHandle &) = delete;
    UniqueHandle &operator=(const UniqueHandle &) = delete;
    ~UniqueHandle() { CloseHandle(handle_); }

private:
    HANDLE handle_;
};

bool StartEditor(const std::filesystem::path &editorPath, const std::vector<WideText> &arguments) {
    const WideText application = WideFromPath(editorPath);
    const WideText folder = WideFromPath(PathForm::ParentOf(editorPath));
    // The platform may write into the command line while it takes it apart.
    WideText commandLine = BuildEditorCommandLine(application, arguments);
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process{};
    if (CreateProcessW(application.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, folder.c_str(),
                       &startup, &process) == 0) {
        return false;
    }
    const UniqueHandle processHandle{process.hProcess};
    const UniqueHandle threadHandle{process.hThread};
    return true;
}

} // namespace

void ShowLauncherMessage(HWND parent, const LauncherMessage &message) {
    MessageBoxW(parent, message.text, message.title, message.icon | MB_SETFOREGROUND);
}

std::filesystem::path GetEditorPath() {
    return PathForm::Join(EnginePaths::GetExecutableDirectory(), "OvrinEditor.exe");
}

std::optional<WideText> EditorPathArgument(HWND parent, const std::filesystem::path &path) {
    try {
        return WideFromPath(path);
    } catch (const std::exception &) {
        ShowLauncherMessage(parent, launchFailed);
        return std::nullopt;
    }
}

bool LaunchEditor(HWND parent, const std::vector<WideText> &arguments) {
    const LauncherMessage *failure = &launchFailed;
    try {
        const std::filesystem::path editorPath = GetEditorPath();
        if (!PathExists(editorPath)) {
            failure = &editorMissing;
        } else if (StartEditor(editorPath, arguments)) {
            return true;
        }
    } catch (const std::exception &) {
        // A path that can't be found out or tested: to the user the start has failed like any other.
    }
    ShowLauncherMessage(parent, *failure);
    return false;
}

} // namespace ovrin

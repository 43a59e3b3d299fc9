#include "launcher/workflows/ProjectDialogs.h"

#include "launcher/workflows/FormInput.h"
#include "launcher/workflows/FormText.h"
#include "launcher/workflows/OpenProject.h"
#include "platform/dialogs/NativeFileDialog.h"
#include "platform/text/NarrowPath.h"

#include <exception>
#include <optional>

namespace ovrin {

namespace {

// Empty, which leaves the choice to the dialog, for a text that is no path and where there is no default location.
std::filesystem::path StartingFolder(const WideText &location) {
    try {
        return location.empty() ? DefaultProjectLocation() : PathFromWide(location);
    } catch (const std::exception &) {
        return {};
    }
}

// What went wrong is in the log. A dialog that memory doesn't suffice for ends like any other that failed.
template<typename Ask>
std::optional<std::filesystem::path> ChoosePath(const Ask &ask) {
    try {
        return NativeFileDialog::FirstPath(ask());
    } catch (const std::exception &) {
        return std::nullopt;
    }
}

} // namespace

void BrowseForLocation(LauncherState &state) {
    const WideText location = TrimFormText(ReadFormText(state.locationEdit));
    const auto folder = ChoosePath([&] {
        return NativeFileDialog::PickFolder(
            {.title = "Select Project Location", .defaultFolder = StartingFolder(location)});
    });
    if (folder) {
        SetWindowTextW(state.locationEdit, WideFromPath(*folder).c_str());
    }
}

void OpenProjectFromDialog(HWND window) {
    const auto file = ChoosePath([] {
        return NativeFileDialog::OpenFile({.title = "Open Project",
                                           .defaultFolder = StartingFolder({}),
                                           .filters = {{.label = "Ovrin Project", .pattern = "*.oproject"}}});
    });
    if (file && OpenProjectFile(window, *file)) {
        DestroyWindow(window);
    }
}

} // namespace ovrin

#include "launcher/workflows/FormInput.h"

#include "core/paths/EnginePaths.h"
#include "core/paths/PathForm.h"
#include "platform/text/NarrowPath.h"

namespace ovrin {

WideText ReadFormText(HWND control) {
    const int length = GetWindowTextLengthW(control);
    if (length < 1) {
        return {};
    }
    WideText buffer(static_cast<std::size_t>(length) + 1, WideChar{0});
    GetWindowTextW(control, buffer.data(), length + 1);
    return buffer.substr(0, buffer.find(WideChar{0}));
}

std::filesystem::path DefaultProjectLocation() {
    if (const auto profile = EnginePaths::GetEnvironmentValue("USERPROFILE")) {
        return PathForm::Join(PathForm::Join(PathFromWide(*profile), "Documents"), "OvrinProjects");
    }
    return PathForm::Join(EnginePaths::GetEngineRoot(), "Projects");
}

} // namespace ovrin

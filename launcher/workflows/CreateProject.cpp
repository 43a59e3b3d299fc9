#include "launcher/workflows/CreateProject.h"

#include "core/paths/FileStatus.h"
#include "core/paths/PathForm.h"
#include "launcher/workflows/EditorLaunch.h"
#include "launcher/workflows/FormInput.h"
#include "launcher/workflows/FormText.h"
#include "launcher/workflows/ProjectTemplates.h"
#include "platform/text/NarrowPath.h"
#include "platform/text/TextConversion.h"

#include <exception>
#include <filesystem>
#include <optional>
#include <utility>

namespace ovrin {

namespace {

constexpr LauncherMessage invalidName{WIDE("Invalid Project Name"),
                                      WIDE("Enter a valid project name without characters like /, \\, :, *, ?, or |."),
                                      MB_ICONWARNING};
constexpr LauncherMessage missingLocation{WIDE("Missing Project Location"),
                                          WIDE("Choose a parent folder for the new project."), MB_ICONWARNING};
constexpr LauncherMessage alreadyExists{WIDE("Project Already Exists"),
                                        WIDE("A project file with that name already exists in the selected folder."),
                                        MB_ICONWARNING};
constexpr LauncherMessage folderNotEmpty{
    WIDE("Folder Not Empty"),
    WIDE("The target project folder already exists and is not empty. Choose a different name or location."),
    MB_ICONWARNING};

struct ProjectForm {
    WideText name;
    WideText location;
};

struct ProjectPaths {
    std::filesystem::path root;
    std::filesystem::path file;
};

ProjectForm ReadProjectForm(const LauncherState &state) {
    return {.name = TrimFormText(ReadFormText(state.projectNameEdit)),
            .location = TrimFormText(ReadFormText(state.locationEdit))};
}

const LauncherMessage *RefusalOfForm(const ProjectForm &form) {
    if (!IsValidProjectName(form.name)) {
        return &invalidName;
    }
    return form.location.empty() ? &missingLocation : nullptr;
}

// The editor starts in a folder of its own, so a relative location is settled here, for both programs alike.
ProjectPaths LocateProject(const ProjectForm &form) {
    const std::filesystem::path location = PathForm::MakeAbsolute(PathFromWide(form.location));
    std::filesystem::path root = PathForm::Join(location, PathFromWide(form.name));
    std::filesystem::path file = ProjectFileForFolder(root);
    return {.root = std::move(root), .file = std::move(file)};
}

const LauncherMessage *RefusalOfTarget(const ProjectPaths &paths) {
    if (PathExists(paths.file)) {
        return &alreadyExists;
    }
    return PathExists(paths.root) && !IsPathEmpty(paths.root) ? &folderNotEmpty : nullptr;
}

// Makes the project's folder and gives the path of the project file in it; without one the user has been told.
std::optional<std::filesystem::path> PrepareProjectFolder(HWND window, const ProjectForm &form) {
    try {
        const ProjectPaths paths = LocateProject(form);
        if (const LauncherMessage *refusal = RefusalOfTarget(paths)) {
            ShowLauncherMessage(window, *refusal);
            return std::nullopt;
        }
        CreateDirectoryChain(paths.root);
        return paths.file;
    } catch (const std::exception &error) {
        const WideText text = Utf8ToWideLenient(error.what());
        ShowLauncherMessage(window, {WIDE("Create Project Failed"), text.c_str(), MB_ICONERROR});
        return std::nullopt;
    }
}

} // namespace

void CreateProject(HWND window, LauncherState &state) {
    const ProjectForm form = ReadProjectForm(state);
    if (const LauncherMessage *refusal = RefusalOfForm(form)) {
        ShowLauncherMessage(window, *refusal);
        return;
    }
    const auto file = PrepareProjectFolder(window, form);
    if (!file) {
        return;
    }
    const auto fileArgument = EditorPathArgument(window, *file);
    if (!fileArgument) {
        return;
    }
    const WideText identifier{GetTemplateIdentifier(state.selectedTemplate)};
    if (LaunchEditor(window, {WIDE("--create-project"), *fileArgument, WIDE("--project-name"), form.name,
                              WIDE("--project-template"), identifier})) {
        DestroyWindow(window);
    }
}

} // namespace ovrin

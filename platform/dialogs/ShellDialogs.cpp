// The drivers over the platform's Common Item Dialog.
#include "platform/dialogs/ShellDialogs.h"

#include "platform/dialogs/ComScopes.h"
#include "platform/dialogs/DialogOutcomes.h"
#include "platform/dialogs/DialogSelection.h"
#include "platform/dialogs/DialogSetup.h"
#include "platform/winapi/WinApi.h"

#include <string_view>

namespace ovrin {

namespace {

constexpr FILEOPENDIALOGOPTIONS commonOptions = FOS_NOCHANGEDIR | FOS_FORCEFILESYSTEM | FOS_PATHMUSTEXIST;
constexpr FILEOPENDIALOGOPTIONS folderOptions = commonOptions | FOS_PICKFOLDERS;
constexpr FILEOPENDIALOGOPTIONS openOptions = commonOptions | FOS_FILEMUSTEXIST;
constexpr FILEOPENDIALOGOPTIONS saveOptions = commonOptions | FOS_OVERWRITEPROMPT;

// A class of dialogs, and the names of its operations in a failure's text.
struct DialogClass {
    const CLSID &classId;
    const IID &interfaceId;
    std::string_view create;
    std::string_view getOptions;
    std::string_view setOptions;
    std::string_view show;
    std::string_view getResult;
};

constexpr DialogClass openDialog{.classId = CLSID_FileOpenDialog,
                                 .interfaceId = IID_IFileOpenDialog,
                                 .create = "CoCreateInstance(CLSID_FileOpenDialog)",
                                 .getOptions = "IFileOpenDialog::GetOptions",
                                 .setOptions = "IFileOpenDialog::SetOptions",
                                 .show = "IFileOpenDialog::Show",
                                 .getResult = "IFileOpenDialog::GetResult"};
constexpr DialogClass saveDialog{.classId = CLSID_FileSaveDialog,
                                 .interfaceId = IID_IFileSaveDialog,
                                 .create = "CoCreateInstance(CLSID_FileSaveDialog)",
                                 .getOptions = "IFileSaveDialog::GetOptions",
                                 .setOptions = "IFileSaveDialog::SetOptions",
                                 .show = "IFileSaveDialog::Show",
                                 .getResult = "IFileSaveDialog::GetResult"};

// What the platform has set stays set.
FileDialogResult AddOptions(IFileDialog &dialog, const DialogClass &dialogClass, FILEOPENDIALOGOPTIONS options) {
    FILEOPENDIALOGOPTIONS word = 0;
    FileDialogResult outcome = OutcomeOf(dialogClass.getOptions, dialog.GetOptions(&word));
    if (GoesOn(outcome)) {
        outcome = OutcomeOf(dialogClass.setOptions, dialog.SetOptions(word | options));
    }
    return outcome;
}

HWND ChooseParentWindow() {
    const HWND active = GetActiveWindow();
    return active != nullptr ? active : GetForegroundWindow();
}

FileDialogResult ShowDialog(IFileDialog &dialog, const DialogClass &dialogClass) {
    constexpr auto cancelled = static_cast<HRESULT>(0x800704C7);
    const HRESULT result = dialog.Show(ChooseParentWindow());
    if (result == cancelled) {
        return {.status = FileDialogStatus::Cancelled, .paths = {}, .message = {}};
    }
    return OutcomeOf(dialogClass.show, result);
}

// One run from apartment to result. What it holds ends in the opposite order: file types, dialog, apartment.
template<typename Dialog, typename Configure, typename Read>
FileDialogResult RunDialog(const DialogClass &dialogClass, FILEOPENDIALOGOPTIONS options, const Configure &configure,
                           const Read &read) {
    const ComApartmentScope apartment;
    if (!apartment.IsOwned()) {
        return PlatformFailure("CoInitializeEx", apartment.Result());
    }
    void *object = nullptr;
    const HRESULT created =
        CoCreateInstance(dialogClass.classId, nullptr, CLSCTX_INPROC_SERVER, dialogClass.interfaceId, &object);
    const ComPointer<Dialog> dialog(static_cast<Dialog *>(object));
    if (created < 0 || dialog == nullptr) {
        return NothingGiven(dialogClass.create, created);
    }
    FileTypeSpecTable fileTypes;
    FileDialogResult outcome = AddOptions(*dialog, dialogClass, options);
    if (GoesOn(outcome)) {
        outcome = configure(*dialog, fileTypes);
    }
    if (GoesOn(outcome)) {
        outcome = ShowDialog(*dialog, dialogClass);
    }
    return GoesOn(outcome) ? read(*dialog) : outcome;
}

} // namespace

FileDialogResult RunFolderDialog(const FolderDialogRequest &request) {
    return RunDialog<IFileOpenDialog>(
        openDialog, folderOptions,
        [&](IFileDialog &dialog, FileTypeSpecTable &fileTypes) {
            return ConfigureDialog(dialog, {request.title, request.defaultFolder, {}}, fileTypes);
        },
        [](IFileDialog &dialog) { return ReadOneSelection(dialog, openDialog.getResult); });
}

FileDialogResult RunOpenDialog(const OpenFileDialogRequest &request, bool allowMultiple) {
    return RunDialog<IFileOpenDialog>(
        openDialog, allowMultiple ? openOptions | FOS_ALLOWMULTISELECT : openOptions,
        [&](IFileDialog &dialog, FileTypeSpecTable &fileTypes) {
            return ConfigureDialog(dialog, {request.title, request.defaultFolder, request.filters}, fileTypes);
        },
        ReadAllSelections);
}

FileDialogResult RunSaveDialog(const SaveFileDialogRequest &request) {
    return RunDialog<IFileSaveDialog>(
        saveDialog, saveOptions,
        [&](IFileDialog &dialog, FileTypeSpecTable &fileTypes) {
            FileDialogResult outcome =
                ConfigureDialog(dialog, {request.title, request.defaultFolder, request.filters}, fileTypes);
            return GoesOn(outcome) ? ConfigureSaving(dialog, request) : outcome;
        },
        [](IFileDialog &dialog) { return ReadOneSelection(dialog, saveDialog.getResult); });
}

} // namespace ovrin

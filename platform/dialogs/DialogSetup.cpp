#include "platform/dialogs/DialogSetup.h"

#include "core/paths/FileStatus.h"
#include "platform/dialogs/ComScopes.h"
#include "platform/dialogs/DialogOutcomes.h"
#include "platform/text/NarrowPath.h"
#include "platform/text/TextConversion.h"

#include <system_error>
#include <utility>

namespace ovrin {

namespace {

struct DialogText {
    HRESULT (STDMETHODCALLTYPE IFileDialog::*set)(LPCWSTR text);
    std::string_view operation;
    std::string_view subject;
};

constexpr DialogText titleText{&IFileDialog::SetTitle, "IFileDialog::SetTitle", "File dialog title"};
constexpr DialogText extensionText{&IFileDialog::SetDefaultExtension, "IFileSaveDialog::SetDefaultExtension",
                                   "Default file extension"};
constexpr DialogText nameText{&IFileDialog::SetFileName, "IFileSaveDialog::SetFileName", "Suggested file name"};

// The dialog keeps its own copy.
FileDialogResult SetText(IFileDialog &dialog, const DialogText &kind, std::string_view text) {
    const WideText wide = Utf8ToWide(text);
    return wide.empty() ? InvalidText(kind.subject) : OutcomeOf(kind.operation, (dialog.*kind.set)(wide.c_str()));
}

FileDialogResult SetFileTypes(IFileDialog &dialog, std::span<const FileDialogFilter> filters,
                              FileTypeSpecTable &fileTypes) {
    auto table = BuildFileTypeSpecs(filters);
    if (!table) {
        return InvalidText("File dialog filter");
    }
    fileTypes = std::move(*table);
    FileDialogResult outcome =
        OutcomeOf("IFileDialog::SetFileTypes",
                  dialog.SetFileTypes(static_cast<UINT>(fileTypes.specs.size()), fileTypes.specs.data()));
    if (GoesOn(outcome)) {
        dialog.SetFileTypeIndex(1); // counts from 1
    }
    return outcome;
}

// Empty for a path whose bytes are no text, where paths are bytes.
WideText TextOf(const std::filesystem::path &path) {
    try {
        return WideFromPath(path);
    } catch (const std::system_error &) {
        return {};
    }
}

// Null where the system has no item for it.
ComPointer<IShellItem> FolderItem(const WideText &folder) {
    void *object = nullptr;
    const HRESULT result = SHCreateItemFromParsingName(folder.c_str(), nullptr, IID_IShellItem, &object);
    ComPointer<IShellItem> item(static_cast<IShellItem *>(object));
    if (result < 0) {
        item.reset();
    }
    return item;
}

// Whatever fails here leaves the starting folder to the platform, a folder that isn't there too.
void SetStartingFolder(IFileDialog &dialog, const std::filesystem::path &folder) {
    const WideText text = IsFolder(folder) ? TextOf(folder) : WideText();
    if (text.empty()) {
        return;
    }
    if (const auto item = FolderItem(text)) {
        dialog.SetDefaultFolder(item.get());
        dialog.SetFolder(item.get());
    }
}

FileDialogResult SetExtension(IFileDialog &dialog, std::string_view extension) {
    if (extension.starts_with('.')) {
        extension.remove_prefix(1);
    }
    return SetText(dialog, extensionText, extension);
}

} // namespace

FileDialogResult ConfigureDialog(IFileDialog &dialog, const DialogContent &content, FileTypeSpecTable &fileTypes) {
    FileDialogResult outcome = content.title.empty() ? GoOn() : SetText(dialog, titleText, content.title);
    if (GoesOn(outcome) && !content.filters.empty()) {
        outcome = SetFileTypes(dialog, content.filters, fileTypes);
    }
    if (GoesOn(outcome)) {
        SetStartingFolder(dialog, content.defaultFolder);
    }
    return outcome;
}

FileDialogResult ConfigureSaving(IFileDialog &dialog, const SaveFileDialogRequest &request) {
    FileDialogResult outcome =
        request.defaultExtension.empty() ? GoOn() : SetExtension(dialog, request.defaultExtension);
    if (GoesOn(outcome) && !request.suggestedName.empty()) {
        outcome = SetText(dialog, nameText, request.suggestedName);
    }
    return outcome;
}

} // namespace ovrin

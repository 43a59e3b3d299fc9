#include "platform/dialogs/DialogSelection.h"

#include "platform/dialogs/ComScopes.h"
#include "platform/dialogs/DialogOutcomes.h"
#include "platform/text/NarrowPath.h"

#include <system_error>
#include <utility>

namespace ovrin {

namespace {

// `give` is a call that hands out an object through its argument.
template<typename Interface, typename Give>
std::pair<HRESULT, ComPointer<Interface>> Receive(const Give &give) {
    Interface *object = nullptr;
    const HRESULT result = give(&object);
    return {result, ComPointer<Interface>(object)};
}

FileDialogResult ShellItemPath(IShellItem &item) {
    constexpr std::string_view operation = "IShellItem::GetDisplayName";
    WideChar *name = nullptr;
    const HRESULT result = item.GetDisplayName(SIGDN_FILESYSPATH, &name);
    const ComText owner(name);
    if (result < 0 || name == nullptr) {
        return NothingGiven(operation, result);
    }
    try {
        return {.status = FileDialogStatus::Accepted, .paths = {PathFromWide(name)}, .message = {}};
    } catch (const std::system_error &) { // where paths are bytes, some text is no path
        constexpr auto noTranslation = static_cast<HRESULT>(0x80070459);
        return PlatformFailure(operation, noTranslation);
    }
}

FileDialogResult PathOfItem(const ComPointer<IShellItem> &item, HRESULT result, std::string_view operation) {
    return result < 0 || item == nullptr ? NothingGiven(operation, result) : ShellItemPath(*item);
}

FileDialogResult PathAt(IShellItemArray &items, DWORD index) {
    const auto [result, item] =
        Receive<IShellItem>([&](IShellItem **object) { return items.GetItemAt(index, object); });
    return PathOfItem(item, result, "IShellItemArray::GetItemAt");
}

} // namespace

FileDialogResult ReadOneSelection(IFileDialog &dialog, std::string_view operation) {
    const auto [result, item] = Receive<IShellItem>([&](IShellItem **object) { return dialog.GetResult(object); });
    return PathOfItem(item, result, operation);
}

FileDialogResult ReadAllSelections(IFileOpenDialog &dialog) {
    const auto [result, items] =
        Receive<IShellItemArray>([&](IShellItemArray **object) { return dialog.GetResults(object); });
    if (result < 0 || items == nullptr) {
        return NothingGiven("IFileOpenDialog::GetResults", result);
    }
    DWORD count = 0;
    const HRESULT counted = items->GetCount(&count);
    if (counted < 0 || count == 0) {
        return PlatformFailure("IShellItemArray::GetCount", counted < 0 ? counted : E_UNEXPECTED);
    }
    FileDialogResult all = GoOn();
    for (DWORD index = 0; index < count; ++index) {
        FileDialogResult one = PathAt(*items, index);
        if (!GoesOn(one)) {
            return one;
        }
        all.paths.push_back(std::move(one.paths.front()));
    }
    return all;
}

} // namespace ovrin

// The interfaces of the file dialogs with every method that nobody calls answered.
#pragma once

#include "platform/winapi/WinApi.h"

namespace ovrin::testing {

#define OVRIN_NOT_CALLED(name, ...)                                                                                    \
    HRESULT STDMETHODCALLTYPE name(__VA_ARGS__) override {                                                             \
        return E_NOTIMPL;                                                                                              \
    }

struct WholeShellItem : IShellItem {
    OVRIN_NOT_CALLED(BindToHandler, IBindCtx *, REFGUID, REFIID, void **)
    OVRIN_NOT_CALLED(GetParent, IShellItem **)
    OVRIN_NOT_CALLED(GetAttributes, SFGAOF, SFGAOF *)
    OVRIN_NOT_CALLED(Compare, IShellItem *, SICHINTF, int *)
};

struct WholeShellItemArray : IShellItemArray {
    OVRIN_NOT_CALLED(BindToHandler, IBindCtx *, REFGUID, REFIID, void **)
    OVRIN_NOT_CALLED(GetPropertyStore, GETPROPERTYSTOREFLAGS, REFIID, void **)
    OVRIN_NOT_CALLED(GetPropertyDescriptionList, REFPROPERTYKEY, REFIID, void **)
    OVRIN_NOT_CALLED(GetAttributes, SIATTRIBFLAGS, SFGAOF, SFGAOF *)
    OVRIN_NOT_CALLED(EnumItems, IEnumShellItems **)
};

template<typename Dialog>
struct WholeFileDialog : Dialog {
    OVRIN_NOT_CALLED(GetFileTypeIndex, UINT *)
    OVRIN_NOT_CALLED(Advise, IFileDialogEvents *, DWORD *)
    OVRIN_NOT_CALLED(Unadvise, DWORD)
    OVRIN_NOT_CALLED(GetFolder, IShellItem **)
    OVRIN_NOT_CALLED(GetCurrentSelection, IShellItem **)
    OVRIN_NOT_CALLED(GetFileName, LPWSTR *)
    OVRIN_NOT_CALLED(SetOkButtonLabel, LPCWSTR)
    OVRIN_NOT_CALLED(SetFileNameLabel, LPCWSTR)
    OVRIN_NOT_CALLED(AddPlace, IShellItem *, FDAP)
    OVRIN_NOT_CALLED(Close, HRESULT)
    OVRIN_NOT_CALLED(SetClientGuid, REFGUID)
    OVRIN_NOT_CALLED(ClearClientData)
    OVRIN_NOT_CALLED(SetFilter, IShellItemFilter *)
};

struct WholeOpenDialog : WholeFileDialog<IFileOpenDialog> {
    OVRIN_NOT_CALLED(GetSelectedItems, IShellItemArray **)
};

struct WholeSaveDialog : WholeFileDialog<IFileSaveDialog> {
    OVRIN_NOT_CALLED(SetSaveAsItem, IShellItem *)
    OVRIN_NOT_CALLED(SetProperties, IPropertyStore *)
    OVRIN_NOT_CALLED(SetCollectedProperties, IPropertyDescriptionList *, BOOL)
    OVRIN_NOT_CALLED(GetProperties, IPropertyStore **)
    OVRIN_NOT_CALLED(ApplyProperties, IShellItem *, IPropertyStore *, HWND, IFileOperationProgressSink *)
};

#undef OVRIN_NOT_CALLED

} // namespace ovrin::testing

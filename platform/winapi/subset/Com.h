// Objects with counted references, and the file dialogs and shell items that are made of them. Only the methods that
// are called stand in the interfaces.
#pragma once

#include "platform/winapi/subset/Types.h"

#define STDMETHODCALLTYPE

struct GUID {
    DWORD Data1;
    WORD Data2;
    WORD Data3;
    BYTE Data4[8];

    friend bool operator==(const GUID &left, const GUID &right) = default;
};
using IID = GUID;
using CLSID = GUID;
using REFIID = const IID &;
using REFCLSID = const CLSID &;

constexpr DWORD COINIT_APARTMENTTHREADED = 2;
constexpr DWORD COINIT_DISABLE_OLE1DDE = 4;
constexpr DWORD CLSCTX_INPROC_SERVER = 1;

struct IUnknown {
    virtual HRESULT QueryInterface(REFIID iid, void **object) = 0;
    virtual ULONG AddRef() = 0;
    virtual ULONG Release() = 0;

protected:
    ~IUnknown() = default; // goes with the last reference
};

// Each thread enters and leaves for itself; only COINIT_APARTMENTTHREADED is known.
HRESULT CoInitializeEx(void *reserved, DWORD flags);
void CoUninitialize();
// The dialogs alone. CO_E_NOTINITIALIZED on a thread that hasn't entered.
HRESULT CoCreateInstance(REFCLSID clsid, IUnknown *outer, DWORD context, REFIID iid, void **object);
void *CoTaskMemAlloc(std::size_t size);
void CoTaskMemFree(void *memory);

using SIGDN = int;
constexpr SIGDN SIGDN_FILESYSPATH = static_cast<SIGDN>(0x80058000);

struct IBindCtx;

// An entry of the file system.
struct IShellItem : IUnknown {
    // Only SIGDN_FILESYSPATH. The caller frees the name with CoTaskMemFree.
    virtual HRESULT GetDisplayName(SIGDN form, LPWSTR *name) = 0;

protected:
    ~IShellItem() = default;
};

struct IShellItemArray : IUnknown {
    virtual HRESULT GetCount(DWORD *count) = 0;
    virtual HRESULT GetItemAt(DWORD index, IShellItem **item) = 0;

protected:
    ~IShellItemArray() = default;
};

// Fails with the system's code for a path that doesn't exist.
HRESULT SHCreateItemFromParsingName(LPCWSTR path, IBindCtx *context, REFIID iid, void **object);

struct COMDLG_FILTERSPEC {
    LPCWSTR pszName;
    LPCWSTR pszSpec; // patterns, a semicolon between two
};

using FILEOPENDIALOGOPTIONS = DWORD;
constexpr FILEOPENDIALOGOPTIONS FOS_OVERWRITEPROMPT = 0x2;
constexpr FILEOPENDIALOGOPTIONS FOS_NOCHANGEDIR = 0x8;
constexpr FILEOPENDIALOGOPTIONS FOS_PICKFOLDERS = 0x20;
constexpr FILEOPENDIALOGOPTIONS FOS_FORCEFILESYSTEM = 0x40;
constexpr FILEOPENDIALOGOPTIONS FOS_ALLOWMULTISELECT = 0x200;
constexpr FILEOPENDIALOGOPTIONS FOS_PATHMUSTEXIST = 0x800;
constexpr FILEOPENDIALOGOPTIONS FOS_FILEMUSTEXIST = 0x1000;
constexpr FILEOPENDIALOGOPTIONS FOS_NOREADONLYRETURN = 0x8000;

struct IModalWindow : IUnknown {
    // Blocks until the dialog is closed: 0x800704C7 where the user cancelled.
    virtual HRESULT Show(HWND owner) = 0;

protected:
    ~IModalWindow() = default;
};

struct IFileDialog : IModalWindow {
    virtual HRESULT SetFileTypes(UINT count, const COMDLG_FILTERSPEC *specs) = 0;
    virtual HRESULT SetFileTypeIndex(UINT index) = 0; // from 1
    virtual HRESULT SetOptions(FILEOPENDIALOGOPTIONS options) = 0;
    virtual HRESULT GetOptions(FILEOPENDIALOGOPTIONS *options) = 0;
    virtual HRESULT SetDefaultFolder(IShellItem *folder) = 0;
    virtual HRESULT SetFolder(IShellItem *folder) = 0;
    virtual HRESULT SetFileName(LPCWSTR name) = 0;
    virtual HRESULT SetTitle(LPCWSTR title) = 0;
    virtual HRESULT GetResult(IShellItem **item) = 0;
    virtual HRESULT SetDefaultExtension(LPCWSTR extension) = 0;

protected:
    ~IFileDialog() = default;
};

struct IFileOpenDialog : IFileDialog {
    virtual HRESULT GetResults(IShellItemArray **items) = 0;

protected:
    ~IFileOpenDialog() = default;
};

struct IFileSaveDialog : IFileDialog {
protected:
    ~IFileSaveDialog() = default;
};

constexpr IID IID_IUnknown{0x00000000, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
constexpr IID IID_IModalWindow{0xB4DB1657, 0x70D7, 0x485E, {0x8E, 0x3E, 0x6F, 0xCB, 0x5A, 0x5C, 0x18, 0x02}};
constexpr IID IID_IFileDialog{0x42F85136, 0xDB7E, 0x439C, {0x85, 0xF1, 0xE4, 0x07, 0x5D, 0x13, 0x5F, 0xC8}};
constexpr IID IID_IFileOpenDialog{0xD57C7288, 0xD4AD, 0x4768, {0xBE, 0x02, 0x9D, 0x96, 0x95, 0x32, 0xD9, 0x60}};
constexpr IID IID_IFileSaveDialog{0x84BCCD23, 0x5FDE, 0x4CDB, {0xAE, 0xA4, 0xAF, 0x64, 0xB8, 0x3D, 0x78, 0xAB}};
constexpr IID IID_IShellItem{0x43826D1E, 0xE718, 0x42EE, {0xBC, 0x55, 0xA1, 0xE2, 0x61, 0xC3, 0x7B, 0xFE}};
constexpr IID IID_IShellItemArray{0xB63EA76D, 0x1F85, 0x456F, {0xA1, 0x9C, 0x48, 0x15, 0x9E, 0xFA, 0x85, 0x8B}};
constexpr CLSID CLSID_FileOpenDialog{0xDC1C5A9C, 0xE88A, 0x4DDE, {0xA5, 0xA1, 0x60, 0xF8, 0x2A, 0x20, 0xAE, 0xF7}};
constexpr CLSID CLSID_FileSaveDialog{0xC0B4E2F3, 0xBA21, 0x4773, {0x8D, 0xBA, 0x33, 0x5E, 0xC9, 0x46, 0xEB, 0x8B}};

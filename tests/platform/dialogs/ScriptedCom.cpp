#include "tests/platform/dialogs/ScriptedCom.h"

#include "platform/text/TextConversion.h"

#include "WholeInterfaces.h"

#include <cstdlib>
#include <new>
#include <sstream>
#include <utility>

namespace ovrin::testing {

namespace {

ComScript script;
std::vector<std::string> lines;
const void *fileTypes = nullptr; // given to SetFileTypes last

std::string Told(IShellItem *item);
std::string Told(LPCWSTR text) {
    return WideToUtf8(text);
}
template<typename Other>
const Other &Told(const Other &value) {
    return value;
}

template<typename... Part>
void Note(const std::string &words, const Part &...parts) {
    std::ostringstream line;
    line << words << std::hex;
    ((line << ' ' << Told(parts)), ...);
    lines.push_back(line.str());
}

// Whether the call noted last does.
bool GoesWrong() {
    return !script.at.empty() && lines.back().starts_with(script.at);
}

template<typename... Part>
HRESULT Play(const Part &...parts) {
    Note(parts...);
    if (!GoesWrong()) {
        return S_OK;
    }
    if (script.raises) {
        throw std::bad_alloc();
    }
    return script.result;
}

template<typename Value, typename Place, typename... Part>
HRESULT Give(Value value, Place *place, const Part &...parts) {
    *place = {};
    const HRESULT result = Play(parts...);
    if (!GoesWrong() || script.gives) {
        *place = value;
    }
    return result;
}

template<typename Whole>
class ScriptedObject : public Whole {
public:
    explicit ScriptedObject(std::string name) : name_(std::move(name)) {}
    virtual ~ScriptedObject() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void **) override { return Play("QueryInterface", name_); }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(Play("AddRef", name_)); }
    ULONG STDMETHODCALLTYPE Release() override {
        Note("release", name_);
        return 0;
    }

protected:
    std::string name_;
};

class ScriptedItem final : public ScriptedObject<WholeShellItem> {
public:
    explicit ScriptedItem(std::string name, std::size_t index = 0) : ScriptedObject(std::move(name)), index_(index) {}

    HRESULT STDMETHODCALLTYPE GetDisplayName(SIGDN form, LPWSTR *name) override {
        path_ = script.chosen.at(index_);
        return Give(path_.data(), name, "GetDisplayName", static_cast<DWORD>(form), name_);
    }

private:
    std::size_t index_;
    WideText path_;
};

ScriptedItem folder("folder");
ScriptedItem items[] = {ScriptedItem("item0", 0), ScriptedItem("item1", 1), ScriptedItem("item2", 2)};

std::string Told(IShellItem *item) {
    return item == &folder ? "folder" : "another";
}

class ScriptedArray final : public ScriptedObject<WholeShellItemArray> {
public:
    using ScriptedObject::ScriptedObject;

    HRESULT STDMETHODCALLTYPE GetCount(DWORD *count) override {
        return Give(static_cast<DWORD>(script.chosen.size()), count, "GetCount");
    }
    HRESULT STDMETHODCALLTYPE GetItemAt(DWORD index, IShellItem **item) override {
        return Give(&items[index], item, "GetItemAt", index);
    }
};

ScriptedArray array("array");

#define OVRIN_PLAYED(name, type)                                                                                       \
    HRESULT STDMETHODCALLTYPE name(type value) override {                                                              \
        return Play(#name, value);                                                                                     \
    }

template<typename Whole>
class ScriptedDialog : public ScriptedObject<Whole> {
public:
    using ScriptedObject<Whole>::ScriptedObject;

    OVRIN_PLAYED(Show, HWND)
    OVRIN_PLAYED(SetFileTypeIndex, UINT)
    OVRIN_PLAYED(SetOptions, FILEOPENDIALOGOPTIONS)
    OVRIN_PLAYED(SetDefaultFolder, IShellItem *)
    OVRIN_PLAYED(SetFolder, IShellItem *)
    OVRIN_PLAYED(SetFileName, LPCWSTR)
    OVRIN_PLAYED(SetTitle, LPCWSTR)
    OVRIN_PLAYED(SetDefaultExtension, LPCWSTR)

    HRESULT STDMETHODCALLTYPE SetFileTypes(UINT count, const COMDLG_FILTERSPEC *specs) override {
        fileTypes = specs;
        for (UINT index = 0; index < count; ++index) {
            Note("file type", specs[index].pszName, specs[index].pszSpec);
        }
        return Play("SetFileTypes");
    }
    HRESULT STDMETHODCALLTYPE GetOptions(FILEOPENDIALOGOPTIONS *options) override {
        *options |= script.options;
        return Play("GetOptions");
    }
    HRESULT STDMETHODCALLTYPE GetResult(IShellItem **item) override { return Give(&items[0], item, "GetResult"); }
};

#undef OVRIN_PLAYED

class ScriptedOpenDialog final : public ScriptedDialog<WholeOpenDialog> {
public:
    using ScriptedDialog::ScriptedDialog;
    HRESULT STDMETHODCALLTYPE GetResults(IShellItemArray **results) override {
        return Give(&array, results, "GetResults");
    }
};

ScriptedOpenDialog openDialog("dialog");
ScriptedDialog<WholeSaveDialog> saveDialog("dialog");

void Free(void *memory) {
    if (memory != nullptr && memory == fileTypes) {
        fileTypes = nullptr;
        Note("free file types");
    }
    std::free(memory);
}

} // namespace

void PlayCom(ComScript newScript) {
    script = std::move(newScript);
    fileTypes = nullptr;
    lines.clear();
}

const std::vector<std::string> &ComLines() {
    return lines;
}

} // namespace ovrin::testing

using namespace ovrin::testing;

HRESULT WINAPI CoInitializeEx(void *reserved, DWORD flags) {
    return Play("CoInitializeEx", flags, reserved);
}
void WINAPI CoUninitialize() {
    Note("leave apartment");
}
HRESULT WINAPI CoCreateInstance(REFCLSID clsid, IUnknown *outer, DWORD context, REFIID iid, void **object) {
    if (clsid == CLSID_FileOpenDialog && iid == IID_IFileOpenDialog && outer == nullptr) {
        return Give(static_cast<IFileOpenDialog *>(&openDialog), object, "CoCreateInstance open", context);
    }
    if (clsid == CLSID_FileSaveDialog && iid == IID_IFileSaveDialog && outer == nullptr) {
        return Give(static_cast<IFileSaveDialog *>(&saveDialog), object, "CoCreateInstance save", context);
    }
    return REGDB_E_CLASSNOTREG;
}
void WINAPI CoTaskMemFree(void *memory) {
    *static_cast<WCHAR *>(memory) = 0; // whoever reads on sees nothing
    Note("free text");
}
HRESULT WINAPI SHCreateItemFromParsingName(LPCWSTR path, IBindCtx *context, REFIID iid, void **object) {
    if (context != nullptr || iid != IID_IShellItem) {
        return E_NOINTERFACE;
    }
    return Give(static_cast<IShellItem *>(&folder), object, "SHCreateItemFromParsingName", path);
}
HWND WINAPI GetActiveWindow() {
    Note("active window");
    return reinterpret_cast<HWND>(script.activeWindow);
}
HWND WINAPI GetForegroundWindow() {
    Note("foreground window");
    return reinterpret_cast<HWND>(script.foregroundWindow);
}

// The allocator tells of the file types.
void *operator new(std::size_t size) {
    if (void *const memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc();
}
void operator delete(void *memory) noexcept {
    Free(memory);
}
void operator delete(void *memory, std::size_t /*size*/) noexcept {
    Free(memory);
}

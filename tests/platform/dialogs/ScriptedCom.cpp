#include "tests/platform/dialogs/ScriptedCom.h"

#include "platform/text/TextConversion.h"
#include "tests/platform/dialogs/MemoryWatch.h"

#include "WholeInterfaces.h"

#include <cstdlib>
#include <deque>
#include <new>
#include <sstream>
#include <string_view>
#include <utility>

namespace ovrin::testing {

namespace {

ComScript script;
Calls calls;

void Note(std::string call) {
    calls.push_back(std::move(call));
}

bool GoesWrong(const std::string &call) {
    return !std::string_view(script.at).empty() && call.starts_with(script.at);
}

HRESULT Play(const std::string &call) {
    Note(call);
    if (!GoesWrong(call)) {
        return S_OK;
    }
    if (script.raises) {
        throw std::bad_alloc();
    }
    return script.result;
}

template<typename Object, typename Place>
HRESULT Give(const std::string &call, Object *object, Place **place) {
    *place = nullptr;
    const HRESULT result = Play(call);
    if (!GoesWrong(call) || script.givesAnyway || (result >= 0 && !script.givesNothing)) {
        *place = object;
    }
    return result;
}

std::string Line(std::string_view words, std::string_view detail) {
    std::string line(words);
    line += detail;
    return line;
}

std::string Hex(unsigned long long number) {
    std::ostringstream text;
    text << std::hex << number;
    return text.str();
}

template<typename Whole>
class ScriptedObject : public Whole {
public:
    explicit ScriptedObject(std::string name) : name_(std::move(name)) {}
    ScriptedObject(const ScriptedObject &) = delete;
    ScriptedObject &operator=(const ScriptedObject &) = delete;
    virtual ~ScriptedObject() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void **object) override {
        Note(Line("query ", name_));
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override {
        Note(Line("add reference to ", name_));
        return 2;
    }
    ULONG STDMETHODCALLTYPE Release() override {
        Note(Line("release ", name_));
        return 0;
    }

protected:
    [[nodiscard]] const std::string &Name() const { return name_; }

private:
    std::string name_;
};

WideChar *CopyOf(const WideText &text) {
    auto *const copy = static_cast<WideChar *>(std::calloc(text.size() + 1, sizeof(WideChar)));
    text.copy(copy, text.size());
    return copy;
}

class ScriptedItem final : public ScriptedObject<WholeShellItem> {
public:
    ScriptedItem(std::string name, WideText path) : ScriptedObject(std::move(name)), path_(std::move(path)) {}

    HRESULT STDMETHODCALLTYPE GetDisplayName(SIGDN form, LPWSTR *name) override {
        ScriptedItem *given = nullptr;
        const HRESULT result =
            Give(Line("GetDisplayName ", Hex(static_cast<DWORD>(form))) + Line(" of ", Name()), this, &given);
        *name = given == nullptr ? nullptr : CopyOf(path_);
        return result;
    }

private:
    WideText path_;
};

ScriptedItem folder("folder", {});
std::deque<ScriptedItem> items;

class ScriptedArray final : public ScriptedObject<WholeShellItemArray> {
public:
    using ScriptedObject::ScriptedObject;

    HRESULT STDMETHODCALLTYPE GetCount(DWORD *count) override {
        const HRESULT result = Play("GetCount");
        *count = GoesWrong("GetCount") && script.givesNothing ? 0 : static_cast<DWORD>(items.size());
        return result;
    }
    HRESULT STDMETHODCALLTYPE GetItemAt(DWORD index, IShellItem **item) override {
        return Give(Line("GetItemAt ", std::to_string(index)), &items.at(index), item);
    }
};

ScriptedArray array("array");

template<typename Whole>
class ScriptedDialog : public ScriptedObject<Whole> {
public:
    using ScriptedObject<Whole>::ScriptedObject;

    HRESULT STDMETHODCALLTYPE Show(HWND owner) override {
        return Play(Line("Show ", std::to_string(reinterpret_cast<std::uintptr_t>(owner))));
    }
    HRESULT STDMETHODCALLTYPE SetFileTypes(UINT count, const COMDLG_FILTERSPEC *specs) override {
        WatchMemory(specs, [] { Note("free file types"); });
        std::string call = "SetFileTypes";
        for (UINT index = 0; index < count; ++index) {
            call += Line(" ", WideToUtf8(specs[index].pszName)) + Line("=", WideToUtf8(specs[index].pszSpec));
        }
        return Play(call);
    }
    HRESULT STDMETHODCALLTYPE SetFileTypeIndex(UINT index) override {
        return Play(Line("SetFileTypeIndex ", std::to_string(index)));
    }
    HRESULT STDMETHODCALLTYPE SetOptions(FILEOPENDIALOGOPTIONS options) override {
        return Play(Line("SetOptions ", Hex(options)));
    }
    HRESULT STDMETHODCALLTYPE GetOptions(FILEOPENDIALOGOPTIONS *options) override {
        *options |= script.setOptions;
        return Play("GetOptions");
    }
    HRESULT STDMETHODCALLTYPE SetDefaultFolder(IShellItem *item) override {
        return TakeFolder("SetDefaultFolder", item);
    }
    HRESULT STDMETHODCALLTYPE SetFolder(IShellItem *item) override { return TakeFolder("SetFolder", item); }
    HRESULT STDMETHODCALLTYPE SetFileName(LPCWSTR name) override {
        return Play(Line("SetFileName ", WideToUtf8(name)));
    }
    HRESULT STDMETHODCALLTYPE SetTitle(LPCWSTR title) override { return Play(Line("SetTitle ", WideToUtf8(title))); }
    HRESULT STDMETHODCALLTYPE GetResult(IShellItem **item) override { return Give("GetResult", &items.at(0), item); }
    HRESULT STDMETHODCALLTYPE SetDefaultExtension(LPCWSTR extension) override {
        return Play(Line("SetDefaultExtension ", WideToUtf8(extension)));
    }

private:
    static HRESULT TakeFolder(const std::string &call, IShellItem *item) {
        return Play(call + (item == &folder ? "" : " of another item"));
    }
};

class ScriptedOpenDialog final : public ScriptedDialog<WholeOpenDialog> {
public:
    using ScriptedDialog::ScriptedDialog;
    HRESULT STDMETHODCALLTYPE GetResults(IShellItemArray **results) override {
        return Give("GetResults", &array, results);
    }
};

class ScriptedSaveDialog final : public ScriptedDialog<WholeSaveDialog> {
public:
    using ScriptedDialog::ScriptedDialog;
};

ScriptedOpenDialog openDialog("dialog");
ScriptedSaveDialog saveDialog("dialog");

HWND Window(int number) {
    return reinterpret_cast<HWND>(static_cast<std::intptr_t>(number));
}

} // namespace

void PlayCom(ComScript newScript) {
    script = std::move(newScript);
    WatchMemory(nullptr, nullptr);
    items.clear();
    for (std::size_t index = 0; index < script.chosen.size(); ++index) {
        items.emplace_back(Line("item ", std::to_string(index)), script.chosen[index]);
    }
    calls.clear();
}

const Calls &ComCalls() {
    return calls;
}

} // namespace ovrin::testing

namespace scripted = ovrin::testing;

HRESULT WINAPI CoInitializeEx(void *reserved, DWORD flags) {
    return scripted::Play(scripted::Line("CoInitializeEx ", std::to_string(flags)) +
                          (reserved == nullptr ? "" : " reserved"));
}
void WINAPI CoUninitialize() {
    scripted::Note("CoUninitialize");
}
HRESULT WINAPI CoCreateInstance(REFCLSID clsid, IUnknown *outer, DWORD context, REFIID iid, void **object) {
    const std::string call =
        scripted::Line("CoCreateInstance ", std::to_string(context)) + (outer == nullptr ? "" : " outer");
    if (clsid == CLSID_FileOpenDialog && iid == IID_IFileOpenDialog) {
        return scripted::Give(call + " open", static_cast<IFileOpenDialog *>(&scripted::openDialog), object);
    }
    if (clsid == CLSID_FileSaveDialog && iid == IID_IFileSaveDialog) {
        return scripted::Give(call + " save", static_cast<IFileSaveDialog *>(&scripted::saveDialog), object);
    }
    return REGDB_E_CLASSNOTREG;
}
void WINAPI CoTaskMemFree(void *memory) {
    scripted::Note("CoTaskMemFree");
    std::free(memory);
}
HRESULT WINAPI SHCreateItemFromParsingName(LPCWSTR path, IBindCtx *context, REFIID iid, void **object) {
    const bool isAsExpected = context == nullptr && iid == IID_IShellItem;
    return scripted::Give(scripted::Line("SHCreateItemFromParsingName ", ovrin::WideToUtf8(path)) +
                              (isAsExpected ? "" : " otherwise"),
                          static_cast<IShellItem *>(&scripted::folder), object);
}
HWND WINAPI GetActiveWindow() {
    scripted::Note("GetActiveWindow");
    return scripted::Window(scripted::script.activeWindow);
}
HWND WINAPI GetForegroundWindow() {
    scripted::Note("GetForegroundWindow");
    return scripted::Window(scripted::script.foregroundWindow);
}

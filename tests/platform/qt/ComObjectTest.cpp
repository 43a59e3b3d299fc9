// The file dialogs' objects as objects: how they are made, asked for their interfaces and counted.

#include "platform/winapi/qt/ComObject.h"
#include "platform/dialogs/ComScopes.h"
#include "platform/winapi/qt/ShellItems.h"
#include "platform/winapi/qt/TestAccess.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <thread>

namespace ovrin {
namespace {

class ComObjects : public ::testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(layer::CountLiveObjects(), before_); }

    // On success the object's one reference goes again.
    static HRESULT Create(const CLSID &clsid, const IID &iid, IUnknown *outer = nullptr, DWORD context = 1) {
        void *made = &made;
        const HRESULT result = CoCreateInstance(clsid, outer, context, iid, &made);
        EXPECT_EQ(made != nullptr, result == S_OK);
        return made != nullptr && static_cast<IUnknown *>(made)->Release() == 0 ? S_OK : result;
    }
    static HRESULT CreateDialog() { return Create(CLSID_FileOpenDialog, IID_IFileOpenDialog); }

    const layer::LiveCounts before_ = layer::CountLiveObjects();
};

TEST_F(ComObjects, AreMadeInAnEnteredApartmentOfTheToolkitsThreadAlone) {
    EXPECT_EQ(CreateDialog(), CO_E_NOTINITIALIZED);
    {
        const ComApartmentScope outer, inner;
        EXPECT_EQ(outer.Result(), S_OK);
        EXPECT_EQ(inner.Result(), S_FALSE);
        EXPECT_EQ(CoInitializeEx(nullptr, 0), RPC_E_CHANGED_MODE);
        int reserved = 0;
        EXPECT_EQ(CoInitializeEx(&reserved, COINIT_APARTMENTTHREADED), E_INVALIDARG);
        CoUninitialize();
        EXPECT_EQ(CreateDialog(), S_OK) << "still entered once";
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_FALSE);
        std::thread([] {
            EXPECT_EQ(CreateDialog(), CO_E_NOTINITIALIZED);
            const ComApartmentScope own;
            EXPECT_EQ(own.Result(), S_OK);
            EXPECT_EQ(CreateDialog(), RPC_E_WRONG_THREAD);
        }).join();
    }
    EXPECT_EQ(CreateDialog(), CO_E_NOTINITIALIZED) << "what failed wasn't counted";
}

TEST_F(ComObjects, AreMadeOnlyOfTheirClassHere) {
    const ComApartmentScope apartment;
    const ComPointer<IUnknown> outer(layer::NewShellItem("/"));
    EXPECT_EQ(Create(CLSID_FileOpenDialog, IID_IFileOpenDialog, outer.get()), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(Create(IID_IFileDialog, IID_IFileOpenDialog), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(Create(CLSID_FileOpenDialog, IID_IFileOpenDialog, nullptr, 4), REGDB_E_CLASSNOTREG) << "elsewhere";
    EXPECT_EQ(Create(CLSID_FileSaveDialog, IID_IFileOpenDialog), E_NOINTERFACE);
    EXPECT_EQ(CoCreateInstance(CLSID_FileOpenDialog, nullptr, 1, IID_IFileOpenDialog, nullptr), E_POINTER);
}

TEST_F(ComObjects, GiveEachOfTheirInterfacesWithAReference) {
    const ComApartmentScope apartment;
    void *open = nullptr;
    void *save = nullptr;
    CoCreateInstance(CLSID_FileOpenDialog, nullptr, 1, IID_IFileOpenDialog, &open);
    CoCreateInstance(CLSID_FileSaveDialog, nullptr, 1, IID_IFileSaveDialog, &save);
    const IID every[] = {IID_IUnknown,        IID_IModalWindow, IID_IFileDialog,     IID_IFileOpenDialog,
                         IID_IFileSaveDialog, IID_IShellItem,   IID_IShellItemArray, CLSID_FileSaveDialog};
    const struct {
        const char *label;
        IUnknown *object;
        const char *known; // which of these: x
    } cases[] = {
        {"open", static_cast<IFileOpenDialog *>(open), "xxxx...."},
        {"save", static_cast<IFileSaveDialog *>(save), "xxx.x..."},
        {"item", layer::NewShellItem("/"), "x....x.."},
        {"array", layer::NewShellItemArray({"/", "/tmp"}), "x.....x."},
    };
    EXPECT_EQ(layer::CountLiveObjects().comObjects, before_.comObjects + 6);
    for (const auto &[label, object, known] : cases) {
        SCOPED_TRACE(label);
        EXPECT_EQ(object->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
        for (std::size_t at = 0; at < std::size(every); ++at) {
            const bool isKnown = known[at] == 'x';
            void *found = &found;
            EXPECT_EQ(object->QueryInterface(every[at], &found), isKnown ? S_OK : E_NOINTERFACE) << at;
            EXPECT_EQ(found, isKnown ? object : nullptr) << at;
            EXPECT_EQ(object->AddRef(), isKnown ? 3U : 2U);
            EXPECT_EQ(object->Release(), isKnown ? 2U : 1U);
            EXPECT_TRUE(!isKnown || object->Release() == 1U);
        }
        EXPECT_EQ(object->Release(), 0U);
    }
}

TEST_F(ComObjects, ItemsAreMadeOfWhatExists) {
    const testing::TemporaryFolder folder;
    const std::filesystem::path file = folder.Make("проект & .x/.f");
    const std::u16string base = folder.Path().u16string();
    const struct {
        const char *label;
        std::u16string path;
        IID iid;
        DWORD expected;
    } cases[] = {
        {"file", file.u16string(), IID_IShellItem, 0},
        {"missing", base + u"/no", IID_IShellItem, 0x80070002},
        {"missing, with a slash", base + u"/no/", IID_IShellItem, 0x80070002},
        {"under what is missing", base + u"/no/no", IID_IShellItem, 0x80070003},
        {"under a file", file.u16string() + u"/x", IID_IShellItem, 0x80070003},
        {"too long", base + u"/" + std::u16string(300, u'n'), IID_IShellItem, 0x8007007B},
        {"no text", base + u"/\xD800", IID_IShellItem, 0x80070459},
        {"relative", u"tmp", IID_IShellItem, 0x80070057},
        {"empty", u"", IID_IShellItem, 0x80070057},
        {"as an array", base, IID_IShellItemArray, 0x80004002},
    };
    for (const auto &tested : cases) {
        SCOPED_TRACE(tested.label);
        void *made = &made;
        EXPECT_EQ(SHCreateItemFromParsingName(tested.path.c_str(), nullptr, tested.iid, &made),
                  static_cast<HRESULT>(tested.expected));
        ASSERT_EQ(made != nullptr, tested.expected == 0);
        if (const ComPointer<IShellItem> item(static_cast<IShellItem *>(made)); item) {
            EXPECT_EQ(layer::PathOf(*item).toStdString(), file.string());
        }
    }
    EXPECT_EQ(SHCreateItemFromParsingName(base.c_str(), nullptr, IID_IShellItem, nullptr), E_POINTER);
}

TEST_F(ComObjects, RefuseWhatTheyCannotGiveOrTake) {
    const ComApartmentScope apartment;
    const ComPointer<IShellItem> bytes(layer::NewShellItem("/tmp/\xFF"));
    LPWSTR name = nullptr;
    EXPECT_EQ(bytes->GetDisplayName(SIGDN_FILESYSPATH, &name), static_cast<HRESULT>(0x80070459)) << "no text";
    EXPECT_EQ(bytes->GetDisplayName(0, &name), E_INVALIDARG);
    EXPECT_EQ(bytes->GetDisplayName(SIGDN_FILESYSPATH, nullptr), E_POINTER);
    EXPECT_EQ(name, nullptr);

    const ComPointer<IShellItemArray> items(layer::NewShellItemArray({"/", "/tmp"}));
    IShellItem *beyond = bytes.get();
    EXPECT_EQ(items->GetItemAt(2, &beyond), E_INVALIDARG);
    EXPECT_EQ(beyond, nullptr);

    void *made = nullptr;
    CoCreateInstance(CLSID_FileOpenDialog, nullptr, 1, IID_IFileOpenDialog, &made);
    const ComPointer<IFileOpenDialog> dialog(static_cast<IFileOpenDialog *>(made));
    IShellItemArray *results = nullptr;
    EXPECT_EQ(dialog->GetResult(&beyond), E_UNEXPECTED) << "never shown";
    EXPECT_EQ(dialog->GetResults(&results), E_UNEXPECTED) << "never shown";
    EXPECT_EQ(dialog->GetOptions(nullptr), E_POINTER);
    EXPECT_EQ(dialog->SetFolder(nullptr), E_INVALIDARG);
    EXPECT_EQ(dialog->SetFileTypes(0, nullptr), E_INVALIDARG);
}

} // namespace
} // namespace ovrin

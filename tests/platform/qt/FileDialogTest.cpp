// The file dialogs' objects over the toolkit's real dialog, which is driven from inside its own event loop.

#include "platform/winapi/qt/ComObject.h"
#include "platform/winapi/qt/ShellItems.h"
#include "platform/winapi/qt/TestAccess.h"
#include "platform/winapi/subset/Window.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <functional>
#include <optional>
#include <thread>
#include <unistd.h>

namespace ovrin {
namespace {

namespace fs = std::filesystem;

constexpr auto cancelled = static_cast<HRESULT>(0x800704C7);
constexpr FILEOPENDIALOGOPTIONS openMask = 0x1848, manyMask = 0x1A48, folderMask = 0x868, saveMask = 0x84A;

constexpr int longestWait = 30000; // milliseconds

struct OwnerEvents {
    int paints = 0;
    int presses = 0;
};
OwnerEvents ownerEvents;

LRESULT OwnerProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    ownerEvents.paints += message == WM_PAINT ? 1 : 0;
    ownerEvents.presses += message == WM_LBUTTONDOWN ? 1 : 0;
    return DefWindowProcW(window, message, wParam, lParam);
}

QFileDialog *OpenedDialog() {
    return qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
}

QLineEdit *NameEdit() {
    return OpenedDialog()->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
}

void Type(const QString &text) {
    NameEdit()->selectAll();
    QInputMethodEvent typed;
    typed.setCommitString(text);
    QCoreApplication::sendEvent(NameEdit(), &typed);
}

void Press(Qt::Key key) {
    QWidget *focused = QApplication::activeModalWidget()->focusWidget();
    QTest::keyClick(focused != nullptr ? focused : QApplication::activeModalWidget(), key);
}

void Cancel() {
    Press(Qt::Key_Escape);
}

void Answer(QMessageBox::StandardButton button) {
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr) << "no message";
    ASSERT_NE(box->button(button), nullptr);
    box->button(button)->click();
}

class FileDialog : public ::testing::Test {
protected:
    using Step = std::function<void()>;

    FileDialog() {
        WNDCLASSEXW windowClass{};
        windowClass.cbSize = sizeof(windowClass);
        windowClass.lpfnWndProc = OwnerProc;
        windowClass.lpszClassName = u"FileDialogOwner";
        RegisterClassExW(&windowClass); // the second time it stands already
        owner_ = CreateWindowExW(0, u"FileDialogOwner", u"Owner", WS_CAPTION, 0, 0, 400, 300, nullptr, nullptr, nullptr,
                                 nullptr);
        ShowWindow(owner_, SW_SHOWNORMAL);
        ownerEvents = {};
        timer_.setSingleShot(true);
        QObject::connect(&timer_, &QTimer::timeout, [this] { PlayNextStep(); });
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE), S_OK);
    }

    void TearDown() override {
        CoUninitialize();
        DestroyWindow(owner_);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(layer::CountLiveObjects(), before_);
        EXPECT_EQ(fs::current_path(), currentFolder_);
    }

    IFileOpenDialog *NewOpenDialog() { return New<IFileOpenDialog>(CLSID_FileOpenDialog, IID_IFileOpenDialog); }
    IFileSaveDialog *NewSaveDialog() { return New<IFileSaveDialog>(CLSID_FileSaveDialog, IID_IFileSaveDialog); }

    // Each step runs in the innermost event loop; the last must have closed the dialog.
    HRESULT ShowAnd(IFileDialog &dialog, std::vector<Step> steps) {
        steps_ = {std::make_move_iterator(steps.rbegin()), std::make_move_iterator(steps.rend())};
        timer_.start(0);
        const HRESULT result = dialog.Show(owner_);
        timer_.stop();
        EXPECT_TRUE(steps_.empty()) << "closed early";
        return result;
    }

    // The next step waits.
    void WaitUntil(const std::function<bool()> &condition) {
        timer_.stop();
        EXPECT_TRUE(QTest::qWaitFor(condition, longestWait));
        timer_.start(0);
    }

    static void SetFolder(IFileDialog &dialog, const fs::path &folder) {
        IShellItem *item = layer::NewShellItem(folder.string());
        EXPECT_EQ(dialog.SetFolder(item), S_OK);
        EXPECT_EQ(item->Release(), 0U);
    }

    [[nodiscard]] static std::string Take(IShellItem *item) {
        std::string path = layer::PathOf(*item).toStdString();
        EXPECT_EQ(item->Release(), 0U);
        return path;
    }

    // As the drivers read it; empty where nothing was chosen.
    [[nodiscard]] static std::vector<std::string> Results(IFileDialog &dialog) {
        std::vector<std::string> paths;
        IFileOpenDialog *open = nullptr;
        if (dialog.QueryInterface(IID_IFileOpenDialog, reinterpret_cast<void **>(&open)) != S_OK) {
            IShellItem *item = nullptr;
            return dialog.GetResult(&item) == S_OK ? std::vector{Take(item)} : paths;
        }
        open->Release();
        IShellItemArray *items = nullptr;
        if (open->GetResults(&items) != S_OK) {
            return paths;
        }
        DWORD count = 0;
        EXPECT_EQ(items->GetCount(&count), S_OK);
        for (DWORD index = 0; index < count; ++index) {
            IShellItem *item = nullptr;
            EXPECT_EQ(items->GetItemAt(index, &item), S_OK);
            paths.push_back(layer::PathOf(*item).toStdString());
            item->Release();
        }
        IShellItem *beyond = nullptr;
        EXPECT_EQ(items->GetItemAt(count, &beyond), E_INVALIDARG);
        EXPECT_EQ(items->Release(), 0U);
        return paths;
    }

    const layer::LiveCounts before_ = layer::CountLiveObjects();
    const fs::path currentFolder_ = fs::current_path();
    testing::TemporaryFolder folder_;
    HWND owner_ = nullptr;
    QTimer timer_; // of the next step

private:
    template<typename Interface>
    Interface *New(REFCLSID clsid, REFIID iid) {
        void *dialog = nullptr;
        EXPECT_EQ(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, iid, &dialog), S_OK);
        return static_cast<Interface *>(dialog);
    }

    void PlayNextStep() {
        if (steps_.empty()) {
            ADD_FAILURE() << "still open";
            for (QWidget *widget = QApplication::activeModalWidget(); widget != nullptr && widget->isVisible();
                 widget = QApplication::activeModalWidget()) {
                widget->close();
            }
            return;
        }
        const Step step = std::move(steps_.back());
        steps_.pop_back();
        timer_.start(0); // a step may open a loop of its own
        step();
    }

    std::vector<Step> steps_; // the next one last
};

enum class Reply { None, Ok, Yes, No };

struct ChoiceCase {
    const char *label;
    FILEOPENDIALOGOPTIONS options;
    const char *typed;
    Reply reply;                       // to the message that comes up
    std::vector<std::string> expected; // in the folder; none: the dialog stays until it is cancelled
};

class FileDialogChoice : public FileDialog {
protected:
    FileDialogChoice() {
        for (const char *entry : {"a b.txt", "second.txt", "проект & é.oproject", ".dotted/.p.oproject",
                                  "Sub & Проект/inner.txt", "plain"}) {
            folder_.Make(entry);
        }
    }

    void Check(IFileDialog &dialog, const ChoiceCase &tested) {
        SCOPED_TRACE(tested.label);
        QString typed = QString::fromUtf8(tested.typed);
        typed.replace(QStringLiteral("$FOLDER"), QString::fromStdString(folder_.Path().string()));
        const auto takeFocus = [this] {
            OpenedDialog()->activateWindow();
            WaitUntil([] { return NameEdit()->hasFocus(); });
        };
        std::vector<Step> steps{takeFocus, [=] { Type(typed); }, [] { Press(Qt::Key_Return); }};
        if (tested.reply != Reply::None) {
            const auto button = tested.reply == Reply::Ok    ? QMessageBox::Ok
                                : tested.reply == Reply::Yes ? QMessageBox::Yes
                                                             : QMessageBox::No;
            steps.emplace_back([=] { Answer(button); });
        }
        if (tested.expected.empty()) {
            steps.emplace_back([] { ASSERT_NE(OpenedDialog(), nullptr) << "closed"; });
            steps.emplace_back(Cancel);
        }
        SetFolder(dialog, folder_.Path());
        dialog.SetOptions(tested.options);
        EXPECT_EQ(ShowAnd(dialog, std::move(steps)), tested.expected.empty() ? cancelled : S_OK);
        std::vector<std::string> expected;
        for (const std::string &entry : tested.expected) {
            expected.push_back(entry.empty() ? folder_.Path().string() : (folder_.Path() / entry).string());
        }
        EXPECT_EQ(Results(dialog), expected);
    }
};

TEST_F(FileDialogChoice, OpenTakesWhatItsOptionsAllow) {
    const ChoiceCase cases[] = {
        {"blanks", openMask, "a b.txt", Reply::None, {"a b.txt"}},
        {"another script, an ampersand", openMask, "проект & é.oproject", Reply::None, {"проект & é.oproject"}},
        {"hidden in hidden", openMask, ".dotted/.p.oproject", Reply::None, {".dotted/.p.oproject"}},
        {"full path", openMask, "$FOLDER/Sub & Проект/inner.txt", Reply::None, {"Sub & Проект/inner.txt"}},
        {"a way round", openMask, "Sub & Проект/..//./plain", Reply::None, {"plain"}},
        {"a folder is entered", openMask, "Sub & Проект", Reply::None, {}},
        {"nothing typed", openMask, "", Reply::None, {}},
        {"missing", openMask, "missing.txt", Reply::Ok, {}},
        {"missing, free", openMask & ~FOS_FILEMUSTEXIST, "missing.txt", Reply::None, {"missing.txt"}},
        {"missing folder", openMask & ~FOS_FILEMUSTEXIST, "no/missing.txt", Reply::Ok, {}},
        {"missing folder, free", FOS_FORCEFILESYSTEM, "no/missing.txt", Reply::None, {"no/missing.txt"}},
        {"existing with the question's bit", openMask | FOS_OVERWRITEPROMPT, "plain", Reply::None, {"plain"}},
        {"two where one is asked for", openMask, R"("plain" "a b.txt")", Reply::Ok, {}},
        {"two", manyMask, R"("plain" "a b.txt")", Reply::None, {"plain", "a b.txt"}},
        {"one of many", manyMask, "plain", Reply::None, {"plain"}},
        {"two, one missing", manyMask, R"("plain" "missing")", Reply::Ok, {}},
        {"folder", folderMask, "Sub & Проект", Reply::None, {"Sub & Проект"}},
        {"folder with a slash", folderMask, "$FOLDER/.dotted/", Reply::None, {".dotted"}},
        {"the folder that is shown", folderMask, "", Reply::None, {""}},
        {"missing folder to pick", folderMask, "no", Reply::Ok, {}},
        {"file where a folder is asked for", folderMask, "plain", Reply::Ok, {}},
    };
    for (const ChoiceCase &tested : cases) {
        IFileOpenDialog *dialog = NewOpenDialog();
        Check(*dialog, tested);
        EXPECT_EQ(dialog->Release(), 0U);
    }
}

TEST_F(FileDialogChoice, SaveAddsTheExtensionAndAsksBeforeItReplaces) {
    const ChoiceCase cases[] = {
        {"extension added", saveMask, "new проект", Reply::None, {"new проект.txt"}},
        {"another extension stays", saveMask, "new.md", Reply::None, {"new.md"}},
        {"replaced", saveMask, "plain.", Reply::None, {"plain."}},
        {"replace", saveMask, "a b.txt", Reply::Yes, {"a b.txt"}},
        {"don't replace", saveMask, "a b.txt", Reply::No, {}},
        {"the extension makes it an existing one", saveMask, "second", Reply::No, {}},
        {"no question", saveMask & ~FOS_OVERWRITEPROMPT, "second", Reply::None, {"second.txt"}},
        {"missing folder", saveMask, "no/new.txt", Reply::Ok, {}},
        {"a folder is entered", saveMask, "Sub & Проект", Reply::None, {}},
    };
    for (const ChoiceCase &tested : cases) {
        IFileSaveDialog *dialog = NewSaveDialog();
        EXPECT_EQ(dialog->SetDefaultExtension(u"txt"), S_OK);
        Check(*dialog, tested);
        EXPECT_EQ(dialog->Release(), 0U);
    }
}

// Root may write everything; meanwhile it is somebody else.
class OrdinaryUserScope {
public:
    OrdinaryUserScope() { EXPECT_TRUE(!isRoot_ || setresuid(nobody, nobody, 0) == 0); }
    OrdinaryUserScope(const OrdinaryUserScope &) = delete;
    OrdinaryUserScope &operator=(const OrdinaryUserScope &) = delete;
    ~OrdinaryUserScope() { EXPECT_TRUE(!isRoot_ || setresuid(0, 0, 0) == 0); }

private:
    static constexpr uid_t nobody = 65534;
    bool isRoot_ = geteuid() == 0;
};

TEST_F(FileDialogChoice, SaveRefusesAFileThatCannotBeWritten) {
    fs::permissions(folder_.Path(), fs::perms::group_exec | fs::perms::others_exec, fs::perm_options::add);
    fs::permissions(folder_.Path() / "plain", fs::perms::owner_read | fs::perms::others_read);
    const OrdinaryUserScope user;
    IFileSaveDialog *dialog = NewSaveDialog();
    Check(*dialog, {"refused", saveMask | FOS_NOREADONLYRETURN, "plain", Reply::Ok, {}});
    Check(*dialog, {"the caller's affair", saveMask, "plain", Reply::Yes, {"plain"}});
    dialog->Release();
}

TEST_F(FileDialogChoice, ASecondShowForgetsTheFirst) {
    IFileOpenDialog *dialog = NewOpenDialog();
    IShellItem *item = nullptr;
    IShellItemArray *items = nullptr;
    EXPECT_EQ(dialog->GetResult(&item), E_UNEXPECTED);
    EXPECT_EQ(dialog->GetResults(&items), E_UNEXPECTED);
    Check(*dialog, {"taken", manyMask, R"("plain" "a b.txt")", Reply::None, {"plain", "a b.txt"}});
    EXPECT_EQ(dialog->GetResult(&item), E_UNEXPECTED) << "for one alone";
    EXPECT_EQ(item, nullptr);
    EXPECT_EQ(ShowAnd(*dialog, {[&] { EXPECT_EQ(dialog->Show(owner_), E_UNEXPECTED); }, Cancel}), cancelled);
    EXPECT_EQ(Results(*dialog), std::vector<std::string>{});
    dialog->Release();
}

TEST_F(FileDialog, ShowsTypesTitleNameAndFolderAsGiven) {
    const fs::path wanted = folder_.Make("проект & .x/.hidden/").parent_path();
    const COMDLG_FILTERSPEC types[] = {{u"Ovrin & (Co);; Project", u"*.oproject;*.проект;a b*"}, {u"All", u"*.*"}};
    IFileSaveDialog *dialog = NewSaveDialog();
    EXPECT_EQ(dialog->SetFileTypeIndex(1), E_FAIL);
    EXPECT_EQ(dialog->SetFileTypes(0, types), E_INVALIDARG);
    EXPECT_EQ(dialog->SetFileTypes(2, types), S_OK);
    EXPECT_EQ(dialog->SetFileTypes(2, types), E_UNEXPECTED);
    IShellItem *other = layer::NewShellItem(folder_.Path().string());
    EXPECT_EQ(dialog->SetDefaultFolder(other), S_OK);
    const struct {
        UINT index = 0;
        int row = 0;
        QStringList patterns;
    } cases[] = {
        {0, 0, {"*.oproject", "*.??????", "a?b*"}},
        {1, 0, {"*.oproject", "*.??????", "a?b*"}},
        {2, 1, {"*"}},
        {3, 1, {"*"}},
    };
    const auto check = [&](int row, const QStringList &patterns, const fs::path &folder) {
        const auto *combo = OpenedDialog()->findChild<QComboBox *>(QStringLiteral("fileTypeCombo"));
        EXPECT_EQ(combo->itemText(0).trimmed().toStdString(), "Ovrin & (Co);; Project");
        EXPECT_EQ(combo->currentIndex(), row);
        EXPECT_EQ(OpenedDialog()->findChild<QFileSystemModel *>()->nameFilters(), patterns);
        EXPECT_EQ(OpenedDialog()->directory().absolutePath().toStdString(), folder.string());
    };
    for (const auto &tested : cases) {
        EXPECT_EQ(dialog->SetFileTypeIndex(tested.index), S_OK);
        ShowAnd(*dialog, {[&] { check(tested.row, tested.patterns, folder_.Path()); }, Cancel});
    }
    SetFolder(*dialog, wanted);
    EXPECT_EQ(dialog->SetDefaultFolder(other), S_OK);
    EXPECT_EQ(other->Release(), 0U);
    EXPECT_EQ(dialog->SetTitle(u"Tïtle & Ко"), S_OK);
    EXPECT_EQ(dialog->SetFileName(u"имя & co"), S_OK);
    const auto checkTexts = [&] {
        check(1, {"*"}, wanted);
        EXPECT_EQ(OpenedDialog()->windowTitle().toStdString(), "Tïtle & Ко");
        EXPECT_EQ(NameEdit()->text().toStdString(), "имя & co");
        EXPECT_TRUE(OpenedDialog()->filter().testFlag(QDir::Hidden)) << "the folder itself is hidden";
    };
    ShowAnd(*dialog, {checkTexts, Cancel});
    dialog->Release();
}

TEST_F(FileDialog, HoldsTheOwnersInputButNotItsPainting) {
    QWindow *window = layer::WidgetOf(owner_)->windowHandle();
    QTest::mouseClick(window, Qt::LeftButton, {}, {5, 5});
    ASSERT_EQ(ownerEvents.presses, 1);
    EXPECT_EQ(GetActiveWindow(), owner_);
    EXPECT_EQ(GetForegroundWindow(), owner_);
    IFileOpenDialog *dialog = NewOpenDialog();
    const HWND owner = owner_;
    const auto disturb = [&] {
        QTest::mouseClick(window, Qt::LeftButton, {}, {5, 5});
        const int paints = ownerEvents.paints;
        InvalidateRect(owner, nullptr, FALSE);
        WaitUntil([&] { return ownerEvents.paints > paints; });
        EXPECT_EQ(GetActiveWindow(), nullptr);
    };
    EXPECT_EQ(ShowAnd(*dialog, {disturb, Cancel}), cancelled);
    EXPECT_EQ(ownerEvents.presses, 1);
    QTest::mouseClick(window, Qt::LeftButton, {}, {5, 5});
    EXPECT_EQ(ownerEvents.presses, 2) << "free again";
    owner_ = nullptr;
    EXPECT_EQ(ShowAnd(*dialog, {disturb, [] { OpenedDialog()->close(); }}), cancelled) << "without an owner";
    owner_ = owner;
    dialog->Release();
}

TEST_F(FileDialog, EndsAsCancelledWithItsOwner) {
    IFileOpenDialog *dialog = NewOpenDialog();
    const auto end = [this] {
        DestroyWindow(owner_);
        timer_.start(longestWait); // the widgets go a little later
    };
    EXPECT_EQ(ShowAnd(*dialog, {end}), cancelled);
    EXPECT_EQ(dialog->Release(), 0U);
}

TEST_F(FileDialog, KeepsEveryOptionBit) {
    IFileDialog *const dialogs[] = {NewOpenDialog(), NewSaveDialog()};
    const FILEOPENDIALOGOPTIONS defaults[] = {0x1800, 0x8802};
    for (int index = 0; index < 2; ++index) {
        FILEOPENDIALOGOPTIONS options = 0;
        EXPECT_EQ(dialogs[index]->GetOptions(&options), S_OK);
        EXPECT_EQ(options, defaults[index]);
        EXPECT_EQ(dialogs[index]->SetOptions(0xF5A5A5A5), S_OK);
        EXPECT_EQ(dialogs[index]->GetOptions(&options), S_OK);
        EXPECT_EQ(options, 0xF5A5A5A5);
        EXPECT_EQ(dialogs[index]->GetOptions(nullptr), E_POINTER);
        EXPECT_EQ(dialogs[index]->SetFolder(nullptr), E_INVALIDARG);
        dialogs[index]->Release();
    }
}

TEST_F(FileDialog, GivesEachInterfaceOfAnObjectWithAReference) {
    const struct {
        const char *label;
        IUnknown *object;
        std::vector<IID> known, unknown;
    } cases[] = {
        {"open",
         NewOpenDialog(),
         {IID_IUnknown, IID_IModalWindow, IID_IFileDialog, IID_IFileOpenDialog},
         {IID_IFileSaveDialog, IID_IShellItem}},
        {"save",
         NewSaveDialog(),
         {IID_IUnknown, IID_IModalWindow, IID_IFileDialog, IID_IFileSaveDialog},
         {IID_IFileOpenDialog, CLSID_FileSaveDialog}},
        {"item", layer::NewShellItem("/"), {IID_IUnknown, IID_IShellItem}, {IID_IShellItemArray, IID_IFileDialog}},
        {"array", layer::NewShellItemArray({"/", "/tmp"}), {IID_IUnknown, IID_IShellItemArray}, {IID_IShellItem}},
    };
    EXPECT_EQ(layer::CountLiveObjects().comObjects, 6U);
    for (const auto &tested : cases) {
        SCOPED_TRACE(tested.label);
        EXPECT_EQ(tested.object->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
        for (const IID &iid : tested.known) {
            void *found = nullptr;
            EXPECT_EQ(tested.object->QueryInterface(iid, &found), S_OK);
            EXPECT_EQ(found, tested.object);
            EXPECT_EQ(tested.object->AddRef(), 3U);
            EXPECT_EQ(tested.object->Release(), 2U);
            EXPECT_EQ(tested.object->Release(), 1U);
        }
        for (const IID &iid : tested.unknown) {
            void *found = tested.object;
            EXPECT_EQ(tested.object->QueryInterface(iid, &found), E_NOINTERFACE);
            EXPECT_EQ(found, nullptr);
        }
        EXPECT_EQ(tested.object->Release(), 0U);
    }
}

TEST_F(FileDialog, ClassesAreMadeOnlyWhereTheyCanBe) {
    IUnknown *outer = NewOpenDialog();
    const struct {
        const char *label;
        CLSID clsid;
        IUnknown *outer;
        DWORD context;
        IID iid;
        HRESULT expected;
    } cases[] = {
        {"aggregation", CLSID_FileOpenDialog, outer, 1, IID_IFileOpenDialog, CLASS_E_NOAGGREGATION},
        {"unknown class", IID_IFileDialog, nullptr, 1, IID_IFileOpenDialog, REGDB_E_CLASSNOTREG},
        {"no server in this process", CLSID_FileOpenDialog, nullptr, 4, IID_IFileOpenDialog, REGDB_E_CLASSNOTREG},
        {"the other class's interface", CLSID_FileSaveDialog, nullptr, 1, IID_IFileOpenDialog, E_NOINTERFACE},
    };
    for (const auto &tested : cases) {
        void *made = outer;
        EXPECT_EQ(CoCreateInstance(tested.clsid, tested.outer, tested.context, tested.iid, &made), tested.expected)
            << tested.label;
        EXPECT_EQ(made, nullptr) << tested.label;
    }
    EXPECT_EQ(CoCreateInstance(CLSID_FileOpenDialog, nullptr, 1, IID_IFileOpenDialog, nullptr), E_POINTER);
    EXPECT_EQ(outer->Release(), 0U);
}

TEST_F(FileDialog, EachThreadEntersAndLeavesItsOwnApartment) {
    const auto create = [] {
        void *made = nullptr;
        const HRESULT result = CoCreateInstance(CLSID_FileOpenDialog, nullptr, 1, IID_IFileOpenDialog, &made);
        if (made != nullptr) {
            static_cast<IUnknown *>(made)->Release();
        }
        return result;
    };
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_FALSE);
    CoUninitialize();
    EXPECT_EQ(create(), S_OK) << "still entered once";
    EXPECT_EQ(CoInitializeEx(nullptr, 0), RPC_E_CHANGED_MODE);
    int reserved = 0;
    EXPECT_EQ(CoInitializeEx(&reserved, COINIT_APARTMENTTHREADED), E_INVALIDARG);
    CoUninitialize();
    EXPECT_EQ(create(), CO_E_NOTINITIALIZED) << "what failed wasn't counted";
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
    std::thread([&] {
        EXPECT_EQ(create(), CO_E_NOTINITIALIZED);
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
        EXPECT_EQ(create(), RPC_E_WRONG_THREAD) << "the toolkit runs elsewhere";
        CoUninitialize();
    }).join();
}

TEST_F(FileDialog, ItemsAreMadeOfWhatExists) {
    const fs::path file = folder_.Make("проект & .x/.f");
    const std::u16string base = folder_.Path().u16string();
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
        void *made = this;
        EXPECT_EQ(SHCreateItemFromParsingName(tested.path.c_str(), nullptr, tested.iid, &made),
                  static_cast<HRESULT>(tested.expected));
        ASSERT_EQ(made != nullptr, tested.expected == 0);
        if (made != nullptr) {
            EXPECT_EQ(Take(static_cast<IShellItem *>(made)), file.string());
        }
    }
    EXPECT_EQ(SHCreateItemFromParsingName(base.c_str(), nullptr, IID_IShellItem, nullptr), E_POINTER);
    IShellItem *bytes = layer::NewShellItem("/tmp/\xFF");
    LPWSTR name = nullptr;
    EXPECT_EQ(bytes->GetDisplayName(SIGDN_FILESYSPATH, &name), static_cast<HRESULT>(0x80070459));
    EXPECT_EQ(bytes->GetDisplayName(0, &name), E_INVALIDARG);
    EXPECT_EQ(bytes->GetDisplayName(SIGDN_FILESYSPATH, nullptr), E_POINTER);
    EXPECT_EQ(name, nullptr);
    bytes->Release();
}

} // namespace
} // namespace ovrin

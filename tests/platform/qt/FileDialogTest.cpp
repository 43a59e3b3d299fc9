// The file dialogs over the toolkit's real dialog, which is driven from inside its own event loop.

#include "platform/dialogs/ComScopes.h"
#include "platform/dialogs/DialogSelection.h"
#include "platform/winapi/qt/ShellItems.h"
#include "platform/winapi/qt/TestAccess.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>
#include <unistd.h>

namespace ovrin {
namespace {

namespace fs = std::filesystem;
using Box = QMessageBox;

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

void Answer(Box::StandardButton button) {
    auto *box = qobject_cast<Box *>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr) << "no message";
    ASSERT_NE(box->button(button), nullptr);
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    EXPECT_EQ(box->defaultButton(), box->button(button == Box::Ok ? Box::Ok : Box::No));
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
    }

    void TearDown() override {
        DestroyWindow(owner_);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(layer::CountLiveObjects(), before_);
        EXPECT_EQ(fs::current_path(), currentFolder_);
    }

    static ComPointer<IFileDialog> New(REFCLSID clsid) {
        void *dialog = nullptr;
        EXPECT_EQ(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IFileDialog, &dialog), S_OK);
        return ComPointer<IFileDialog>(static_cast<IFileDialog *>(dialog));
    }

    static ComPointer<IShellItem> ItemOf(const fs::path &path) {
        return ComPointer<IShellItem>(layer::NewShellItem(path.string()));
    }

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

    const layer::LiveCounts before_ = layer::CountLiveObjects();
    const fs::path currentFolder_ = fs::current_path();
    const ComApartmentScope apartment_;
    testing::TemporaryFolder folder_;
    HWND owner_ = nullptr;
    QTimer timer_; // of the next step

private:
    void PlayNextStep() {
        timer_.start(0); // a step may open a loop of its own
        if (steps_.empty()) {
            ADD_FAILURE() << "still open";
            QApplication::activeModalWidget()->close();
            return;
        }
        const Step step = std::move(steps_.back());
        steps_.pop_back();
        step();
    }

    std::vector<Step> steps_; // the next one last
};

struct ChoiceCase {
    const char *label;
    FILEOPENDIALOGOPTIONS options;
    const char *typed;
    Box::StandardButton reply;      // to the message that comes up
    std::vector<fs::path> expected; // from the folder; none: the dialog stays until it is cancelled
};

class FileDialogChoice : public FileDialog {
protected:
    FileDialogChoice() {
        for (const char *entry : {"a b.txt", "second.txt", "проект & é.oproject", ".dotted/.p.oproject",
                                  "Sub & Проект/inner.txt", "plain"}) {
            folder_.Make(entry);
        }
    }

    // As the drivers read it, but from the folder.
    [[nodiscard]] std::vector<fs::path> Results(IFileDialog &dialog) const {
        IFileOpenDialog *open = nullptr;
        const bool opens = dialog.QueryInterface(IID_IFileOpenDialog, reinterpret_cast<void **>(&open)) == S_OK;
        const ComPointer<IFileOpenDialog> owner(open);
        std::vector<fs::path> paths = (opens ? ReadAllSelections(*open) : ReadOneSelection(dialog, "GetResult")).paths;
        for (fs::path &path : paths) {
            path = path.lexically_relative(folder_.Path());
        }
        return paths;
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
        if (tested.reply != Box::NoButton) {
            steps.emplace_back([&] { Answer(tested.reply); });
        }
        if (tested.expected.empty()) {
            steps.emplace_back([&] {
                ASSERT_NE(OpenedDialog(), nullptr) << "closed";
                if (tested.reply == Box::NoButton) { // what was typed is a folder, and is shown now
                    EXPECT_EQ(OpenedDialog()->directory(), QDir(folder_.Path() / tested.typed));
                    EXPECT_EQ(NameEdit()->text(), QString());
                }
            });
            steps.emplace_back(Cancel);
        }
        dialog.SetFolder(ItemOf(folder_.Path()).get());
        dialog.SetOptions(tested.options);
        EXPECT_EQ(ShowAnd(dialog, std::move(steps)), tested.expected.empty() ? cancelled : S_OK);
        EXPECT_EQ(Results(dialog), tested.expected);
    }
};

TEST_F(FileDialogChoice, OpenTakesWhatItsOptionsAllow) {
    const ChoiceCase cases[] = {
        {"blanks", openMask, "a b.txt", Box::NoButton, {"a b.txt"}},
        {"another script, an ampersand", openMask, "проект & é.oproject", Box::NoButton, {"проект & é.oproject"}},
        {"hidden in hidden", openMask, ".dotted/.p.oproject", Box::NoButton, {".dotted/.p.oproject"}},
        {"full path", openMask, "$FOLDER/Sub & Проект/inner.txt", Box::NoButton, {"Sub & Проект/inner.txt"}},
        {"a way round", openMask, "Sub & Проект/..//./plain", Box::NoButton, {"plain"}},
        {"a folder is entered", openMask, "Sub & Проект", Box::NoButton, {}},
        {"nothing typed", openMask, "", Box::NoButton, {}},
        {"missing", openMask, "missing.txt", Box::Ok, {}},
        {"missing, free", openMask & ~FOS_FILEMUSTEXIST, "missing.txt", Box::NoButton, {"missing.txt"}},
        {"missing folder", openMask & ~FOS_FILEMUSTEXIST, "no/missing.txt", Box::Ok, {}},
        {"missing folder, free", FOS_FORCEFILESYSTEM, "no/missing.txt", Box::NoButton, {"no/missing.txt"}},
        {"existing with the question's bit", openMask | FOS_OVERWRITEPROMPT, "plain", Box::NoButton, {"plain"}},
        {"two where one is asked for", openMask, R"("plain" "a b.txt")", Box::Ok, {}},
        {"two", manyMask, R"("plain" "a b.txt")", Box::NoButton, {"plain", "a b.txt"}},
        {"one of many", manyMask, "plain", Box::NoButton, {"plain"}},
        {"two, one missing", manyMask, R"("plain" "missing")", Box::Ok, {}},
        {"folder", folderMask, "Sub & Проект", Box::NoButton, {"Sub & Проект"}},
        {"folder with a slash", folderMask, "$FOLDER/.dotted/", Box::NoButton, {".dotted"}},
        {"the folder that is shown", folderMask, "", Box::NoButton, {"."}},
        {"missing folder to pick", folderMask, "no", Box::Ok, {}},
        {"file where a folder is asked for", folderMask, "plain", Box::Ok, {}},
    };
    for (const ChoiceCase &tested : cases) {
        Check(*New(CLSID_FileOpenDialog), tested);
    }
}

TEST_F(FileDialogChoice, SaveAddsTheExtensionAndAsksBeforeItReplaces) {
    const ChoiceCase cases[] = {
        {"extension added", saveMask, "new проект", Box::NoButton, {"new проект.txt"}},
        {"another extension stays", saveMask, "new.md", Box::NoButton, {"new.md"}},
        {"a dot at the end", saveMask, "plain.", Box::NoButton, {"plain."}},
        {"replace", saveMask, "a b.txt", Box::Yes, {"a b.txt"}},
        {"don't replace", saveMask, "a b.txt", Box::No, {}},
        {"the extension makes it an existing one", saveMask, "second", Box::No, {}},
        {"no question", saveMask & ~FOS_OVERWRITEPROMPT, "second", Box::NoButton, {"second.txt"}},
        {"missing folder", saveMask, "no/new.txt", Box::Ok, {}},
        {"a folder is entered", saveMask, "Sub & Проект", Box::NoButton, {}},
    };
    for (const ChoiceCase &tested : cases) {
        const auto dialog = New(CLSID_FileSaveDialog);
        EXPECT_EQ(dialog->SetDefaultExtension(u"txt"), S_OK);
        Check(*dialog, tested);
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
    const auto dialog = New(CLSID_FileSaveDialog);
    Check(*dialog, {"refused", saveMask | FOS_NOREADONLYRETURN, "plain", Box::Ok, {}});
    Check(*dialog, {"the caller's affair", saveMask, "plain", Box::Yes, {"plain"}});
}

TEST_F(FileDialogChoice, ASecondShowForgetsTheFirst) {
    const auto dialog = New(CLSID_FileOpenDialog);
    EXPECT_TRUE(Results(*dialog).empty());
    Check(*dialog, {"taken", manyMask, R"("plain" "a b.txt")", Box::NoButton, {"plain", "a b.txt"}});
    IShellItem *item = nullptr;
    EXPECT_EQ(dialog->GetResult(&item), E_UNEXPECTED) << "for one alone";
    EXPECT_EQ(ShowAnd(*dialog, {[&] { EXPECT_EQ(dialog->Show(owner_), E_UNEXPECTED); }, Cancel}), cancelled);
    EXPECT_TRUE(Results(*dialog).empty());
}

TEST_F(FileDialog, ShowsTypesTitleNameAndFolderAsGiven) {
    const auto dialog = New(CLSID_FileSaveDialog);
    const COMDLG_FILTERSPEC types[] = {{u"Ovrin & (Co);; Project", u"*.oproject;*.проект;a b*"}, {u"All", u"*.*"}};
    EXPECT_EQ(dialog->SetFileTypeIndex(1), E_FAIL);
    EXPECT_EQ(dialog->SetFileTypes(2, types), S_OK);
    EXPECT_EQ(dialog->SetFileTypes(2, types), E_UNEXPECTED);
    EXPECT_EQ(dialog->SetDefaultFolder(ItemOf(folder_.Path()).get()), S_OK);
    const QStringList patterns[] = {{"*.oproject", "*.??????", "a?b*"}, {"*"}};
    const auto check = [&](int row, const fs::path &folder) {
        const auto *combo = OpenedDialog()->findChild<QComboBox *>(QStringLiteral("fileTypeCombo"));
        EXPECT_EQ(combo->itemText(0).trimmed().toStdString(), "Ovrin & (Co);; Project");
        EXPECT_EQ(combo->currentIndex(), row);
        EXPECT_EQ(OpenedDialog()->findChild<QFileSystemModel *>()->nameFilters(), patterns[row]);
        EXPECT_EQ(OpenedDialog()->directory().absolutePath().toStdString(), folder.string());
    };
    const int rowOfIndex[] = {0, 0, 1, 1};
    for (UINT index = 0; index < std::size(rowOfIndex); ++index) {
        EXPECT_EQ(dialog->SetFileTypeIndex(index), S_OK);
        ShowAnd(*dialog, {[&] { check(rowOfIndex[index], folder_.Path()); }, Cancel});
    }
    const fs::path wanted = folder_.Make("проект & .x/.hidden/").parent_path();
    EXPECT_EQ(dialog->SetFolder(ItemOf(wanted).get()), S_OK);
    EXPECT_EQ(dialog->SetDefaultFolder(ItemOf(folder_.Path()).get()), S_OK);
    EXPECT_EQ(dialog->SetTitle(u"Tïtle & Ко"), S_OK);
    EXPECT_EQ(dialog->SetFileName(u"имя & co"), S_OK);
    const auto checkTexts = [&] {
        check(1, wanted);
        EXPECT_EQ(OpenedDialog()->windowTitle().toStdString(), "Tïtle & Ко");
        EXPECT_EQ(NameEdit()->text().toStdString(), "имя & co");
        EXPECT_TRUE(OpenedDialog()->filter().testFlag(QDir::Hidden)) << "the folder itself is hidden";
    };
    ShowAnd(*dialog, {checkTexts, Cancel});
}

TEST_F(FileDialog, HoldsTheOwnersInputButNotItsPainting) {
    QWindow *window = layer::WidgetOf(owner_)->windowHandle();
    EXPECT_EQ(GetActiveWindow(), owner_);
    EXPECT_EQ(GetForegroundWindow(), owner_);
    const auto dialog = New(CLSID_FileOpenDialog);
    const HWND owner = owner_;
    const auto disturb = [&] {
        QTest::mouseClick(window, Qt::LeftButton, {}, {5, 5});
        const int paints = ownerEvents.paints;
        InvalidateRect(owner, nullptr, FALSE);
        WaitUntil([&] { return ownerEvents.paints > paints; });
        EXPECT_EQ(GetActiveWindow(), nullptr);
    };
    EXPECT_EQ(ShowAnd(*dialog, {disturb, Cancel}), cancelled);
    owner_ = nullptr;
    EXPECT_EQ(ShowAnd(*dialog, {disturb, [] { OpenedDialog()->close(); }}), cancelled) << "without an owner";
    owner_ = owner;
    EXPECT_EQ(ownerEvents.presses, 0);
    QTest::mouseClick(window, Qt::LeftButton, {}, {5, 5});
    EXPECT_EQ(ownerEvents.presses, 1) << "free again";
}

TEST_F(FileDialog, EndsAsCancelledWithItsOwner) {
    const auto end = [this] {
        DestroyWindow(owner_);
        timer_.start(longestWait); // the widgets go a little later
    };
    EXPECT_EQ(ShowAnd(*New(CLSID_FileOpenDialog), {end}), cancelled);
}

TEST_F(FileDialog, StartsWithThePlatformsOptionsAndKeepsEveryBit) {
    for (const bool saves : {false, true}) {
        const auto dialog = New(saves ? CLSID_FileSaveDialog : CLSID_FileOpenDialog);
        FILEOPENDIALOGOPTIONS options = 0;
        EXPECT_EQ(dialog->GetOptions(&options), S_OK);
        EXPECT_EQ(options, saves ? 0x8802U : 0x1800U);
        EXPECT_EQ(dialog->SetOptions(0xF5A5A5A5), S_OK);
        EXPECT_EQ(dialog->GetOptions(&options), S_OK);
        EXPECT_EQ(options, 0xF5A5A5A5);
    }
}

} // namespace
} // namespace ovrin

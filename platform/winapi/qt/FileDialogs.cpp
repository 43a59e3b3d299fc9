// The open and the save dialog. Not here: events, places, the methods that read back what was set.
#include "platform/winapi/qt/FileDialogs.h"

#include "platform/winapi/qt/ComObject.h"
#include "platform/winapi/qt/FileChooser.h"
#include "platform/winapi/qt/ShellItems.h"

#include <QFile>

#include <algorithm>
#include <cassert>

namespace ovrin::layer {

namespace {

constexpr HRESULT cancelled = ResultOf(1223);

constexpr FILEOPENDIALOGOPTIONS openDefaults = FOS_PATHMUSTEXIST | FOS_FILEMUSTEXIST;
constexpr FILEOPENDIALOGOPTIONS saveDefaults = FOS_OVERWRITEPROMPT | FOS_PATHMUSTEXIST | FOS_NOREADONLYRETURN;
// Of which the chooser knows the effect.
[[maybe_unused]] constexpr FILEOPENDIALOGOPTIONS knownOptions =
    FOS_OVERWRITEPROMPT | FOS_NOCHANGEDIR | FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM | FOS_ALLOWMULTISELECT |
    FOS_PATHMUSTEXIST | FOS_FILEMUSTEXIST | FOS_NOREADONLYRETURN;

QString TextOf(LPCWSTR text) {
    return text == nullptr ? QString() : QString::fromUtf16(text);
}

template<typename Interface>
class FileDialog : public ComObject<Interface> {
public:
    FileDialog(bool saves, FILEOPENDIALOGOPTIONS options) {
        settings_.saves = saves;
        settings_.options = options;
    }

    HRESULT Show(HWND owner) final {
        assert((settings_.options & ~knownOptions) == 0);
        if (isShown_) {
            return E_UNEXPECTED;
        }
        chosen_.clear();
        ChooserSettings settings = settings_;
        settings.folder = folder_.isEmpty() ? defaultFolder_ : folder_;
        isShown_ = true;
        const auto files = ChooseFiles(settings, owner);
        isShown_ = false;
        chosen_ = files.value_or(QStringList());
        return chosen_.isEmpty() ? cancelled : S_OK;
    }

    // Once for each dialog, before it is shown.
    HRESULT SetFileTypes(UINT count, const COMDLG_FILTERSPEC *specs) final {
        if (count == 0 || specs == nullptr) {
            return E_INVALIDARG;
        }
        if (!settings_.types.empty() || isShown_) {
            return E_UNEXPECTED;
        }
        std::transform(specs, specs + count, std::back_inserter(settings_.types), [](const COMDLG_FILTERSPEC &spec) {
            return FileTypeSpec{TextOf(spec.pszName), TextOf(spec.pszSpec)};
        });
        return S_OK;
    }

    // 0 counts as 1, and what lies behind the last as the last.
    HRESULT SetFileTypeIndex(UINT index) final {
        if (settings_.types.empty()) {
            return E_FAIL;
        }
        settings_.firstType = std::clamp<std::size_t>(index, 1, settings_.types.size()) - 1;
        return S_OK;
    }

    HRESULT SetOptions(FILEOPENDIALOGOPTIONS options) final {
        settings_.options = options;
        return S_OK;
    }

    HRESULT GetOptions(FILEOPENDIALOGOPTIONS *options) final {
        if (options == nullptr) {
            return E_POINTER;
        }
        *options = settings_.options;
        return S_OK;
    }

    HRESULT SetDefaultFolder(IShellItem *folder) final { return SetPath(folder, defaultFolder_); }
    HRESULT SetFolder(IShellItem *folder) final { return SetPath(folder, folder_); }

    HRESULT SetFileName(LPCWSTR name) final {
        settings_.fileName = TextOf(name);
        return S_OK;
    }

    HRESULT SetTitle(LPCWSTR title) final {
        settings_.title = TextOf(title);
        return S_OK;
    }

    HRESULT SetDefaultExtension(LPCWSTR extension) final {
        settings_.extension = TextOf(extension);
        return S_OK;
    }

    HRESULT GetResult(IShellItem **item) final {
        if (item == nullptr) {
            return E_POINTER;
        }
        *item = nullptr;
        if (chosen_.size() != 1) {
            return E_UNEXPECTED;
        }
        *item = NewShellItem(QFile::encodeName(chosen_.first()).toStdString());
        return S_OK;
    }

protected:
    [[nodiscard]] const QStringList &Chosen() const { return chosen_; }

    [[nodiscard]] bool Supports(REFIID iid) const override { return iid == IID_IModalWindow || iid == IID_IFileDialog; }

private:
    static HRESULT SetPath(IShellItem *folder, QString &path) {
        if (folder == nullptr) {
            return E_INVALIDARG;
        }
        path = PathOf(*folder);
        return path.isEmpty() ? E_FAIL : S_OK;
    }

    ChooserSettings settings_;
    QString defaultFolder_;
    QString folder_;
    QStringList chosen_; // by the last Show
    bool isShown_ = false;
};

class OpenDialog final : public FileDialog<IFileOpenDialog> {
public:
    OpenDialog() : FileDialog(false, openDefaults) {}

    HRESULT GetResults(IShellItemArray **items) override {
        if (items == nullptr) {
            return E_POINTER;
        }
        *items = nullptr;
        if (Chosen().isEmpty()) {
            return E_UNEXPECTED;
        }
        *items = NewShellItemArray(Chosen());
        return S_OK;
    }

private:
    [[nodiscard]] bool Supports(REFIID iid) const override {
        return iid == IID_IFileOpenDialog || FileDialog::Supports(iid);
    }
};

class SaveDialog final : public FileDialog<IFileSaveDialog> {
public:
    SaveDialog() : FileDialog(true, saveDefaults) {}

private:
    [[nodiscard]] bool Supports(REFIID iid) const override {
        return iid == IID_IFileSaveDialog || FileDialog::Supports(iid);
    }
};

} // namespace

HRESULT CreateOpenDialog(REFIID iid, void **object) {
    return GiveAs(new OpenDialog, iid, object);
}

HRESULT CreateSaveDialog(REFIID iid, void **object) {
    return GiveAs(new SaveDialog, iid, object);
}

} // namespace ovrin::layer

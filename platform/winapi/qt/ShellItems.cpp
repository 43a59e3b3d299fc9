// Shell items by full path, and arrays of them. Not here: items that are no files, display names of other forms,
// relative parsing names, bind contexts.
#include "platform/winapi/qt/ShellItems.h"

#include "platform/winapi/posix/NativeText.h"
#include "platform/winapi/qt/ComObject.h"

#include <QFile>

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <sys/stat.h>
#include <utility>
#include <vector>

namespace ovrin::layer {

namespace {

constexpr HRESULT fileNotFound = ResultOf(2);
constexpr HRESULT pathNotFound = ResultOf(3);
constexpr HRESULT accessDenied = ResultOf(5);
constexpr HRESULT invalidName = ResultOf(123);
constexpr HRESULT noUnicodeTranslation = ResultOf(1113);

class ShellItem final : public ComObject<IShellItem> {
public:
    explicit ShellItem(std::string path) : path_(std::move(path)) {}

    HRESULT GetDisplayName(SIGDN form, LPWSTR *name) override {
        if (name == nullptr) {
            return E_POINTER;
        }
        *name = nullptr;
        if (form != SIGDN_FILESYSPATH) {
            return E_INVALIDARG;
        }
        const auto text = WideFromNative(path_);
        if (!text) {
            return noUnicodeTranslation;
        }
        auto *copy = static_cast<WCHAR *>(CoTaskMemAlloc((text->size() + 1) * sizeof(WCHAR)));
        if (copy == nullptr) {
            return E_OUTOFMEMORY;
        }
        std::copy_n(text->c_str(), text->size() + 1, copy);
        *name = copy;
        return S_OK;
    }

private:
    [[nodiscard]] bool Supports(REFIID iid) const override { return iid == IID_IShellItem; }

    const std::string path_;
};

class ShellItemArray final : public ComObject<IShellItemArray> {
public:
    explicit ShellItemArray(const QStringList &paths) {
        items_.reserve(static_cast<std::size_t>(paths.size()));
        for (const QString &path : paths) {
            items_.push_back(NewShellItem(QFile::encodeName(path).toStdString()));
        }
    }
    ~ShellItemArray() override {
        for (IShellItem *item : items_) {
            item->Release();
        }
    }
    ShellItemArray(const ShellItemArray &) = delete;
    ShellItemArray &operator=(const ShellItemArray &) = delete;

    HRESULT GetCount(DWORD *count) override {
        if (count == nullptr) {
            return E_POINTER;
        }
        *count = static_cast<DWORD>(items_.size());
        return S_OK;
    }

    HRESULT GetItemAt(DWORD index, IShellItem **item) override {
        if (item == nullptr) {
            return E_POINTER;
        }
        *item = nullptr;
        if (index >= items_.size()) {
            return E_INVALIDARG;
        }
        *item = items_[index];
        items_[index]->AddRef();
        return S_OK;
    }

private:
    [[nodiscard]] bool Supports(REFIID iid) const override { return iid == IID_IShellItemArray; }

    std::vector<IShellItem *> items_; // each with a reference of the array's own
};

bool FolderOfExists(const std::string &path) {
    struct stat status {};
    const std::string folder = path.substr(0, path.find_last_of('/', path.find_last_not_of('/')) + 1);
    return stat(folder.c_str(), &status) == 0;
}

HRESULT FailureOf(int error, const std::string &path) {
    switch (error) {
    case ENOENT: return FolderOfExists(path) ? fileNotFound : pathNotFound;
    case ENOTDIR: return pathNotFound;
    case EACCES: return accessDenied;
    case ENAMETOOLONG: return invalidName;
    default: return E_FAIL;
    }
}

} // namespace

IShellItem *NewShellItem(std::string path) {
    return new ShellItem(std::move(path));
}

IShellItemArray *NewShellItemArray(const QStringList &paths) {
    return new ShellItemArray(paths);
}

QString PathOf(IShellItem &item) {
    LPWSTR name = nullptr;
    if (item.GetDisplayName(SIGDN_FILESYSPATH, &name) != S_OK) {
        return {};
    }
    QString path = QString::fromUtf16(name);
    CoTaskMemFree(name);
    return path;
}

} // namespace ovrin::layer

HRESULT SHCreateItemFromParsingName(LPCWSTR path, [[maybe_unused]] IBindCtx *context, REFIID iid, void **object) {
    assert(context == nullptr);
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    if (path == nullptr || *path != u'/') {
        return E_INVALIDARG;
    }
    const auto native = ovrin::NativeFromWide(path);
    if (!native) {
        return ovrin::layer::noUnicodeTranslation;
    }
    struct stat status {};
    if (stat(native->c_str(), &status) != 0) {
        return ovrin::layer::FailureOf(errno, *native);
    }
    return ovrin::layer::GiveAs(ovrin::layer::NewShellItem(*native), iid, object);
}

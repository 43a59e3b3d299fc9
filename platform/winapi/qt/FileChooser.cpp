// The toolkit's file dialog with the platform's options: FOS_OVERWRITEPROMPT, FOS_NOCHANGEDIR (never done anyway),
// FOS_PICKFOLDERS, FOS_FORCEFILESYSTEM, FOS_ALLOWMULTISELECT, FOS_PATHMUSTEXIST, FOS_FILEMUSTEXIST,
// FOS_NOREADONLYRETURN. Not here: several files of which some don't exist, places, added controls, events.
#include "platform/winapi/qt/FileChooser.h"

#include "platform/winapi/qt/WindowHost.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace ovrin::layer {

namespace {

// The toolkit reads a filter as label, blank, patterns in brackets with a blank between two, and takes only some ASCII
// characters for patterns: any other is a wildcard for itself.
QString Pattern(const QString &given) {
    if (given == QStringLiteral("*.*")) {
        return QStringLiteral("*"); // to the platform a name without a dot matches too
    }
    QString pattern = given;
    const QString known = QStringLiteral("_.,*?+#-[]@{}/!<>$%&=^~:|");
    for (QChar &letter : pattern) {
        const bool plain = letter.unicode() < 0x80 && letter.isLetterOrNumber();
        if (!plain && !known.contains(letter)) {
            letter = QLatin1Char('?');
        }
    }
    return pattern;
}

QString FilterFor(const FileTypeSpec &type) {
    QStringList patterns;
    for (const QString &part : type.patterns.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        patterns << Pattern(part.trimmed());
    }
    return type.label + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
}

QFileDialog::FileMode ModeFor(const ChooserSettings &settings) {
    if ((settings.options & FOS_PICKFOLDERS) != 0) {
        return QFileDialog::Directory;
    }
    if ((settings.options & FOS_ALLOWMULTISELECT) != 0) {
        return QFileDialog::ExistingFiles;
    }
    return (settings.options & FOS_FILEMUSTEXIST) != 0 ? QFileDialog::ExistingFile : QFileDialog::AnyFile;
}

bool IsHidden(const QString &folder) {
    return folder.contains(QStringLiteral("/."));
}

// Without dots and slashes that say nothing, where that still means the same entry: a link before ".." may lead away.
QString Plain(const QString &path) {
    const QString clean = QDir::cleanPath(path);
    return QFileInfo(clean).canonicalFilePath() == QFileInfo(path).canonicalFilePath() ? clean : path;
}

bool Ask(QWidget *parent, const QString &text, QMessageBox::StandardButtons buttons) {
    // It goes with its parent, should that end meanwhile.
    const QPointer<QMessageBox> box = new QMessageBox(parent);
    box->setIcon(QMessageBox::Warning);
    box->setWindowTitle(parent->windowTitle());
    box->setTextFormat(Qt::PlainText);
    box->setText(text);
    box->setStandardButtons(buttons);
    box->setDefaultButton(buttons.testFlag(QMessageBox::No) ? QMessageBox::No : QMessageBox::Ok);
    const bool agreed = box->exec() == QMessageBox::Yes;
    delete box;
    return agreed;
}

class Chooser final : public QFileDialog {
public:
    Chooser(ChooserSettings settings, QWidget *parent) : QFileDialog(parent), settings_(std::move(settings)) {
        SetUpChoice();
        SetUpTypes();
        SetUpStart();
    }

    // False where the user cancelled, or where this dialog has ended with its owner.
    bool Run() {
        // Modal for the whole program, as exec makes it: a dialog that is modal for its owner alone isn't told to the
        // window manager as modal, and a click on the owner would take the keyboard away from it.
        while (exec() == Accepted) {
            if (ShowsOwnWidgets() || MayBeTaken()) {
                return true;
            }
        }
        return false;
    }

    // The toolkit's own dialog stays where the choice can't be taken. A desktop's chooser has closed by now: Run shows
    // it again.
    void accept() override {
        if (!ShowsOwnWidgets() || (!EntersTypedFolder() && MayBeTaken())) {
            QFileDialog::accept();
        }
    }

private:
    [[nodiscard]] bool Has(FILEOPENDIALOGOPTIONS option) const { return (settings_.options & option) != 0; }

    // Null in a desktop's chooser.
    [[nodiscard]] QLineEdit *NameEdit() const { return findChild<QLineEdit *>(QStringLiteral("fileNameEdit")); }
    [[nodiscard]] bool ShowsOwnWidgets() const { return NameEdit() != nullptr; }

    void SetUpChoice() {
        setAcceptMode(settings_.saves ? AcceptSave : AcceptOpen);
        setFileMode(ModeFor(settings_));
        setOption(ShowDirsOnly, Has(FOS_PICKFOLDERS));
        setOption(DontConfirmOverwrite); // asked here, about the name with its extension
        setDefaultSuffix(settings_.extension);
        if (Has(FOS_FORCEFILESYSTEM)) {
            setSupportedSchemes({QStringLiteral("file")});
        }
        if (!settings_.title.isEmpty()) {
            setWindowTitle(settings_.title);
        }
    }

    void SetUpTypes() {
        if (settings_.types.empty()) {
            return;
        }
        QStringList filters;
        for (const FileTypeSpec &type : settings_.types) {
            filters << FilterFor(type);
        }
        setOption(HideNameFilterDetails); // the label alone, as given
        setNameFilters(filters);
        selectNameFilter(filters.at(static_cast<qsizetype>(settings_.firstType)));
    }

    void SetUpStart() {
        if (!settings_.folder.isEmpty()) {
            setDirectory(settings_.folder);
        }
        if (IsHidden(directory().absolutePath())) {
            setFilter(filter() | QDir::Hidden);
        }
        if (!settings_.fileName.isEmpty()) {
            selectFile(settings_.fileName);
        }
    }

    // The toolkit would take the folder's name for a new file's, and add the extension to it.
    bool EntersTypedFolder() {
        const QString name = NameEdit()->text();
        const QFileInfo folder(directory(), name);
        if (!settings_.saves || name.isEmpty() || !folder.isDir()) {
            return false;
        }
        setDirectory(folder.filePath());
        NameEdit()->clear();
        return true;
    }

    // Of several names typed between quotes the toolkit silently drops those that don't exist.
    [[nodiscard]] QList<QUrl> WantedUrls() const {
        const QStringList parts = ShowsOwnWidgets() ? NameEdit()->text().split(QLatin1Char('"')) : QStringList();
        QList<QUrl> urls;
        for (qsizetype index = 1; index < parts.size(); index += 2) {
            urls << QUrl::fromLocalFile(QFileInfo(directory(), parts.at(index)).filePath());
        }
        return urls.size() > 1 ? urls : selectedUrls();
    }

    // Tells the user why not.
    bool MayBeTaken() {
        const QList<QUrl> wanted = WantedUrls();
        if (wanted.size() > 1 && !Has(FOS_ALLOWMULTISELECT)) {
            return Ask(this, QStringLiteral("Only one file can be chosen here."), QMessageBox::Ok);
        }
        for (const QUrl &url : wanted) {
            if (const QString objection = Objection(url); !objection.isEmpty()) {
                return Ask(this, objection, QMessageBox::Ok);
            }
        }
        const QStringList files = selectedFiles();
        if (files.size() == 1 && AsksBeforeReplacing(QFileInfo(files.first()))) {
            const QString question = QStringLiteral("%1 already exists.\nDo you want to replace it?");
            return Ask(this, question.arg(QDir::toNativeSeparators(files.first())), QMessageBox::Yes | QMessageBox::No);
        }
        return true;
    }

    // Empty where there is none. A folder typed where files are asked for is one to go to.
    [[nodiscard]] QString Objection(const QUrl &url) const {
        if (!url.isLocalFile()) {
            return QStringLiteral("%1\nThis is no file of this computer.").arg(url.toDisplayString());
        }
        const QFileInfo file(url.toLocalFile());
        if (Has(FOS_PICKFOLDERS) && !file.isDir()) {
            return QStringLiteral("%1\nThere is no such folder.").arg(file.filePath());
        }
        if (Has(FOS_FILEMUSTEXIST) && !file.exists()) {
            return QStringLiteral("%1\nThere is no such file.").arg(file.filePath());
        }
        if (Has(FOS_PATHMUSTEXIST) && !QFileInfo(file.path()).isDir()) {
            return QStringLiteral("%1\nThere is no such folder.").arg(file.path());
        }
        if (settings_.saves && Has(FOS_NOREADONLYRETURN) && file.isFile() && !file.isWritable()) {
            return QStringLiteral("%1\nThis file can't be written to.").arg(file.filePath());
        }
        return {};
    }

    [[nodiscard]] bool AsksBeforeReplacing(const QFileInfo &file) const {
        return settings_.saves && Has(FOS_OVERWRITEPROMPT) && file.exists() && !file.isDir();
    }

    const ChooserSettings settings_;
};

} // namespace

std::optional<QStringList> ChooseFiles(const ChooserSettings &settings, HWND owner) {
    auto *host = HostOf(owner);
    const QPointer<Chooser> chooser = new Chooser(settings, host == nullptr ? nullptr : &host->Widget());
    std::optional<QStringList> files;
    if (chooser->Run()) {
        files = chooser->selectedFiles();
        std::transform(files->begin(), files->end(), files->begin(), Plain);
    }
    delete chooser;
    return files;
}

} // namespace ovrin::layer

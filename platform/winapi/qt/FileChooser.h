// One run of the toolkit's file dialog over a window: the desktop's own chooser where it has one.
#pragma once

#include "platform/winapi/subset/Com.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace ovrin::layer {

struct FileTypeSpec {
    QString label;
    QString patterns; // a semicolon between two
};

struct ChooserSettings {
    bool saves = false;
    FILEOPENDIALOGOPTIONS options = 0;
    QString title;     // empty: the toolkit's own
    QString folder;    // empty: the toolkit's choice
    QString fileName;  // offered
    QString extension; // added to a typed name that has none
    std::vector<FileTypeSpec> types;
    std::size_t firstType = 0;
};

// Blocks, while the rest of the program goes on painting; `owner`, which may be null, takes no input meanwhile. Full
// paths, or nothing where the user cancelled or the owner has gone with the dialog.
[[nodiscard]] std::optional<QStringList> ChooseFiles(const ChooserSettings &settings, HWND owner);

} // namespace ovrin::layer

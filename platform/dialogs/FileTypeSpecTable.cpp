#include "platform/dialogs/FileTypeSpecTable.h"

#include "platform/text/TextConversion.h"

#include <utility>

namespace ovrin {

std::optional<FileTypeSpecTable> BuildFileTypeSpecs(std::span<const FileDialogFilter> filters) {
    FileTypeSpecTable table;
    table.labels.reserve(filters.size());
    table.patterns.reserve(filters.size());
    table.specs.reserve(filters.size());
    for (const FileDialogFilter &filter : filters) {
        WideText label = Utf8ToWide(filter.label);
        WideText pattern = Utf8ToWide(filter.pattern);
        if (label.empty() || pattern.empty()) {
            return std::nullopt;
        }
        table.labels.push_back(std::move(label));
        table.patterns.push_back(std::move(pattern));
    }
    // Only now: a short text lies inside its string and moves with it.
    for (std::size_t index = 0; index < filters.size(); ++index) {
        table.specs.push_back({table.labels[index].c_str(), table.patterns[index].c_str()});
    }
    return table;
}

} // namespace ovrin

#include "launcher/workflows/FormText.h"

#include "core/paths/PathForm.h"

namespace ovrin {

namespace {

constexpr WideTextView whiteSpace = WIDE(" \t\n\r");
constexpr WideTextView forbiddenInNames = WIDE("<>:\"/\\|?*");

} // namespace

WideText TrimFormText(WideTextView text) {
    const std::size_t first = text.find_first_not_of(whiteSpace);
    if (first == WideTextView::npos) {
        return {};
    }
    const std::size_t last = text.find_last_not_of(whiteSpace);
    return WideText{text.substr(first, last - first + 1)};
}

bool IsValidProjectName(WideTextView name) {
    return !name.empty() && name.find_first_of(forbiddenInNames) == WideTextView::npos;
}

std::filesystem::path ProjectFileForFolder(const std::filesystem::path &folder) {
    const std::filesystem::path normal = PathForm::LexicallyNormal(folder);
    std::filesystem::path fileName = PathForm::FileNameOf(normal);
    if (fileName.empty()) {
        fileName = "OvrinProject";
    }
    fileName += ".oproject";
    return PathForm::Join(normal, fileName);
}

} // namespace ovrin

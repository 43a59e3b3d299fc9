// The rules for the text of the new-project form: what is trimmed, and which names are acceptable.
#pragma once

#include "platform/text/WideText.h"

#include <filesystem>

namespace ovrin {

// Without blanks, tabs, line feeds and carriage returns at both ends. Other Unicode spaces stay.
[[nodiscard]] WideText TrimFormText(WideTextView text);

// Takes a trimmed name: not empty and without < > : " / \ | ? *. Names that a platform reserves, dots and any length
// pass: the file system has the last word.
[[nodiscard]] bool IsValidProjectName(WideTextView name);

// The project file in a project's folder: the folder's name with ".oproject", in lexical normal form. A folder path
// without a last element gives "OvrinProject.oproject".
[[nodiscard]] std::filesystem::path ProjectFileForFolder(const std::filesystem::path &folder);

} // namespace ovrin

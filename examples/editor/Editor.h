// A stand-in for the engine's editor: reports what it was started with, and creates or finds the project.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace ovrin {

// Text in the platform's own form: UTF-16 on Windows, bytes elsewhere.
using NativeText = std::filesystem::path::string_type;

// `arguments` come without the program's own name. The report goes to the standard output, and is appended to the file
// that the environment variable OVRIN_EDITOR_LOG names. Takes either "--project FILE", or "--create-project FILE" with
// "--project-name NAME" and "--project-template IDENTIFIER". Returns the exit code: 0, or 1 with the reason on the
// standard error and in the report. Never overwrites a project file.
[[nodiscard]] int RunEditor(const std::vector<NativeText> &arguments, const NativeText &commandLine);

} // namespace ovrin

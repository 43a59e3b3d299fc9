// Where things lie: the running executable, the engine root, assets, the user's settings, the environment. Free
// operations without state or cache, safe on any thread: each call asks the system anew. Nothing here creates a folder.
//
// Raises, unless an operation says otherwise: std::runtime_error where the executable's own path can't be read, and
// PathError "exists" where a probed file's status can't.
#pragma once

#include "platform/text/WideText.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string_view>

namespace ovrin::EnginePaths {

// The full path of the running executable; empty on failure. Raises nothing.
[[nodiscard]] std::filesystem::path QueryExecutablePath();
// The same, never empty.
[[nodiscard]] std::filesystem::path GetExecutablePath();
[[nodiscard]] std::filesystem::path GetExecutableDirectory();

// The nearest folder with "CMakeLists.txt" or "Config/EngineVersion.json", from the executable's folder up to seven
// above it. Without one: two folders above the executable's, which need not be an engine root.
[[nodiscard]] std::filesystem::path GetEngineRoot();

// The first that exists of "Assets" beside the executable, in the folder above, in the engine root; else the path
// beside the executable.
[[nodiscard]] std::filesystem::path ResolveAssetPath(const std::filesystem::path &relativePath);

[[nodiscard]] std::filesystem::path GetContentDirectory();
[[nodiscard]] std::filesystem::path GetExportsDirectory();

// OVRIN_USER_SETTINGS_DIR unchanged, else "OvrinEngine" under APPDATA, else ".ovrin_user" in the engine root. It need
// not exist. Raises in the last case only.
[[nodiscard]] std::filesystem::path GetUserSettingsDirectory();
// Raises nothing.
[[nodiscard]] std::optional<std::filesystem::path> GetRoamingSettingsDirectory();
[[nodiscard]] std::filesystem::path GetEditorPreferencesPath();
[[nodiscard]] std::filesystem::path GetGeneratedShadersDirectory();

// The value of a variable by its UTF-8 name. Unset, empty and malformed are the same: no value. Raise nothing.
[[nodiscard]] std::optional<WideText> GetEnvironmentValue(std::string_view name);
[[nodiscard]] std::optional<WideText> ReadEnvironmentVariable(std::string_view name);
[[nodiscard]] std::optional<WideText> GetLocalAppDataValue();
// Empty where LOCALAPPDATA has no value. Raises nothing.
[[nodiscard]] std::filesystem::path GetLocalAppDataDirectory();

// In the order of preference; neither is tested.
[[nodiscard]] std::array<std::filesystem::path, 2> GetDefaultFontCandidates();

} // namespace ovrin::EnginePaths

#include "core/paths/EnginePaths.h"

#include "core/paths/FileStatus.h"
#include "core/paths/PathForm.h"
#include "platform/text/NarrowPath.h"
#include "platform/text/TextConversion.h"
#include "platform/winapi/WinApi.h"

#include <stdexcept>
#include <vector>

namespace ovrin::EnginePaths {

namespace {

constexpr int foldersToProbe = 8;

// A value may be text that no path can hold; to an operation that raises nothing it is then no value.
std::optional<std::filesystem::path> PathFromVariable(std::string_view name) {
    const auto value = ReadEnvironmentVariable(name);
    if (!value) {
        return std::nullopt;
    }
    try {
        return PathFromWide(*value);
    } catch (const std::system_error &) {
        return std::nullopt;
    }
}

bool IsEngineRoot(const std::filesystem::path &folder) {
    return PathExists(PathForm::Join(folder, "CMakeLists.txt")) ||
           PathExists(PathForm::Join(PathForm::Join(folder, "Config"), "EngineVersion.json"));
}

std::optional<std::filesystem::path> FindEngineRootFrom(std::filesystem::path current) {
    for (int probed = 0; probed < foldersToProbe; ++probed) {
        if (IsEngineRoot(current)) {
            return current;
        }
        std::filesystem::path parent = PathForm::ParentOf(current);
        if (parent.empty()) {
            break;
        }
        current = std::move(parent);
    }
    return std::nullopt;
}

std::filesystem::path AssetUnder(const std::filesystem::path &folder, const std::filesystem::path &relativePath) {
    return PathForm::Join(PathForm::Join(folder, "Assets"), relativePath);
}

} // namespace

std::filesystem::path QueryExecutablePath() {
    constexpr std::size_t firstSize = 512;
    constexpr std::size_t largestSize = 0x7FFFFFFF;
    for (std::size_t size = firstSize;; size *= 2) {
        std::vector<WideChar> buffer(size);
        const DWORD length = GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(size));
        if (length == 0) {
            return {};
        }
        if (length < size) {
            return PathFromWide({buffer.data(), length});
        }
        if (size > largestSize) {
            return {};
        }
    }
}

std::filesystem::path GetExecutablePath() {
    std::filesystem::path executable = QueryExecutablePath();
    if (executable.empty()) {
        throw std::runtime_error("Failed to resolve executable path.");
    }
    return executable;
}

std::filesystem::path GetExecutableDirectory() {
    return PathForm::ParentOf(GetExecutablePath());
}

std::filesystem::path GetEngineRoot() {
    if (const auto root = FindEngineRootFrom(GetExecutableDirectory())) {
        return *root;
    }
    return PathForm::ParentOf(PathForm::ParentOf(GetExecutableDirectory()));
}

std::filesystem::path ResolveAssetPath(const std::filesystem::path &relativePath) {
    const std::filesystem::path directory = GetExecutableDirectory();
    std::filesystem::path beside = AssetUnder(directory, relativePath);
    if (PathExists(beside)) {
        return beside;
    }
    std::filesystem::path above = AssetUnder(PathForm::ParentOf(directory), relativePath);
    if (PathExists(above)) {
        return above;
    }
    std::filesystem::path underRoot = AssetUnder(GetEngineRoot(), relativePath);
    return PathExists(underRoot) ? underRoot : beside;
}

std::filesystem::path GetContentDirectory() {
    return AssetUnder(GetEngineRoot(), "Content");
}

std::filesystem::path GetExportsDirectory() {
    return AssetUnder(GetEngineRoot(), "Exports");
}

std::filesystem::path GetUserSettingsDirectory() {
    if (auto folder = PathFromVariable("OVRIN_USER_SETTINGS_DIR")) {
        return *folder;
    }
    if (auto folder = GetRoamingSettingsDirectory()) {
        return *folder;
    }
    return PathForm::Join(GetEngineRoot(), ".ovrin_user");
}

std::optional<std::filesystem::path> GetRoamingSettingsDirectory() {
    const auto applicationData = PathFromVariable("APPDATA");
    return applicationData ? std::optional(PathForm::Join(*applicationData, "OvrinEngine")) : std::nullopt;
}

std::filesystem::path GetEditorPreferencesPath() {
    return PathForm::Join(GetUserSettingsDirectory(), "editor_preferences.cfg");
}

std::filesystem::path GetGeneratedShadersDirectory() {
    return PathForm::Join(GetUserSettingsDirectory(), "GeneratedShaders");
}

std::optional<WideText> GetEnvironmentValue(std::string_view name) {
    return name.empty() ? std::nullopt : ReadEnvironmentVariable(name);
}

std::optional<WideText> ReadEnvironmentVariable(std::string_view name) {
    const WideText wideName = Utf8ToWide(name);
    if (wideName.empty()) {
        return std::nullopt;
    }
    const DWORD size = GetEnvironmentVariableW(wideName.c_str(), nullptr, 0);
    if (size <= 1) {
        return std::nullopt;
    }
    WideText value(size, WideChar{0});
    const DWORD length = GetEnvironmentVariableW(wideName.c_str(), value.data(), size);
    if (length == 0 || length >= size) {
        return std::nullopt;
    }
    value.resize(length);
    return value;
}

std::optional<WideText> GetLocalAppDataValue() {
    return ReadEnvironmentVariable("LOCALAPPDATA");
}

std::filesystem::path GetLocalAppDataDirectory() {
    return PathFromVariable("LOCALAPPDATA").value_or(std::filesystem::path());
}

std::array<std::filesystem::path, 2> GetDefaultFontCandidates() {
    return {"C:/Windows/Fonts/segoeui.ttf", "C:/Windows/Fonts/arial.ttf"};
}

} // namespace ovrin::EnginePaths

#include "platform/winapi/posix/SessionVariables.h"

#include <cstdlib>
#include <string>

namespace ovrin {

namespace {

std::string ValueOf(const char *name) {
    const char *value = std::getenv(name);
    return value == nullptr ? "" : value;
}

// The desktop's convention has a relative folder ignored, like an empty one.
std::string DesktopFolder(const char *name, const std::string &home, const char *fallback) {
    std::string folder = ValueOf(name);
    if (folder.starts_with('/')) {
        return folder;
    }
    return home.empty() ? "" : home + fallback;
}

void SupplyVariable(const char *name, const std::string &value) {
    if (!value.empty()) {
        constexpr int keepExisting = 0;
        setenv(name, value.c_str(), keepExisting);
    }
}

} // namespace

void SupplySessionVariables() {
    const std::string home = ValueOf("HOME");
    SupplyVariable("USERPROFILE", home);
    SupplyVariable("APPDATA", DesktopFolder("XDG_CONFIG_HOME", home, "/.config"));
    SupplyVariable("LOCALAPPDATA", DesktopFolder("XDG_DATA_HOME", home, "/.local/share"));
}

} // namespace ovrin

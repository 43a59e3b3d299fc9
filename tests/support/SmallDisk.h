// A file system of 64 KB, small enough to be filled, for one shell command.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace ovrin::testing {

// In front of a command that may mount file systems, which it alone sees and which go with it.
inline constexpr const char *withOwnMounts = "unshare --user --map-root-user --mount ";

// Gives false where nobody may mount one, as in some containers.
inline bool CanMountSmallDisk() {
    return std::system((std::string(withOwnMounts) + "mount -t tmpfs none /mnt 2>/dev/null").c_str()) == 0;
}

// Gives whether the command succeeds while the small disk lies at `folder`.
inline bool SucceedsOnSmallDisk(const std::filesystem::path &folder, const std::string &command) {
    const std::string shell = std::string(withOwnMounts) + "sh -c 'mount -t tmpfs -o size=64k none " + folder.string() +
                              " && " + command + "' >/dev/null";
    return std::system(shell.c_str()) == 0;
}

} // namespace ovrin::testing

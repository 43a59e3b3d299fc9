// Replaces what a file holds without ever letting go of the old content before the new one is safe.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace ovrin {

// Writes into the file itself, since another one in its place would lose its rights and links: what is longer first,
// into new room behind the old end, then over the old bytes, whose room can't be taken away. A step that fails puts the
// old bytes back and raises PathError "write".
//
// False where the file can't be opened for reading and writing, or isn't an ordinary file. A missing file is made, its
// folder isn't. Of two programs that write at once the later one wins.
[[nodiscard]] bool RewriteFile(const std::filesystem::path &path, std::string_view content);

// The text with the line ends of the platform's text files.
[[nodiscard]] std::string WithPlatformLineEnds(std::string_view text);

} // namespace ovrin

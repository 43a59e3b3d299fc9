// Whether a project is still there.
#pragma once

#include <filesystem>

namespace ovrin {

// False if the path is empty or seen to be absent. An entry that can't be tested (denied, network gone) counts as
// present: only what was seen to be gone is treated as gone.
[[nodiscard]] bool IsProjectPresent(const std::filesystem::path &path);

} // namespace ovrin

// A folder of a test's own, with the variables that lead the launcher and the stand-in editor into it.
#pragma once

#include "platform/text/NarrowPath.h"
#include "tests/support/EnvironmentScope.h"
#include "tests/support/TemporaryFolder.h"

#include <string>
#include <vector>

namespace ovrin::desktop {

class Sandbox {
public:
    [[nodiscard]] const testing::TemporaryFolder &folder() const { return folder_; }
    [[nodiscard]] std::filesystem::path DefaultLocation() const {
        return folder_.Path() / "Documents" / "OvrinProjects";
    }
    // What the editors that were started so far were given: one line each, elements in square brackets.
    [[nodiscard]] std::vector<std::string> EditorCalls() const {
        std::vector<std::string> calls;
        std::ifstream file{folder_.Path() / "editor-calls.txt"};
        for (std::string line; std::getline(file, line);) {
            calls.push_back(line);
        }
        return calls;
    }

private:
    [[nodiscard]] WideText Below(const char *name) const { return WideFromPath(folder_.Path() / name); }

    testing::TemporaryFolder folder_;
    testing::EnvironmentScope profile_{"USERPROFILE", WideFromPath(folder_.Path())};
    testing::EnvironmentScope settings_{"OVRIN_USER_SETTINGS_DIR", Below("Settings")};
    testing::EnvironmentScope editorCalls_{"OVRIN_TEST_EDITOR_CALLS", Below("editor-calls.txt")};
};

} // namespace ovrin::desktop

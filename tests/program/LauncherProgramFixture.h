// A folder with a launcher and an editor of its own, a home folder, and the steps that the program tests share.
#pragma once

#include "tests/program/ProgramDriver.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace ovrin::program {

using testing::BytesOf;

// Where to click, at the one size that the window has.
namespace At {
constexpr Position projectName{453, 151};
constexpr Position templateFace{1006, 151};
constexpr Position templateRow[4] = {{1006, 200}, {1006, 240}, {1006, 280}, {1006, 320}};
constexpr Position location{448, 237};
constexpr Position browse{904, 237};
constexpr Position createProject{1066, 237};
constexpr Position secondRecentRow{600, 510};
constexpr Position openSelected{147, 733};
constexpr Position openProject{329, 733};
constexpr Position quit{1103, 733};
} // namespace At

// What lies beside the launcher under the editor's name.
enum class Sibling { StandInEditor, Probe, Nothing, Folder, NotAProgram, NotExecutable };

class LauncherProgram : public ::testing::Test {
protected:
    void SetUp() override;

    void PlaceSibling(Sibling sibling);
    // Waits for the window to be there and active; fails the test where it doesn't come.
    [[nodiscard]] static Window WaitForLauncher(const Process &process);
    // Waits for a message box or a dialog to be there and active; fails the test where it doesn't come.
    [[nodiscard]] static Window WaitForBox(const Process &process, const std::string &title);
    // The box comes, Enter closes it, and the launcher is still there.
    static void ExpectMessage(Process &process, const std::string &title);
    static void ExpectExitCode(Process &process, int code);
    static void Fill(Window window, Position edit, const std::u8string &text);

    [[nodiscard]] std::filesystem::path Launcher() const;
    [[nodiscard]] std::filesystem::path EditorLog() const { return folder_ / "editor.log"; }
    [[nodiscard]] std::filesystem::path DefaultLocation() const { return home_ / "Documents" / "OvrinProjects"; }

    const testing::TemporaryFolder ownFolder_;
    const std::filesystem::path &folder_ = ownFolder_.Path(); // everything of this test
    std::filesystem::path bin_;
    std::filesystem::path home_; // its name is in other scripts, and so every default location is
};

} // namespace ovrin::program

#include "tests/program/LauncherProgramFixture.h"

#include <cstdlib>

namespace ovrin::program {
namespace {

namespace fs = std::filesystem;

constexpr const char *launcherTitle = "OvrinEngine Launcher";

} // namespace

void LauncherProgram::SetUp() {
#ifndef _WIN32
    if (std::getenv("DISPLAY") == nullptr) {
        GTEST_SKIP() << "no display to show the launcher on";
    }
    UnsetVariable("QT_QPA_PLATFORM");
#endif
    bin_ = folder_ / "bin";
    home_ = folder_ / u8"дом 家 \U0001F3E0";
    fs::create_directories(bin_);
    fs::create_directories(home_);
    fs::copy_file(fs::absolute(OVRIN_LAUNCHER_FILE), Launcher());
    for (const char *name : {"HOME", "USERPROFILE", "APPDATA", "LOCALAPPDATA", "XDG_CONFIG_HOME", "XDG_DATA_HOME"}) {
        SetVariable(name, home_);
    }
    UnsetVariable("OVRIN_USER_SETTINGS_DIR");
    SetVariable("OVRIN_EDITOR_LOG", EditorLog());
}

fs::path LauncherProgram::Launcher() const {
    return bin_ / fs::path(OVRIN_LAUNCHER_FILE).filename();
}

void LauncherProgram::PlaceSibling(Sibling sibling) {
    const fs::path place = bin_ / "OvrinEditor.exe";
    fs::remove_all(place);
    switch (sibling) {
    case Sibling::StandInEditor: fs::copy_file(fs::absolute(OVRIN_EDITOR_FILE), place); return;
    case Sibling::Probe: fs::copy_file(fs::absolute(OVRIN_PROBE_FILE), place); return;
    case Sibling::Nothing: return;
    case Sibling::Folder: fs::create_directory(place); return;
    case Sibling::NotAProgram:
        std::ofstream(place) << "no program at all";
        fs::permissions(place, fs::perms::owner_all);
        return;
    case Sibling::NotExecutable:
        fs::copy_file(fs::absolute(OVRIN_EDITOR_FILE), place);
        fs::permissions(place, fs::perms::owner_read | fs::perms::owner_write);
        return;
    }
}

Window LauncherProgram::WaitForLauncher(const Process &process) {
    std::optional<Window> window;
    EXPECT_TRUE(WaitUntil([&] {
        window = FindVisibleWindow(process, launcherTitle);
        return window && IsActive(*window);
    })) << "the launcher's window doesn't come up";
    return window.value_or(Window{});
}

Window LauncherProgram::WaitForBox(const Process &process, const std::string &title) {
    std::optional<Window> box;
    EXPECT_TRUE(WaitUntil([&] {
        box = FindVisibleWindow(process, title);
        return box && IsActive(*box);
    })) << "no box \""
        << title << '"';
    return box.value_or(Window{});
}

void LauncherProgram::ExpectMessage(Process &process, const std::string &title) {
    ASSERT_NE(WaitForBox(process, title).id, 0U);
    PressEnter();
    EXPECT_TRUE(WaitUntil([&] { return !FindVisibleWindow(process, title); }));
    EXPECT_EQ(process.ExitCode(), std::nullopt);
    static_cast<void>(WaitForLauncher(process));
}

void LauncherProgram::ExpectExitCode(Process &process, int code) {
    EXPECT_TRUE(WaitUntil([&] { return process.ExitCode().has_value(); })) << "the launcher doesn't end";
    EXPECT_EQ(process.ExitCode(), code);
}

void LauncherProgram::Fill(Window window, Position edit, const std::u8string &text) {
    Click(window, edit);
    EraseText();
    Type(text);
}

} // namespace ovrin::program

// What only a Linux machine can put in the launcher's way.
#include "tests/program/LauncherProgramFixture.h"
#include "tests/support/SmallDisk.h"

#include <cstdlib>
#include <fstream>
#include <sys/wait.h>

namespace ovrin::program {
namespace {

namespace fs = std::filesystem;

TEST_F(LauncherProgram, EndsSilentlyWithCodeOneWhereNoDisplayIs) {
    const fs::path output = folder_ / "output";
    for (const char *display : {"-u DISPLAY", "DISPLAY=:4099"}) {
        SCOPED_TRACE(display);
        const std::string command = std::string("env -u WAYLAND_DISPLAY ") + display + " " + Launcher().string() +
                                    " >" + output.string() + " 2>&1";
        const int status = std::system(command.c_str());
        ASSERT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), 1);
        EXPECT_EQ(BytesOf(output), "");
    }
}

TEST_F(LauncherProgram, TellsThatAFullFileSystemTakesNoProject) {
    if (!ovrin::testing::CanMountSmallDisk()) {
        GTEST_SKIP() << "a small file system can't be mounted here";
    }
    // The file system belongs to the launcher alone and goes with it; it holds its root and one entry more.
    const fs::path full = folder_ / "full";
    fs::create_directories(full);
    const fs::path starter = bin_ / "starter";
    std::ofstream(starter) << "#!/bin/sh\nexec " << ovrin::testing::withOwnMounts << "sh -c '"
                           << "mount -t tmpfs -o nr_inodes=2 none " << full.string() << " && mkdir " << full.string()
                           << "/last && exec " << Launcher().string() << "'\n";
    fs::permissions(starter, fs::perms::owner_all);
    PlaceSibling(Sibling::StandInEditor);

    Process launcher(starter, home_);
    const Window window = WaitForLauncher(launcher);
    Fill(window, At::projectName, u8"Game");
    Fill(window, At::location, full.u8string());
    Click(window, At::createProject);
    ExpectMessage(launcher, "Create Project Failed");
    CloseByCaption(window);
    ExpectExitCode(launcher, 0);
    EXPECT_FALSE(fs::exists(EditorLog()));
}

} // namespace
} // namespace ovrin::program

#include "core/logging/Logger.h"
#include "platform/text/NarrowPath.h"
#include "platform/winapi/WinApi.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace ovrin::testing {

namespace {

// A file that a process still holds can't be deleted: they are opened without that right.
TEST(SessionFiles, AreNotInheritedByAStartedProgram) {
    const TemporaryFolder folder;
    Logger logger({.console = false});
    logger.Start("x", folder.Path());
    const std::filesystem::path path = logger.GetSessionLogPath();
    EXPECT_FALSE(DeleteFileW(path.c_str()));

    const std::filesystem::path program(OVRIN_LOGGING_PROBE);
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process{};
    ASSERT_TRUE(CreateProcessW(program.c_str(), nullptr, nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr, nullptr,
                               &startup, &process));
    logger.Shutdown();
    EXPECT_TRUE(DeleteFileW(path.c_str()));
    TerminateProcess(process.hProcess, 0);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

} // namespace

} // namespace ovrin::testing

// Runs a probe program to its end and gives what it wrote to the file that OVRIN_PROBE_OUTPUT names.
#pragma once

#include "launcher/workflows/EditorCommandLine.h"
#include "platform/text/NarrowPath.h"
#include "tests/support/EnvironmentScope.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <vector>

#ifndef _WIN32
#include <sys/wait.h>
#endif

namespace ovrin::testing {

// Gives the exit code, or -1 for a process that a signal ended.
inline int AwaitEnd(const PROCESS_INFORMATION &process) {
#ifdef _WIN32
    DWORD code = 0;
    WaitForSingleObject(process.hProcess, INFINITE);
    GetExitCodeProcess(process.hProcess, &code);
    const int result = static_cast<int>(code);
#else
    int status = 0;
    waitpid(static_cast<pid_t>(process.dwProcessId), &status, 0);
    const int result = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return result;
}

inline bool StartProgram(const std::filesystem::path &program, const std::filesystem::path &folder,
                         const std::vector<WideText> &arguments, PROCESS_INFORMATION &process) {
    const WideText application = WideFromPath(program);
    WideText commandLine = BuildEditorCommandLine(application, arguments);
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    return CreateProcessW(application.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                          WideFromPath(folder).c_str(), &startup, &process) != 0;
}

inline std::string RunProbe(const std::filesystem::path &program, const std::filesystem::path &folder,
                            const std::vector<WideText> &arguments) {
    const TemporaryFolder outputFolder;
    const std::filesystem::path output = outputFolder.Path() / "output";
    const EnvironmentScope variable("OVRIN_PROBE_OUTPUT", WideFromPath(output));
    PROCESS_INFORMATION process{};
    if (!StartProgram(program, folder, arguments, process)) {
        ADD_FAILURE() << program << " doesn't start";
        return {};
    }
    AwaitEnd(process);
    return BytesOf(output);
}

} // namespace ovrin::testing

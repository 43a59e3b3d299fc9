#include "platform/winapi/posix/CommandLine.h"
#include "tests/support/RunProbe.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace ovrin::testing {

namespace {

TEST(SplitCommandLine, FollowsThePlatformsConvention) {
    const std::pair<std::u16string_view, std::vector<std::u16string>> cases[] = {
        {u" \t ", {}},
        {u"a  b\tc ", {u"a", u"b", u"c"}},
        {u"\"a b\" \"\" c", {u"a b", u"", u"c"}},
        {u"a\\\\b d\"e f\"g h", {u"a\\\\b", u"de fg", u"h"}},
        {u"a\\\\\\\"b c", {u"a\\\"b", u"c"}},
        {u"a\\\\\\\\\"b c\" d", {u"a\\\\b c", u"d"}},
        {u"\"a\"\"b\" c", {u"a\"b", u"c"}},
        {u"\"open end\\", {u"open end\\"}},
    };
    for (const auto &[commandLine, elements] : cases) {
        EXPECT_EQ(SplitCommandLine(commandLine), elements);
    }
}

TEST(CreateProcess, StartsTheProgramInItsFolderAndSessionWithNothingInherited) {
    const TemporaryFolder folder;
    const auto program = folder.Make(R"(a "b\" c\/OvrinEditor.exe)");
    std::filesystem::copy_file(OVRIN_PROCESS_PROBE, program, std::filesystem::copy_options::overwrite_existing);
    const int inheritable = open("/dev/null", O_RDONLY); // without FD_CLOEXEC
    ASSERT_GE(inheritable, 3);
    sigset_t all;
    sigset_t old;
    sigfillset(&all);
    sigprocmask(SIG_BLOCK, &all, &old);
    const auto oldHandler = std::signal(SIGPIPE, SIG_IGN);
    const std::string seen =
        RunProbe(program, folder.Path(), {WIDE("a b"), WIDE(""), WIDE("\"\\"), WIDE("\u00E9\U0001D11E")});
    std::signal(SIGPIPE, oldHandler);
    sigprocmask(SIG_SETMASK, &old, nullptr);
    close(inheritable);
    EXPECT_EQ(seen, "folder " + folder.Path().native() + "\ndescriptors 0 1 2\nleads its session 1\nsignals 1\n[" +
                        program.native() + "][a b][][\"\\][\u00E9\U0001D11E]");
}

TEST(CreateProcess, FailsForWhatCannotBeRun) {
    const TemporaryFolder folder;
    const auto text = folder.Make("text", "not a program");
    const auto denied = folder.Make("denied", "#!/bin/true\n");
    std::filesystem::permissions(text, std::filesystem::perms::owner_all);
    const auto missing = folder.Path() / "missing";
    PROCESS_INFORMATION process{};
    for (const auto &program : {text, denied, missing, folder.Path(), denied / "below"}) {
        EXPECT_FALSE(StartProgram(program, folder.Path(), {}, process)) << program;
    }
    EXPECT_FALSE(StartProgram(OVRIN_PROCESS_PROBE, missing, {}, process));
    EXPECT_FALSE(StartProgram(OVRIN_PROCESS_PROBE, folder.Path(), {WideText(1, WideChar{0xD834})}, process));
}

} // namespace

} // namespace ovrin::testing

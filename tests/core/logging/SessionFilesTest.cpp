#include "tests/core/logging/LoggerTestSupport.h"

#include "core/logging/LogClock.h"
#include "platform/text/NarrowPath.h"
#include "tests/support/RunProbe.h"

#include <fstream>
#include <iterator>
#include <set>

namespace ovrin::testing {

namespace {

std::string ReadFile(const std::filesystem::path &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// A quiet logger with a folder for its files, where no variable of the tester's reaches it.
struct Session {
    Session() = default;

    [[nodiscard]] std::filesystem::path Latest(const char *stem) const { return folder.Path() / (stem + suffix); }
    [[nodiscard]] std::string Banner(const std::string &title, const char *stem) const {
        return "========== " + title +
               " Log ==========\nSession Log: " + NarrowFromPathLenient(logger.GetSessionLogPath()) +
               "\nLatest Log: " + NarrowFromPathLenient(Latest(stem)) + "\n====================================\n";
    }

    EnvironmentScope levels{"OVRIN_LOG_LEVELS", std::nullopt};
    TemporaryFolder folder;
    Logger logger{{.console = false}};
    const std::string suffix = ".latest.log";
};

// The message's own line, with the time that its record carries.
std::string LastLine(const Logger &logger) {
    return logger.GetRecentLines(1, 0).at(0) + "\n";
}

TEST(SessionFiles, HoldTheBannerAndEveryLineSinceTheStart) {
    Session session;
    session.logger.Log(LogLevel::Info, "before");
    session.logger.Start("My Game: \u00DCber", session.folder.Path() / "");
    const std::string banner = session.Banner("My Game: \u00DCber", "My_Game____ber");
    const std::filesystem::path path = session.logger.GetSessionLogPath();
    EXPECT_EQ(path.filename().string().substr(0, 15), "My_Game____ber_");
    session.logger.Log(LogLevel::Info, std::string("two\nlines\0!", 11));
    std::string expected = banner + LastLine(session.logger);
    session.logger.Log(LogCategory::Script, LogLevel::Error, std::string(3U << 20U, 'x'));
    expected += LastLine(session.logger);
    session.logger.Start("Other", session.folder.Path() / "other"); // the session goes on
    session.logger.Shutdown();
    session.logger.Log(LogLevel::Info, "after");
    EXPECT_TRUE(ReadFile(path) == expected); // megabytes: not to be printed
    EXPECT_TRUE(ReadFile(session.Latest("My_Game____ber")) == expected);
    EXPECT_EQ(session.logger.GetSessionLogPath(), path);
    EXPECT_FALSE(std::filesystem::exists(session.folder.Path() / "other"));
}

TEST(SessionFiles, AreContinuedAndBegunAnewWithinTheSameSecond) {
    Session session;
    std::filesystem::path first;
    do { // until no second ends in between
        session.logger.Start("", session.folder.Path());
        first = session.logger.GetSessionLogPath();
        session.logger.Shutdown();
        session.logger.Start("", session.folder.Path());
        session.logger.Shutdown();
    } while (session.logger.GetSessionLogPath() != first);
    const std::string banner = session.Banner("OvrinEngine", "OvrinEngine");
    const std::string whole = ReadFile(first);
    ASSERT_GE(whole.size(), 2 * banner.size());
    EXPECT_EQ(whole.substr(whole.size() - 2 * banner.size()), banner + banner);
    EXPECT_EQ(ReadFile(session.Latest("OvrinEngine")), banner);
}

TEST(SessionFiles, MayBeReadAndWrittenByAnotherProcessMeanwhile) {
    Session session;
    session.logger.Start("shared", session.folder.Path());
    session.logger.Log(LogLevel::Info, "first");
    session.logger.Flush();
    const std::string before = ReadFile(session.logger.GetSessionLogPath());
    EXPECT_EQ(before, session.Banner("shared", "shared") + LastLine(session.logger));
    PROCESS_INFORMATION other{};
    ASSERT_TRUE(StartProgram(OVRIN_LOGGING_PROBE, session.folder.Path(),
                             {WIDE("append"), WideFromPath(session.logger.GetSessionLogPath())}, other));
    ASSERT_EQ(AwaitEnd(other), 0);
    session.logger.Log(LogLevel::Info, "second");
    session.logger.Flush();
    EXPECT_EQ(ReadFile(session.logger.GetSessionLogPath()), before + "a note\n" + LastLine(session.logger));
}

TEST(SessionFiles, ThatCannotBeMadeLeaveTheLoggerRunning) {
    struct Case {
        const char *label;
        std::string prefix;
        std::filesystem::path directory;
        bool hasPath;
        bool hasSessionFile;
    };
    const TemporaryFolder folder;
    folder.Make("file");
    folder.Make("taken/x.latest.log/");
    const Case cases[] = {
        {"no directory: the path stays", "x", "", true, false},
        {"a file as directory", "x", folder.Path() / "file", false, false},
        {"a file above it", "x", folder.Path() / "file" / "logs", false, false},
        {"missing folders are made", "x", folder.Path() / "a" / "b", true, true},
        {"the latest file's name is taken", "x", folder.Path() / "taken", true, true},
        {"too long a name", std::string(300, 'x'), folder.Path() / "long", true, false},
    };
    const EnvironmentScope levels("OVRIN_LOG_LEVELS", WIDE("Render=Trace"));
    for (const Case &each : cases) {
        Logger logger({.console = false});
        logger.Start("before", folder.Path());
        logger.Shutdown();
        logger.Start(each.prefix, each.directory);
        EXPECT_TRUE(logger.IsWorkerRunning()) << each.label;
        EXPECT_EQ(logger.GetLevel(LogCategory::Render), LogLevel::Trace) << each.label;
        logger.Log(LogLevel::Info, "text");
        logger.Flush();
        EXPECT_EQ(!logger.GetSessionLogPath().empty(), each.hasPath) << each.label;
        EXPECT_EQ(ReadFile(logger.GetSessionLogPath()).ends_with("[Info] text\n"), each.hasSessionFile) << each.label;
        EXPECT_EQ(logger.GetRecords().size(), 1U) << each.label << ": nothing is said about it";
    }
}

TEST(SessionFiles, LieInTheUserSettingsDirectory) {
    Session session;
    const EnvironmentScope settings("OVRIN_USER_SETTINGS_DIR", WideFromPath(session.folder.Path()));
    session.logger.Start("game");
    EXPECT_EQ(session.logger.GetSessionLogPath().parent_path(), session.folder.Path() / "Logs");
    session.logger.Shutdown();
    EXPECT_TRUE(std::filesystem::exists(session.folder.Path() / "Logs" / "game.latest.log"));
}

TEST(LogLevelsVariable, IsAppliedAtEveryStartAndABadOneIsReportedOnce) {
    struct Case {
        const char *label;
        WideText value;
        LogLevel core;
        Texts warnings;
    };
    const std::string complaint = "OVRIN_LOG_LEVELS contains an invalid entry: '";
    const Case cases[] = {
        {"good", WIDE("core=trace"), LogLevel::Trace, {}},
        {"empty", WIDE(""), LogLevel::Info, {}},
        {"two bad entries, one message",
         WIDE("x, core=warn ;=y"),
         LogLevel::Warning,
         {complaint + "x, core=warn ;=y'."}},
        {"silences its own message", WIDE("x,off"), LogLevel::Off, {}},
        {"another script", WIDE("\u00E9"), LogLevel::Info, {complaint + NarrowFromWideLenient(WIDE("\u00E9")) + "'."}},
    };
    for (const Case &each : cases) {
        const EnvironmentScope levels("OVRIN_LOG_LEVELS", each.value);
        Logger logger({.console = false});
        logger.Start("x", {});
        logger.Start("x", {});
        EXPECT_EQ(logger.GetLevel(LogCategory::Core), each.core) << each.label;
        const auto records = logger.GetRecords();
        ASSERT_EQ(records.size(), 2 * each.warnings.size()) << each.label; // once a start
        for (const LogRecord &record : records) {
            EXPECT_EQ(record.message, each.warnings[0]) << each.label;
            EXPECT_EQ(record.category, LogCategory::Core) << each.label;
            EXPECT_EQ(record.level, LogLevel::Warning) << each.label;
        }
    }
}

TEST(StandardOutput, ShowsTheSameLines) {
    Logger logger(LoggerConfig{});
    ::testing::internal::CaptureStdout();
    logger.Log(LogLevel::Error, "text");
    const std::string shown = ::testing::internal::GetCapturedStdout();
    EXPECT_EQ(shown, LastLine(logger));
}

} // namespace

} // namespace ovrin::testing

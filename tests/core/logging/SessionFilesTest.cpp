#include "tests/core/logging/LoggerTestSupport.h"

#include "platform/text/NarrowPath.h"
#include "tests/support/RunProbe.h"

#include <regex>

namespace ovrin::testing {

namespace {

// A quiet logger with a folder for its files, where no variable of the tester's reaches it.
struct Session {
    Session() = default;

    [[nodiscard]] std::string Banner(const std::string &title, const std::filesystem::path &latest) const {
        return "========== " + title +
               " Log ==========\nSession Log: " + NarrowFromPathLenient(logger.GetSessionLogPath()) +
               "\nLatest Log: " + NarrowFromPathLenient(latest) + "\n====================================\n";
    }
    [[nodiscard]] std::string SessionFile() const { return BytesOf(logger.GetSessionLogPath()); }

    EnvironmentScope levels{"OVRIN_LOG_LEVELS", std::nullopt};
    TemporaryFolder folder;
    Logger logger{quiet};
};

// The message's own line, with the time that its record carries.
std::string LastLine(const Logger &logger) {
    return logger.GetRecentLines(1, 0).at(0) + "\n";
}

int RunLoggingProbe(const WideText &way, const std::filesystem::path &path) {
    PROCESS_INFORMATION process{};
    const std::vector<WideText> arguments = {way, WideFromPath(path)};
    return StartProgram(OVRIN_LOGGING_PROBE, path.parent_path(), arguments, process) ? AwaitEnd(process) : -1;
}

TEST(SessionFiles, HoldTheBannerAndEveryLineSinceTheStart) {
    Session session;
    const auto latest = session.folder.Path() / "My_Game____ber.latest.log";
    session.logger.Log(LogLevel::Info, "before");
    session.logger.Start("My Game: \u00DCber", session.folder.Path() / "");
    const std::filesystem::path path = session.logger.GetSessionLogPath();
    EXPECT_EQ(path.filename().string().substr(0, 15), "My_Game____ber_");
    session.logger.Log(LogLevel::Info, std::string("two\nlines\0!", 11));
    std::string expected = session.Banner("My Game: \u00DCber", latest) + LastLine(session.logger);
    session.logger.Log(LogCategory::Script, LogLevel::Error, std::string(3U << 20U, 'x'));
    expected += LastLine(session.logger);
    session.logger.Start("Other", session.folder.Path() / "other"); // the session goes on
    session.logger.Shutdown();
    session.logger.Log(LogLevel::Info, "after");
    EXPECT_TRUE(BytesOf(path) == expected); // megabytes: not to be printed
    EXPECT_TRUE(BytesOf(latest) == expected);
    EXPECT_EQ(session.logger.GetSessionLogPath(), path);
    EXPECT_FALSE(std::filesystem::exists(session.folder.Path() / "other"));
}

TEST(SessionFiles, AreContinuedAndBegunAnewWithinTheSameSecond) {
    Session session;
    std::filesystem::path first;
    do { // until no second ends in between
        first = session.logger.GetSessionLogPath();
        session.logger.Start("", session.folder.Path());
        session.logger.Shutdown();
    } while (session.logger.GetSessionLogPath() != first);
    const auto latest = session.folder.Path() / "OvrinEngine.latest.log";
    const std::string banner = session.Banner("OvrinEngine", latest);
    EXPECT_EQ(session.SessionFile(), banner + banner);
    EXPECT_EQ(BytesOf(latest), banner);
}

TEST(SessionFiles, MayBeReadAndWrittenByAnotherProcessMeanwhile) {
    Session session;
    session.logger.Start("shared", session.folder.Path());
    session.logger.Log(LogLevel::Info, "first");
    session.logger.Flush();
    const std::string before = session.SessionFile();
    EXPECT_EQ(before, session.Banner("shared", session.folder.Path() / "shared.latest.log") + LastLine(session.logger));
    ASSERT_EQ(RunLoggingProbe(WIDE("append"), session.logger.GetSessionLogPath()), 0);
    session.logger.Log(LogLevel::Info, "second");
    session.logger.Flush();
    EXPECT_EQ(session.SessionFile(), before + "a note\n" + LastLine(session.logger));
}

TEST(SessionFiles, ThatCannotBeMadeLeaveTheLoggerRunning) {
    const TemporaryFolder folder;
    folder.Make("file");
    folder.Make("taken/x.latest.log/");
    const struct {
        const char *label;
        std::string prefix;
        std::filesystem::path directory;
        bool hasPath, hasSessionFile;
    } cases[] = {
        {"no directory: the path stays", "x", "", true, false},
        {"a file as directory", "x", folder.Path() / "file", false, false},
        {"a file above it", "x", folder.Path() / "file" / "logs", false, false},
        {"missing folders are made", "x", folder.Path() / "a" / "b", true, true},
        {"the latest file's name is taken", "x", folder.Path() / "taken", true, true},
        {"too long a name", std::string(300, 'x'), folder.Path() / "long", true, false},
    };
    const EnvironmentScope levels("OVRIN_LOG_LEVELS", WIDE("Render=Trace"));
    for (const auto &each : cases) {
        SCOPED_TRACE(each.label);
        Logger logger(quiet);
        logger.Start("before", folder.Path());
        logger.Shutdown();
        logger.Start(each.prefix, each.directory);
        EXPECT_TRUE(logger.IsWorkerRunning());
        EXPECT_EQ(logger.GetLevel(LogCategory::Render), LogLevel::Trace);
        logger.Log(LogLevel::Info, "text");
        logger.Flush();
        EXPECT_EQ(!logger.GetSessionLogPath().empty(), each.hasPath);
        EXPECT_EQ(BytesOf(logger.GetSessionLogPath()).ends_with("[Info] text\n"), each.hasSessionFile);
        EXPECT_EQ(logger.GetRecords().size(), 1U) << "nothing is said about it";
    }
}

TEST(SessionFiles, LieInTheUserSettingsDirectory) {
    Session session;
    const EnvironmentScope settings("OVRIN_USER_SETTINGS_DIR", WideFromPath(session.folder.Path()));
    session.logger.Start("game");
    EXPECT_EQ(session.logger.GetSessionLogPath().parent_path(), session.folder.Path() / "Logs");
    EXPECT_TRUE(std::filesystem::exists(session.folder.Path() / "Logs" / "game.latest.log"));
}

TEST(LogLevelsVariable, IsAppliedAtEveryStartAndABadOneIsReportedOnce) {
    const struct {
        const char *label;
        WideText value;
        LogLevel core;
        std::size_t complaints; // of two starts
    } cases[] = {
        {"good", WIDE("core=trace"), LogLevel::Trace, 0},
        {"empty", WIDE(""), LogLevel::Info, 0},
        {"two bad entries, one message", WIDE("x, core=warn ;=y"), LogLevel::Warning, 2},
        {"silences its own message", WIDE("x,off"), LogLevel::Off, 0},
        {"another script", WIDE("\u00E9"), LogLevel::Info, 2},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.label);
        const EnvironmentScope levels("OVRIN_LOG_LEVELS", each.value);
        Logger logger(quiet);
        logger.Start("x", {});
        logger.Start("x", {});
        EXPECT_EQ(logger.GetLevel(LogCategory::Core), each.core);
        const std::string complaint = "[Warn] [Core] OVRIN_LOG_LEVELS contains an invalid entry: '";
        const auto lines = logger.GetRecentLines(9, 0);
        EXPECT_EQ(lines.size(), each.complaints);
        for (const std::string &line : lines) {
            EXPECT_EQ(line.substr(9), complaint + NarrowFromWideLenient(each.value) + "'.");
        }
    }
}

TEST(StandardOutput, ShowsTheSameLines) {
    Logger logger(LoggerConfig{});
    ::testing::internal::CaptureStdout();
    logger.Log(LogLevel::Error, "text");
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), LastLine(logger));
}

TEST(ProcessExit, WritesEveryRecordOfARunningWorker) {
    const std::pair<WideText, std::string> cases[] = {
        {WIDE("return"), ""}, {WIDE("exit"), ""}, {WIDE("static objects"), "[Error] before the logger's end\n"}};
    std::string expected = "\n====================================\n";
    for (int number = 0; number < 1000; ++number) {
        expected.append("[Info] ").append(std::to_string(number)).append(1, '\n');
    }
    for (const auto &[way, last] : cases) {
        const TemporaryFolder folder;
        EXPECT_EQ(RunLoggingProbe(way, folder.Path()), 0);
        const std::regex time("\n..:..:.. ");
        const std::string text = std::regex_replace(BytesOf(folder.Path() / "probe.latest.log"), time, "\n");
        EXPECT_TRUE(text.ends_with(expected + last)) << text;
    }
}

TEST(ProcessExit, InsideASinkDoesNotHang) {
    const TemporaryFolder folder;
    EXPECT_EQ(RunLoggingProbe(WIDE("exit in a sink"), folder.Path()), 3);
}

} // namespace

} // namespace ovrin::testing

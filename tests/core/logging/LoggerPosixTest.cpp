#include "tests/core/logging/LoggerTestSupport.h"

#include "tests/support/TemporaryFolder.h"

#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <pthread.h>
#include <system_error>

namespace ovrin::testing {

namespace {

// No thread with the default stack can be made for the length of this scope.
class NoThreadsScope {
public:
    NoThreadsScope() {
        pthread_attr_t huge;
        pthread_getattr_default_np(&old_);
        pthread_getattr_default_np(&huge);
        pthread_attr_setstacksize(&huge, std::size_t{1} << 46U); // half of all there is to address
        pthread_setattr_default_np(&huge);
        pthread_attr_destroy(&huge);
    }
    NoThreadsScope(const NoThreadsScope &) = delete;
    NoThreadsScope &operator=(const NoThreadsScope &) = delete;
    ~NoThreadsScope() {
        pthread_setattr_default_np(&old_);
        pthread_attr_destroy(&old_);
    }

private:
    pthread_attr_t old_{};
};

TEST(LogWorker, ThatCannotBeMadeLeavesTheDirectMode) {
    const TemporaryFolder folder;
    Logger logger({.console = false});
    {
        const NoThreadsScope noThreads;
        EXPECT_THROW(logger.Start("x", folder.Path()), std::system_error);
    }
    EXPECT_FALSE(logger.IsWorkerRunning());
    logger.Log(LogLevel::Info, "direct");
    std::ifstream file(folder.Path() / "x.latest.log", std::ios::binary);
    EXPECT_TRUE(std::string(std::istreambuf_iterator<char>(file), {}).ends_with("[Info] direct\n"));
    logger.Flush();
    logger.Start("x", folder.Path());
    EXPECT_TRUE(logger.IsWorkerRunning());
}

TEST(LogWorker, ShowsItsName) {
    std::string name(16, '\0');
    Logger logger({.console = false, .startWorkerOnCreate = true});
    logger.AddSink(std::make_shared<RecordingSink>(
        [&name](const LogRecord &) { pthread_getname_np(pthread_self(), name.data(), name.size()); }));
    logger.Log(LogLevel::Fatal, "text");
    EXPECT_STREQ(name.c_str(), "Ovrin Log Sink");
}

// What a thread keeps for itself goes after its last line of code, and may log when it does. (With
// MinGW its memory goes first.)
TEST(LogStop, WaitsForAWorkerWhoseOwnObjectsLogWhenTheyGo) {
    struct Farewell {
        Farewell() = default;
        Farewell(const Farewell &) = delete;
        Farewell &operator=(const Farewell &) = delete;
        ~Farewell() {
            if (logger != nullptr) {
                logger->Log(LogLevel::Info, "fills the queue");
                logger->Log(LogLevel::Fatal, "farewell");
            }
        }
        Logger *logger = nullptr;
    };
    for (const bool stopsItself : {false, true}) {
        Logger *logger = nullptr;
        GatedLogger gated(1, [&](const LogRecord &record) {
            static thread_local Farewell farewell;
            if (record.message == "stop") {
                farewell.logger = logger;
                if (stopsItself) {
                    logger->StopWorker();
                }
            }
        });
        logger = &gated.logger;
        gated.StallWorker();
        gated.gate.Open();
        gated.logger.StopWorker();
        EXPECT_EQ(gated.sink->Messages(), (Texts{"stop", "fills the queue", "farewell"}));
        gated.logger.StartWorker();
        EXPECT_TRUE(gated.logger.IsWorkerRunning());
    }
}

TEST(SessionFiles, AreNotInheritedByAStartedProgram) {
    const TemporaryFolder folder;
    Logger logger({.console = false});
    logger.Start("x", folder.Path());
    int open = 0;
    for (const auto &entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone; // the one that lists them
        if (std::filesystem::read_symlink(entry, gone).parent_path() == folder.Path()) {
            ++open;
            EXPECT_NE(fcntl(std::stoi(entry.path().filename()), F_GETFD) & FD_CLOEXEC, 0);
        }
    }
    EXPECT_EQ(open, 2);
}

TEST(SessionFiles, GoOnOnceAFullDiskHasRoomAgain) {
    if (std::system("unshare --user --map-root-user --mount mount -t tmpfs none /mnt 2>/dev/null") != 0) {
        GTEST_SKIP() << "a small file system can't be mounted here";
    }
    // The file system belongs to the probe's shell alone and goes with it.
    const TemporaryFolder folder;
    const std::string disk = folder.Make("disk/").string();
    const std::string command = "unshare --user --map-root-user --mount sh -c 'mount -t tmpfs -o size=64k none " +
                                disk + " && " OVRIN_LOGGING_PROBE " \"full disk\" " + disk + " && cp " + disk +
                                "/probe.latest.log " + folder.Path().string() + "' >/dev/null";
    ASSERT_EQ(std::system(command.c_str()), 0);
    std::ifstream file(folder.Path() / "probe.latest.log", std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    EXPECT_NE(text.find("[Info] before\n"), std::string::npos);
    EXPECT_EQ(text.find("full"), std::string::npos);
    EXPECT_TRUE(text.ends_with("[Info] after\n")) << text;
}

} // namespace

} // namespace ovrin::testing

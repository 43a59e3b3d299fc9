#include "tests/core/logging/LoggerTestSupport.h"
#include "tests/support/SmallDisk.h"

#include <fcntl.h>
#include <pthread.h>
#include <system_error>

namespace ovrin::testing {

namespace {

// For the threads that are made from now on. Gives the size before.
std::size_t SetStackSize(std::size_t size) {
    pthread_attr_t attributes;
    std::size_t before = 0;
    pthread_getattr_default_np(&attributes);
    pthread_attr_getstacksize(&attributes, &before);
    pthread_attr_setstacksize(&attributes, size);
    pthread_setattr_default_np(&attributes);
    pthread_attr_destroy(&attributes);
    return before;
}

TEST(LogWorker, ThatCannotBeMadeLeavesTheDirectMode) {
    const TemporaryFolder folder;
    Logger logger(quiet);
    const std::size_t before = SetStackSize(std::size_t{1} << 46U); // half of all there is to address
    EXPECT_THROW(logger.Start("x", folder.Path()), std::system_error);
    SetStackSize(before);
    EXPECT_FALSE(logger.IsWorkerRunning());
    logger.Log(LogLevel::Info, "direct");
    EXPECT_TRUE(BytesOf(folder.Path() / "x.latest.log").ends_with("[Info] direct\n"));
    logger.Flush();
    logger.Start("x", folder.Path());
    EXPECT_TRUE(logger.IsWorkerRunning());
}

TEST(LogWorker, ShowsItsName) {
    std::string name(16, '\0');
    WatchedLogger watched(Queued(), [&name](Logger & /*logger*/, const std::string & /*call*/) {
        pthread_getname_np(pthread_self(), name.data(), name.size());
    });
    watched.logger.Log(LogLevel::Fatal, "text");
    EXPECT_STREQ(name.c_str(), "Ovrin Log Sink");
}

// What a thread keeps for itself goes after its last line of code, and may log when it does. (With
// MinGW its memory goes first.)
TEST(LogStop, WaitsForAWorkerWhoseOwnObjectsLogWhenTheyGo) {
    for (const bool stopsItself : {false, true}) {
        WatchedLogger gated(Queued(1), [stopsItself](Logger &logger, const std::string &message) {
            static thread_local std::shared_ptr<Logger> farewell;
            if (message == "stop") {
                farewell = {&logger, [](Logger *each) {
                                each->Log(LogLevel::Info, "fills the queue");
                                each->Log(LogLevel::Fatal, "farewell");
                            }};
                if (stopsItself) {
                    logger.StopWorker();
                }
            }
        });
        gated.StallWorker();
        gated.gate.Open();
        gated.logger.StopWorker();
        EXPECT_EQ(gated.sink->Seen().messages, (Texts{"stop", "fills the queue", "farewell"}));
        gated.logger.StartWorker();
        EXPECT_TRUE(gated.logger.IsWorkerRunning());
    }
}

TEST(SessionFiles, AreNotInheritedByAStartedProgram) {
    const TemporaryFolder folder;
    Logger logger(quiet);
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
    if (!CanMountSmallDisk()) {
        GTEST_SKIP() << "a small file system can't be mounted here";
    }
    const TemporaryFolder folder;
    const std::string disk = folder.Make("disk/").string();
    ASSERT_TRUE(SucceedsOnSmallDisk(disk, OVRIN_LOGGING_PROBE " \"full disk\" " + disk + " && cp " + disk +
                                              "/probe.latest.log " + folder.Path().string()));
    const std::string text = BytesOf(folder.Path() / "probe.latest.log");
    EXPECT_NE(text.find("[Info] before\n"), std::string::npos);
    EXPECT_EQ(text.find("full"), std::string::npos);
    EXPECT_TRUE(text.ends_with("[Info] after\n")) << text;
}

} // namespace

} // namespace ovrin::testing

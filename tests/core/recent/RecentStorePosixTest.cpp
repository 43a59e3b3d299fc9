#include "tests/core/recent/RecentListFixture.h"

#include "tests/support/SmallDisk.h"

#include <algorithm>
#include <csignal>
#include <dlfcn.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): the calls below have no other way
int callToFail = 0; // of those that change a file, counted from 1
std::string failedCall;
std::vector<std::string> canonicalQueries; // the paths whose canonical form was asked for
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

bool Fails(const char *call) {
    if (callToFail == 0 || --callToFail > 0) {
        return false;
    }
    failedCall = call;
    errno = ENOSPC;
    return true;
}

template<typename Function>
Function *Real(const char *name) {
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

} // namespace

// In the place of the C library's, for this program.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the C library's own names are reserved
extern "C" {
ssize_t pwrite(int file, const void *bytes, std::size_t size, off_t offset) {
    constexpr std::size_t piece = 500; // what is written in one go by chance may come in pieces
    return Fails("pwrite") ? -1 : Real<decltype(pwrite)>("pwrite")(file, bytes, std::min(size, piece), offset);
}
int fsync(int file) {
    return Fails("fsync") ? -1 : Real<decltype(fsync)>("fsync")(file);
}
int ftruncate(int file, off_t size) noexcept {
    return Fails("ftruncate") ? -1 : Real<decltype(ftruncate)>("ftruncate")(file, size);
}
int close(int file) {
    const int result = Real<decltype(close)>("close")(file);
    return callToFail > 0 && Fails("close") ? -1 : result;
}
char *realpath(const char *path, char *resolved) noexcept {
    canonicalQueries.emplace_back(path);
    return Real<decltype(realpath)>("realpath")(path, resolved);
}
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

namespace ovrin::testing {

namespace {

using namespace RecentProjectStore;

TEST_F(RecentList, KeepsItsOldBytesWhateverStepOfASaveFails) {
    const Projects many = SaveProjects(20);
    const Projects few(many.end() - 2, many.end()); // not a byte of which lies where it did
    const struct {
        const Projects &before;
        const Projects &after;
        Texts steps;
    } cases[] = {{few, many, {"pwrite", "fsync", "close"}}, {many, few, {"pwrite", "fsync", "ftruncate", "close"}}};
    const std::string line = "[Warn] Failed to save recent projects: write: No space left on device: \"";
    for (const auto &[before, after, steps] : cases) {
        Texts failed;
        for (int call = 1; failed.empty() || failed.back() != "close"; ++call) {
            ASSERT_TRUE(SaveRecentProjects(before));
            const std::string old = Read();
            callToFail = call;
            EXPECT_EQ(FailureToSave(after), line + File().string() + '"') << call;
            ASSERT_EQ(callToFail, 0) << "not one of them is the close";
            EXPECT_EQ(Read(), old) << call;
            failed.push_back(failedCall);
        }
        failed.erase(std::unique(failed.begin(), failed.end()), failed.end());
        EXPECT_EQ(failed, steps);
    }
}

TEST_F(RecentList, IsNeverLostOnAFullDisk) {
    if (!CanMountSmallDisk()) {
        GTEST_SKIP() << "a small file system can't be mounted here";
    }
    const std::string disk = folder_.Make("disk/").string();
    EXPECT_TRUE(SucceedsOnSmallDisk(disk, "OVRIN_USER_SETTINGS_DIR=" + disk + " " OVRIN_FULL_DISK_PROBE " " + disk +
                                              "/filler"));
}

TEST_F(RecentList, KeepsItsOldBytesAtAFileSizeLimit) {
    const Projects projects = SaveProjects(200);
    SaveProjects(3);
    const std::string before = Read();
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    const rlimit small{.rlim_cur = 4096, .rlim_max = old.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_NE(FailureToSave(projects), "not one line");
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(Read(), before);
}

TEST_F(RecentList, IsSavedOnlyInAnOrdinaryFileAndThroughALink) {
    ASSERT_EQ(mkfifo(File().c_str(), 0600), 0);
    EXPECT_FALSE(SaveRecentProjects({}));
    std::filesystem::remove(File());
    std::filesystem::create_symlink(folder_.Make("elsewhere"), File());
    SaveProjects(2);
    EXPECT_TRUE(std::filesystem::is_symlink(File()));
    EXPECT_EQ(Load(), (Texts{"1", "2"}));
}

TEST_F(RecentList, LooksAtNothingBehindItsLimit) {
    const Projects projects = SaveProjects(20);
    Texts needed;
    for (std::size_t index = 0; index < 16; ++index) {
        needed.push_back(projects[index].path);
    }
    canonicalQueries.clear();
    EXPECT_EQ(Load(16).size(), 16U);
    EXPECT_EQ(canonicalQueries, needed);
    canonicalQueries.clear();
    EXPECT_EQ(NormalizeRecentProjects(projects, 16).size(), 16U);
    EXPECT_EQ(canonicalQueries, needed);
}

TEST_F(RecentList, FindsWhereEachOfItsPathsLeavesTheDisk) {
    folder_.Make("real/deep/er/file");
    folder_.Make("other/");
    for (const auto &[to, link] :
         {std::pair("real", "link"), std::pair("other", "link-2"), std::pair("other", "real/out")}) {
        std::filesystem::create_directory_symlink(At(to), At(link));
    }
    std::filesystem::create_symlink(At("loop"), At("loop"));
    const std::pair<const char *, const char *> cases[] = {
        {"link/deep/er/file", "real/deep/er/file"},
        {"link/gone/a", "real/gone/a"},
        {"link/gone/b", "real/gone/b"},
        {"link/a", "real/a"},
        {"link/out/a", "other/a"},
        {"link-2/gone/a", "other/gone/a"},
        {"link/out/a/b/c/d/e/f/g/h", "other/a/b/c/d/e/f/g/h"},
        {"link/out/a/b/c/d/e/f/g", "other/a/b/c/d/e/f/g"},
        {"link/deep/er/a/b/c", "real/deep/er/a/b/c"},
        {"link/deep/x//./y/", "real/deep/x/y/"},
        {"loop/./x", "loop/x"}, // it can't tell
        {"gone/link/a", "gone/link/a"},
    };
    Projects list;
    for (const auto &[path, normal] : cases) {
        list.push_back({.path = At(path), .name = normal});
    }
    // The same again: in a list the key is that of the normal form, which leads to the link.
    list.push_back({.path = At("no/../link/a"), .name = "twice"});
    const Projects normalized = NormalizeRecentProjects(list, 0);
    EXPECT_EQ(normalized.size(), std::size(cases));
    for (const RecentProject &project : normalized) {
        EXPECT_EQ(project.path, At(project.name));
    }
    for (std::string missing = "/m"; missing.size() < 24; missing += "/m") {
        EXPECT_EQ(NormalizeProjectPath(At("link/out" + missing)), At("other" + missing));
    }
}

TEST_F(RecentList, KeepsNamesThatAreNoText) {
    const std::filesystem::path bytes = At("\xFF\\\"\xC3.oproject");
    ASSERT_TRUE(SaveRecentProjects({{.path = bytes, .name = ""}}));
    EXPECT_EQ(LoadRecentProjects(1).at(0).path, bytes);
}

} // namespace

} // namespace ovrin::testing

#include "tests/core/recent/RecentListFixture.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <dlfcn.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ovrin::testing {

namespace {

// Which call on a file fails next, counted from 1, and with what.
struct Failure {
    int pwrite = 0;
    int fsync = 0;
    int ftruncate = 0;
    int close = 0;
};
Failure failure; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): the calls below have no other way

// The paths whose canonical form was asked for.
std::vector<std::string> canonicalQueries; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): as above

bool IsDue(int &count) {
    if (count == 0 || --count > 0) {
        return false;
    }
    errno = ENOSPC;
    return true;
}

template<typename Function>
Function *Real(const char *name) {
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

} // namespace

} // namespace ovrin::testing

// In the place of the C library's, for this program.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the C library's own names are reserved
extern "C" {
ssize_t pwrite(int file, const void *bytes, std::size_t size, off_t offset) {
    if (ovrin::testing::IsDue(ovrin::testing::failure.pwrite)) {
        return -1;
    }
    // Halves: what is written in one go by chance may come in pieces.
    return ovrin::testing::Real<decltype(pwrite)>("pwrite")(file, bytes, (size + 1) / 2, offset);
}
int fsync(int file) {
    return ovrin::testing::IsDue(ovrin::testing::failure.fsync) ? -1
                                                                : ovrin::testing::Real<decltype(fsync)>("fsync")(file);
}
int ftruncate(int file, off_t size) noexcept {
    return ovrin::testing::IsDue(ovrin::testing::failure.ftruncate)
               ? -1
               : ovrin::testing::Real<decltype(ftruncate)>("ftruncate")(file, size);
}
int close(int file) {
    const bool isDue = ovrin::testing::failure.close > 0 && ovrin::testing::IsDue(ovrin::testing::failure.close);
    const int result = ovrin::testing::Real<decltype(close)>("close")(file);
    return isDue ? -1 : result;
}
char *realpath(const char *path, char *resolved) noexcept {
    ovrin::testing::canonicalQueries.emplace_back(path);
    return ovrin::testing::Real<decltype(realpath)>("realpath")(path, resolved);
}
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

namespace ovrin::testing {

namespace {

using RecentProjectStore::SaveRecentProjects;

TEST_F(RecentList, KeepsItsOldBytesWhateverStepOfASaveFails) {
    const Projects many = MakeProjects(40);
    const Projects few(many.begin(), many.begin() + 5);
    const struct {
        const char *label = "";
        const Projects &before;
        const Projects &after;
        Failure failure;
    } cases[] = {
        {"new room", few, many, {.pwrite = 1}},
        {"half of the new room", few, many, {.pwrite = 3}},
        {"over the old bytes", many, few, {.pwrite = 1}},
        {"half over them", many, few, {.pwrite = 2}},
        {"flush", few, many, {.fsync = 1}},
        {"cut", many, few, {.ftruncate = 1}},
    };
    for (const auto &each : cases) {
        ASSERT_TRUE(SaveRecentProjects(each.before));
        const std::string before = Read();
        failure = each.failure;
        const Texts messages = Logged([&each] { EXPECT_FALSE(SaveRecentProjects(each.after)) << each.label; });
        failure = {};
        EXPECT_EQ(Read(), before) << each.label;
        EXPECT_EQ(messages,
                  Texts{"Failed to save recent projects: write: No space left on device: \"" + File().string() + '"'})
            << each.label;
    }
    failure.close = 1; // there is no way back any more, but it is told
    EXPECT_EQ(Logged([&few] { EXPECT_FALSE(SaveRecentProjects(few)); }).size(), 1U);
    failure = {};
}

TEST_F(RecentList, KeepsItsOldBytesAtAFileSizeLimit) {
    const Projects projects = MakeProjects(200);
    ASSERT_TRUE(SaveRecentProjects({projects.begin(), projects.begin() + 3}));
    const std::string before = Read();
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    const rlimit small{.rlim_cur = 4096, .rlim_max = old.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_EQ(Logged([&projects] { EXPECT_FALSE(SaveRecentProjects(projects)); }).size(), 1U);
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(Read(), before);
}

TEST_F(RecentList, IsNeverLostOnAFullDisk) {
    if (std::system("unshare --user --map-root-user --mount mount -t tmpfs none /mnt 2>/dev/null") != 0) {
        GTEST_SKIP() << "a small file system can't be mounted here";
    }
    // The file system belongs to the probe's shell alone and goes with it.
    const std::string disk = folder_.Make("disk/").string();
    const std::string command = "unshare --user --map-root-user --mount sh -c 'mount -t tmpfs -o size=64k none " +
                                disk + " && OVRIN_USER_SETTINGS_DIR=" + disk + " " OVRIN_FULL_DISK_PROBE " " + disk +
                                "/filler' >/dev/null";
    EXPECT_EQ(std::system(command.c_str()), 0);
}

TEST_F(RecentList, IsSavedOnlyInAnOrdinaryFileAndThroughALink) {
    ASSERT_EQ(mkfifo(File().c_str(), 0600), 0);
    EXPECT_FALSE(SaveRecentProjects({}));
    std::filesystem::remove(File());
    const std::filesystem::path target = folder_.Make("elsewhere");
    std::filesystem::create_symlink(target, File());
    const Projects projects = MakeProjects(2);
    EXPECT_TRUE(SaveRecentProjects(projects));
    EXPECT_TRUE(std::filesystem::is_symlink(File()));
    EXPECT_EQ(Load(), (Texts{"1", "2"}));
}

TEST_F(RecentList, LooksAtNothingBehindItsLimit) {
    const Projects projects = MakeProjects(20);
    ASSERT_TRUE(SaveRecentProjects(projects));
    Texts needed;
    for (int index = 0; index < 16; ++index) {
        needed.push_back(projects[static_cast<std::size_t>(index)].path);
    }
    canonicalQueries.clear();
    EXPECT_EQ(Load(16).size(), 16U);
    EXPECT_EQ(canonicalQueries, needed);
    canonicalQueries.clear();
    EXPECT_EQ(RecentProjectStore::NormalizeRecentProjects(projects, 16).size(), 16U);
    EXPECT_EQ(canonicalQueries, needed);
}

TEST_F(RecentList, FindsWhereEachOfItsPathsLeavesTheDisk) {
    folder_.Make("real/deep/er/");
    folder_.Make("other/");
    std::filesystem::create_directory_symlink(At("real"), At("link"));
    std::filesystem::create_directory_symlink(At("other"), At("link-2"));
    std::filesystem::create_directory_symlink(At("other"), At("real/out"));
    const std::pair<const char *, const char *> cases[] = {
        {"link/gone/a", "real/gone/a"},
        {"link/gone/b", "real/gone/b"},
        {"link/a", "real/a"},
        {"link/out/a", "other/a"},
        {"link-2/gone/a", "other/gone/a"},
        {"link/out/gone/a", "other/gone/a"}, // the same again
        {"link/out/a/b/c/d/e/f/g/h", "other/a/b/c/d/e/f/g/h"},
        {"link/out/a/b/c/d/e/f/g", "other/a/b/c/d/e/f/g"},
        {"link/deep/er/a/b/c", "real/deep/er/a/b/c"},
        {"link/deep/x//./y/", "real/deep/x/y/"},
        {"gone/link/a", "gone/link/a"},
    };
    Projects list;
    std::vector<std::filesystem::path> expected;
    for (const auto &[path, normal] : cases) {
        list.push_back({.path = At(path), .name = "x"});
        if (std::ranges::find(expected, At(normal)) == expected.end()) {
            expected.push_back(At(normal));
        }
    }
    std::vector<std::filesystem::path> paths;
    for (const RecentProject &project : RecentProjectStore::NormalizeRecentProjects(list, 0)) {
        paths.push_back(project.path);
    }
    EXPECT_EQ(paths, expected);
    std::string missing;
    for (int depth = 1; depth < 12; ++depth) {
        missing += "/m";
        EXPECT_EQ(RecentProjectStore::NormalizeProjectPath(At("link/out" + missing)), At("other" + missing));
    }
}

TEST_F(RecentList, FollowsLinksAndKeepsNamesThatAreNoText) {
    const std::filesystem::path file = folder_.Make("real/Game.oproject");
    std::filesystem::create_directory_symlink(At("real"), At("link"));
    std::filesystem::create_symlink(At("loop"), At("loop"));
    EXPECT_EQ(RecentProjectStore::NormalizeProjectPath(At("link/Game.oproject")), file);
    EXPECT_EQ(RecentProjectStore::NormalizeProjectPath(At("link/gone/x")), At("real/gone/x"));
    EXPECT_EQ(RecentProjectStore::NormalizeProjectPath(At("loop/./x")), At("loop/x")); // it can't tell
    // In a list the key is that of the normal form, which leads to the link.
    EXPECT_EQ(
        RecentProjectStore::NormalizeRecentProjects({{file, "a"}, {At("no/../link/Game.oproject"), "b"}}, 0).size(),
        1U);
    const std::filesystem::path bytes = At("\xFF\\\"\xC3.oproject");
    ASSERT_TRUE(SaveRecentProjects({{.path = bytes, .name = ""}}));
    EXPECT_EQ(RecentProjectStore::LoadRecentProjects(1).at(0).path, bytes);
}

} // namespace

} // namespace ovrin::testing

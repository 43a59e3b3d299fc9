#include "core/paths/FileStatus.h"
#include "platform/text/NarrowPath.h"
#include "platform/text/TextConversion.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace ovrin::testing {

namespace {

std::string Quoted(const std::filesystem::path &path) {
    return '"' + WideToUtf8(WideFromPathLenient(path)) + '"';
}

template<typename Action>
void ExpectPathError(const std::string &operation, const std::filesystem::path &path, Action action) {
    try {
        action(path);
        ADD_FAILURE() << operation << " succeeds for " << path;
    } catch (const std::filesystem::filesystem_error &error) {
        const std::string text = error.what();
        EXPECT_TRUE(text.starts_with(operation + ": ") && text.ends_with(": " + Quoted(path))) << text;
        EXPECT_GT(text.size(), operation.size() + Quoted(path).size() + 4) << "no system text: " << text;
        EXPECT_EQ(error.path1(), path);
        EXPECT_NE(error.code().value(), 0);
    }
}

const auto exists = [](const std::filesystem::path &path) { return PathExists(path); };
const auto isEmpty = [](const std::filesystem::path &path) { return IsPathEmpty(path); };
const auto create = [](const std::filesystem::path &path) { CreateDirectoryChain(path); };

TEST(PathExists, CountsAnyKindOfEntryAndTellsAbsenceFromFailure) {
    const TemporaryFolder folder;
    const auto file = folder.Make("f\u00E4hig/file");
    const struct {
        const char *label;
        std::filesystem::path path;
        bool expected;
    } cases[] = {
        {"file", file, true},
        {"folder", file.parent_path(), true},
        {"folder with a separator", folder.Path() / "f\u00E4hig/", true},
        {"missing", folder.Path() / "missing", false},
        {"in a missing folder", folder.Path() / "missing/file", false},
        {"below a file", file / "below", false},
        {"a name that may not be", folder.Path() / "a<b|c", false},
        {"nothing", {}, false},
    };
    for (const auto &each : cases) {
        EXPECT_EQ(PathExists(each.path), each.expected) << each.label;
    }
}

TEST(IsPathEmpty, CountsEntriesOfFoldersAndBytesOfFiles) {
    const TemporaryFolder folder;
    folder.Make("full/inner/");
    EXPECT_TRUE(IsPathEmpty(folder.Make("empty/").parent_path()));
    EXPECT_TRUE(IsPathEmpty(folder.Make("empty file")));
    EXPECT_FALSE(IsPathEmpty(folder.Path() / "full"));
    EXPECT_FALSE(IsPathEmpty(folder.Make("file", "x")));
    ExpectPathError("is_empty", folder.Path() / "missing \u6F22", isEmpty);
}

TEST(CreateDirectoryChain, MakesEverythingMissingAndTakesWhatIsThere) {
    const TemporaryFolder folder;
    for (const char *each : {"a/b/c", "a/b/c", "a/b/d/", "dot/.", "x/y/..", "\u00FC/\u6F22"}) {
        CreateDirectoryChain(folder.Path() / each);
        EXPECT_TRUE(std::filesystem::is_directory(folder.Path() / each)) << each;
    }
}

TEST(CreateDirectoryChain, FailsWhereAFileIsInTheWayAndLeavesItThere) {
    const TemporaryFolder folder;
    const auto file = folder.Make("file");
    ExpectPathError("create_directories", file, create);
    ExpectPathError("create_directories", file / "below/it", create);
    ExpectPathError("create_directories", folder.Path() / std::string(300, 'n'), create);
    ExpectPathError("create_directories", {}, create);
    std::filesystem::path endless = folder.Path() / "endless";
    for (int element = 0; element < 16'000; ++element) {
        endless += "/a";
    }
    ExpectPathError("create_directories", endless, create);
    EXPECT_TRUE(std::filesystem::is_regular_file(file));
}

#ifdef _WIN32

TEST(FileStatus, ReportsTheSystemsOwnCodes) {
    const TemporaryFolder folder;
    const auto codeOf = [](const std::filesystem::path &path) {
        try {
            CreateDirectoryChain(path);
        } catch (const PathError &error) {
            return error.code().value();
        }
        return 0;
    };
    EXPECT_EQ(codeOf(folder.Make("file")), 267);
    EXPECT_EQ(codeOf(folder.Path() / "a<b"), 123);
    const int noDrive = codeOf(LR"(Q:\missing\drive)");
    EXPECT_TRUE(noDrive == 3 || noDrive == 2) << noDrive << "; Wine tells 2";
    EXPECT_EQ(codeOf(folder.Path() / std::wstring(200, L'a') / std::wstring(100, L'b')), 206);
    EXPECT_FALSE(PathExists(folder.Path() / std::wstring(200, L'a'))) << "a chain too long as a whole is not begun";
    EXPECT_EQ(codeOf(folder.Path() / std::wstring(L"\xD834<")), 123) << "a name that isn't text";
}

#else

TEST(FileStatus, FollowsLinksAndRaisesWhereTheyNeverEnd) {
    const TemporaryFolder folder;
    const auto dangling = folder.Path() / "dangling";
    const auto loop = folder.Path() / "loop";
    std::filesystem::create_symlink("nowhere", dangling);
    std::filesystem::create_symlink("loop", loop);
    std::filesystem::create_symlink(folder.Make("folder/"), folder.Path() / "link");
    EXPECT_TRUE(IsPathEmpty(folder.Path() / "link"));
    EXPECT_FALSE(PathExists(dangling));
    EXPECT_FALSE(PathExists(folder.Path() / std::string(300, 'n')));
    EXPECT_FALSE(PathExists(std::string(5000, 'n')));
    ExpectPathError("exists", loop, exists);
    ExpectPathError("create_directories", dangling, create);
    CreateDirectoryChain(folder.Path() / "link/inner");
    EXPECT_FALSE(IsPathEmpty(folder.Path() / "folder"));
}

TEST(FileStatus, WritesItsErrorsInOneForm) {
    const PathError error("exists", "/a \"b\"/\xFF", {13, std::system_category()});
    EXPECT_STREQ(error.what(), "exists: Permission denied: \"/a \"b\"/\uFFFD\"");
}

#endif

} // namespace

} // namespace ovrin::testing

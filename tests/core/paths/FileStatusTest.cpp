#include "core/paths/FileStatus.h"
#include "platform/text/NarrowPath.h"
#include "platform/text/TextConversion.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace ovrin::testing {

namespace {

void ExpectPathError(const std::string &operation, const std::filesystem::path &path, auto action) {
    try {
        action(path);
        ADD_FAILURE() << operation << " succeeds for " << path;
    } catch (const std::filesystem::filesystem_error &error) {
        const std::string text = error.what();
        const std::string end = ": \"" + WideToUtf8(WideFromPathLenient(path)) + '"';
        EXPECT_TRUE(text.starts_with(operation + ": ") && text.ends_with(end)) << text;
        EXPECT_GT(text.size(), operation.size() + 2 + end.size()) << "no system text: " << text;
        EXPECT_EQ(error.path1(), path);
        EXPECT_NE(error.code().value(), 0);
    }
}

TEST(PathExists, CountsAnyKindOfEntryAndTellsAbsenceFromFailure) {
    const TemporaryFolder folder;
    const auto file = folder.Make("f\u00E4hig/file");
    for (const auto &there : {file, file.parent_path(), file.parent_path() / ""}) {
        EXPECT_TRUE(PathExists(there)) << there;
    }
    for (const std::filesystem::path absent : {"missing", "missing/file", "f\u00E4hig/file/below", "a<b|c"}) {
        EXPECT_FALSE(PathExists(folder.Path() / absent)) << absent;
    }
    EXPECT_FALSE(PathExists({}));
}

TEST(IsPathEmpty, CountsEntriesOfFoldersAndBytesOfFiles) {
    const TemporaryFolder folder;
    folder.Make("full/inner/");
    EXPECT_TRUE(IsPathEmpty(folder.Make("empty/").parent_path()));
    EXPECT_TRUE(IsPathEmpty(folder.Make("empty file")));
    EXPECT_FALSE(IsPathEmpty(folder.Path() / "full"));
    EXPECT_FALSE(IsPathEmpty(folder.Make("file", "x")));
    ExpectPathError("is_empty", folder.Path() / "missing \u6F22", IsPathEmpty);
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
    ExpectPathError("create_directories", file, CreateDirectoryChain);
    ExpectPathError("create_directories", file / "below/it", CreateDirectoryChain);
    ExpectPathError("create_directories", folder.Path() / std::string(300, 'n'), CreateDirectoryChain);
    ExpectPathError("create_directories", {}, CreateDirectoryChain);
    std::filesystem::path endless = folder.Path() / "endless";
    for (int element = 0; element < 16'000; ++element) {
        endless += "/a";
    }
    ExpectPathError("create_directories", endless, CreateDirectoryChain);
    EXPECT_TRUE(std::filesystem::is_regular_file(file));
}

#ifdef _WIN32

TEST(FileStatus, ReportsTheSystemsOwnCodes) {
    const TemporaryFolder folder;
    const std::pair<std::filesystem::path, int> cases[] = {
        {folder.Make("file"), 267},
        {folder.Path() / "a<b", 123},
        {folder.Path() / std::wstring(L"\xD834<"), 123}, // a name that isn't text
        {folder.Path() / std::wstring(200, L'a') / std::wstring(100, L'b'), 206},
    };
    for (const auto &[path, code] : cases) {
        try {
            CreateDirectoryChain(path);
            ADD_FAILURE() << code;
        } catch (const PathError &error) {
            EXPECT_EQ(error.code().value(), code);
        }
    }
    EXPECT_FALSE(PathExists(folder.Path() / std::wstring(200, L'a'))) << "a chain too long as a whole is not begun";
}

#else

TEST(FileStatus, FollowsLinksAndRaisesWhereTheyNeverEnd) {
    const TemporaryFolder folder;
    const auto dangling = folder.Path() / "dangling";
    const auto loop = folder.Path() / "loop";
    std::filesystem::create_symlink("nowhere", dangling);
    std::filesystem::create_symlink("loop", loop);
    std::filesystem::create_symlink(folder.Make("folder/"), folder.Path() / "link");
    EXPECT_FALSE(PathExists(dangling));
    EXPECT_FALSE(PathExists(folder.Path() / std::string(300, 'n')));
    EXPECT_FALSE(PathExists(std::string(5000, 'n')));
    ExpectPathError("exists", loop, PathExists);
    ExpectPathError("create_directories", dangling, CreateDirectoryChain);
    EXPECT_TRUE(IsPathEmpty(folder.Path() / "link"));
    CreateDirectoryChain(folder.Path() / "link/inner");
    EXPECT_FALSE(IsPathEmpty(folder.Path() / "link"));
}

TEST(FileStatus, WritesItsErrorsInOneForm) {
    const PathError error("exists", "/a \"b\"/\xFF", {13, std::system_category()});
    EXPECT_STREQ(error.what(), "exists: Permission denied: \"/a \"b\"/\uFFFD\"");
}

#endif

} // namespace

} // namespace ovrin::testing

#include "core/paths/PathForm.h"

#include <array>
#include <gtest/gtest.h>
#include <vector>

namespace ovrin::PathForm {

namespace {

using Path = std::filesystem::path;

// Rows of a path and its normal form in slashes.
void ExpectNormal(const std::vector<std::array<Path, 2>> &rows) {
    for (const auto &[path, normal] : rows) {
        EXPECT_EQ(GenericText(LexicallyNormal(path)), normal.native()) << path;
    }
}

// Rows of two paths and their join in slashes.
void ExpectJoined(const std::vector<std::array<Path, 3>> &rows) {
    for (const auto &[base, part, joined] : rows) {
        EXPECT_EQ(GenericText(Join(base, part)), joined.native()) << base << " and " << part;
    }
}

// Rows of a path, its parent and its file name.
void ExpectParts(const std::vector<std::array<Path, 3>> &rows, bool areAbsolute) {
    for (const auto &[path, parent, fileName] : rows) {
        EXPECT_EQ(ParentOf(path).native(), parent.native()) << path;
        EXPECT_EQ(FileNameOf(path).native(), fileName.native()) << path;
        EXPECT_EQ(IsAbsolute(path), areAbsolute) << path;
    }
}

TEST(PathForm, TreatsElementsAlikeEverywhere) {
    ExpectNormal({{"", ""}, {"a//b/./c/../d.e", "a/b/d.e"}, {"a/..", "."}, {"a/b/..", "a/"}, {"a/b/.", "a/b/"}});
    ExpectNormal({{"../a/../..", "../.."}, {"/..", "/"}, {"/a/../..", "/"}});
    ExpectJoined({{"a", "b", "a/b"}, {"a/", "b", "a/b"}, {"", "b", "b"}, {"a", "", "a/"}, {"/", "b", "/b"}});
    ExpectParts({{"a", "", "a"}, {"a/b/", "a/b", ""}, {"a//b.c", "a", "b.c"}, {"", "", ""}}, false);
}

TEST(PathForm, MakesARelativePathAbsoluteAgainstTheCurrentFolder) {
    const Path current = std::filesystem::current_path();
    EXPECT_EQ(MakeAbsolute("a/../b"), Join(current, "a/../b"));
    EXPECT_EQ(MakeAbsolute(current / "x/.."), current / "x/..");
}

#ifdef _WIN32

TEST(PathForm, KeepsTheMeaningOfDrivesAndShares) {
    ExpectNormal({{LR"(C:\a\..\..\b)", L"C:/b"},
                  {LR"(C:a\..\b)", L"C:b"},
                  {LR"(c:/a/./b/)", L"c:/a/b/"},
                  {LR"(\\server\share\a\..\b)", L"//server/share/b"},
                  {LR"(\\server\share\..\..\b)", L"//server/share/b"},
                  {LR"(//server/share/a//b)", L"//server/share/a/b"},
                  {LR"(\\?\C:\a\..\b)", L"//?/C:/b"},
                  {LR"(\\?\UNC\server\share\..\b)", L"//?/UNC/server/share/b"},
                  {LR"(\a\..\b. )", L"/b. "}});
    ExpectJoined({{LR"(C:\a)", LR"(D:\b)", L"D:/b"},
                  {LR"(C:\a)", LR"(\b)", L"C:/b"},
                  {LR"(C:\a)", L"D:b", L"D:b"},
                  {LR"(C:\a)", L"C:b", L"C:/a/b"},
                  {L"C:", L"b", L"C:b"},
                  {LR"(\\server\share)", L"b", L"//server/share/b"},
                  {LR"(\\server\share\a)", LR"(\b)", L"//server/share/b"},
                  {LR"(C:\a)", LR"(\\server\share\b)", L"//server/share/b"}});
    ExpectParts({{L"C:a", L"C:", L"a"}, {LR"(\a)", LR"(\)", L"a"}}, false);
    ExpectParts({{LR"(C:\a)", LR"(C:\)", L"a"},
                 {LR"(C:\)", LR"(C:\)", L""},
                 {LR"(\\server\share\a\b)", LR"(\\server\share\a)", L"b"},
                 {LR"(\\server\share\a)", LR"(\\server\share\)", L"a"},
                 {LR"(\\server\share\)", LR"(\\server\share\)", L""},
                 {LR"(\\?\C:\a)", LR"(\\?\C:\)", L"a"},
                 {LR"(\\?\UNC\server\share\a)", LR"(\\?\UNC\server\share\)", L"a"}},
                true);
}

TEST(PathForm, MakesDriveRelativePathsAbsolute) {
    const std::wstring current = std::filesystem::current_path().native();
    const std::wstring drive = current.substr(0, 2);
    EXPECT_EQ(MakeAbsolute(drive + L"a"), Join(current, L"a"));
    EXPECT_EQ(MakeAbsolute(LR"(\a)").native(), drive + LR"(\a)");
    EXPECT_EQ(MakeAbsolute(LR"(\\server\share)").native(), LR"(\\server\share)");
}

#else

TEST(PathForm, HasOneRootAndTakesBackslashesAsTheyAre) {
    ExpectNormal({{"/a\\..\\b", "/a\\..\\b"}, {"C:/a/../b", "C:/b"}});
    ExpectJoined({{"/a", "/b", "/b"}, {"/a", "C:/b", "/a/C:/b"}});
    ExpectParts({{"/", "/", ""}, {"/a", "/", "a"}, {"/a/b", "/a", "b"}}, true);
}

#endif

} // namespace

} // namespace ovrin::PathForm

#include "launcher/workflows/FormText.h"
#include "launcher/workflows/ProjectTemplates.h"

#include <gtest/gtest.h>

namespace ovrin {
namespace {

TEST(FormText, OnlyFourKindsOfWhiteSpaceGoAndOnlyAtTheEnds) {
    EXPECT_EQ(TrimFormText(WIDE(" \t\r\n ")), WideText());
    EXPECT_EQ(TrimFormText(WIDE("\t My  Game\r\n")), WIDE("My  Game"));
    EXPECT_EQ(TrimFormText(WIDE(" \vGame\f\u00A0 ")), WIDE("\vGame\f\u00A0"));
}

TEST(FormText, AProjectNameIsAnythingWithoutTheNineCharacters) {
    for (const WideTextView name : {WIDE("Game"), WIDE("my.game"), WIDE("."), WIDE(".."), WIDE("CON"), WIDE("a. "),
                                    WIDE("\u0418\u0433\u0440\u0430"), WIDE("\U0001F3AE"), WIDE("a'b&c")}) {
        EXPECT_TRUE(IsValidProjectName(name));
    }
    EXPECT_FALSE(IsValidProjectName(WIDE("")));
    for (const WideChar forbidden : WideTextView{WIDE("<>:\"/\\|?*")}) {
        EXPECT_FALSE(IsValidProjectName(WideText{WIDE("a")} + forbidden)) << static_cast<int>(forbidden);
        EXPECT_FALSE(IsValidProjectName(WideText{forbidden} + WIDE("b"))) << static_cast<int>(forbidden);
    }
}

TEST(FormText, TheProjectFileBearsTheNameOfItsFolder) {
    const std::pair<std::filesystem::path, std::filesystem::path> cases[] = {
        {"L/my.game", "L/my.game/my.game.oproject"},
        {"L/.", "L/OvrinProject.oproject"}, // the folder itself
        {"A/L/..", "A/OvrinProject.oproject"},
        {"L/Game/", "L/Game/OvrinProject.oproject"},
    };
    for (auto [folder, expected] : cases) {
        EXPECT_EQ(ProjectFileForFolder(folder), expected.make_preferred()) << folder;
    }
}

TEST(ProjectTemplates, ARowOutsideTheTableIsClamped) {
    EXPECT_EQ(GetTemplateIdentifier(-1), WIDE("blank"));
    EXPECT_EQ(GetTemplateIdentifier(2), WIDE("third_person"));
    EXPECT_EQ(GetTemplateIdentifier(3), WIDE("arena"));
    EXPECT_EQ(GetTemplateIdentifier(4), WIDE("arena"));
}

} // namespace
} // namespace ovrin

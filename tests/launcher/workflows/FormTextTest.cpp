#include "launcher/workflows/FormText.h"
#include "launcher/workflows/ProjectTemplates.h"

#include <gtest/gtest.h>

namespace ovrin {
namespace {

TEST(FormText, OnlyFourKindsOfWhiteSpaceGoAndOnlyAtTheEnds) {
    const struct {
        const char *label;
        WideTextView text;
        WideTextView expected;
    } cases[] = {
        {"empty", WIDE(""), WIDE("")},
        {"white space alone", WIDE(" \t\r\n "), WIDE("")},
        {"inner blanks stay", WIDE("\t My  Game\r\n"), WIDE("My  Game")},
        {"no-break space stays", WIDE(" Game\u00A0"), WIDE("Game\u00A0")},
        {"vertical tab and form feed stay", WIDE("\vGame\f"), WIDE("\vGame\f")},
    };
    for (const auto &testCase : cases) {
        EXPECT_EQ(TrimFormText(testCase.text), testCase.expected) << testCase.label;
    }
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
    const struct {
        const char *label;
        std::filesystem::path folder;
        std::filesystem::path expected;
    } cases[] = {
        {"plain", "L/Game", "L/Game/Game.oproject"},
        {"a dot in the name stays", "L/my.game", "L/my.game/my.game.oproject"},
        {"a lone dot is the folder itself", "L/.", "L/OvrinProject.oproject"},
        {"two dots are its parent", "A/L/..", "A/OvrinProject.oproject"},
        {"a trailing separator leaves no name", "L/Game/", "L/Game/OvrinProject.oproject"},
    };
    for (const auto &testCase : cases) {
        std::filesystem::path expected = testCase.expected;
        EXPECT_EQ(ProjectFileForFolder(testCase.folder), expected.make_preferred()) << testCase.label;
    }
}

TEST(ProjectTemplates, ARowOutsideTheTableIsClamped) {
    const struct {
        std::int32_t row;
        WideTextView identifier;
    } cases[] = {{-1, WIDE("blank")},       {0, WIDE("blank")}, {1, WIDE("fps")},
                 {2, WIDE("third_person")}, {3, WIDE("arena")}, {4, WIDE("arena")}};
    for (const auto &testCase : cases) {
        EXPECT_EQ(GetTemplateIdentifier(testCase.row), testCase.identifier) << testCase.row;
    }
}

} // namespace
} // namespace ovrin

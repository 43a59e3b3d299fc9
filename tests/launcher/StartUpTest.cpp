#include "launcher/StartUp.h"

#include <gtest/gtest.h>

namespace ovrin {
namespace {

TEST(StartUp, OnlyAMinimisedStartIsChanged) {
    EXPECT_EQ(ResolveShowCommand(SW_SHOWMINIMIZED), SW_SHOWNORMAL);
    for (const int command : {SW_HIDE, SW_SHOWNORMAL, 3, SW_SHOWDEFAULT, -1, 77}) {
        EXPECT_EQ(ResolveShowCommand(command), command);
    }
}

TEST(StartUp, TheWindowIsCentredAndNeverStartsOffTheScreen) {
    EXPECT_EQ(CentredOrigin(1920, 1220), 350);
    EXPECT_EQ(CentredOrigin(1921, 1220), 350);
    EXPECT_EQ(CentredOrigin(1217, 1220), 0);
    EXPECT_EQ(CentredOrigin(640, 1220), 0);
    EXPECT_EQ(CentredOrigin(1220, 1220), 0);
}

} // namespace
} // namespace ovrin

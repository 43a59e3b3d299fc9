// A build without a window system.
#include "platform/dialogs/NativeFileDialog.h"

#include <gtest/gtest.h>

namespace ovrin {

namespace {

TEST(UnavailableDialogs, SayWhyThereIsNone) {
    for (const FileDialogResult &result : {NativeFileDialog::OpenFile({}), NativeFileDialog::OpenFiles({}),
                                           NativeFileDialog::PickFolder({}), NativeFileDialog::SaveFile({})}) {
        EXPECT_EQ(result.status, FileDialogStatus::Unavailable);
        EXPECT_TRUE(result.paths.empty());
        EXPECT_FALSE(result.message.empty());
    }
}

} // namespace

} // namespace ovrin

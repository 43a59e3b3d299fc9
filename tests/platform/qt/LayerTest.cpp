// What only the layer itself can show of the launcher's window: the toolkit's side of handles, banners, screen readers
// and input methods.

#include "launcher/LauncherControls.h"
#include "launcher/LauncherState.h"
#include "launcher/LauncherWindow.h"
#include "platform/winapi/qt/TestAccess.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTest>

namespace ovrin {
namespace {

class Layer : public testing::Test {
protected:
    Layer() {
        WNDCLASSEXW windowClass{};
        windowClass.cbSize = sizeof(windowClass);
        windowClass.lpfnWndProc = LauncherWndProc;
        windowClass.lpszClassName = WIDE("LayerTest");
        RegisterClassExW(&windowClass); // the second time it stands already
    }
    void SetUp() override {
        window_ = CreateWindowExW(0, WIDE("LayerTest"), WIDE("Layer"), WS_CAPTION, 0, 0, 1220, 820, nullptr, nullptr,
                                  nullptr, &state_);
        ShowWindow(window_, SW_SHOWNORMAL);
    }
    void TearDown() override { Close(); }

    void Close() {
        DestroyWindow(window_);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static QLineEdit &Edit(HWND edit) { return dynamic_cast<QLineEdit &>(*layer::WidgetOf(edit)); }
    [[nodiscard]] QLineEdit &NameEdit() const { return Edit(state_.projectNameEdit); }
    static QAccessibleInterface &ReaderOf(HWND control) {
        return *QAccessible::queryAccessibleInterface(layer::WidgetOf(control));
    }

    LauncherState state_;
    HWND window_ = nullptr;
};

TEST_F(Layer, NothingIsLeftOfAWindowAndItsHandlesAreDead) {
    const HWND button = state_.createButton;
    EXPECT_EQ(layer::CountLiveObjects().windows, 12U);
    Close();
    EXPECT_EQ(layer::CountLiveObjects(), layer::LiveCounts{});
    EXPECT_FALSE(IsWindow(window_) || IsWindow(button));
    EXPECT_EQ(SendMessageW(button, WM_COMMAND, 0, 0), 0);
    EXPECT_FALSE(MoveWindow(button, 0, 0, 9, 9, TRUE) || ShowWindow(button, SW_SHOW) || DestroyWindow(window_));
}

TEST_F(Layer, TheBannerGoesWithTheFocus) {
    EXPECT_EQ(NameEdit().placeholderText(), "Project name");
    SetFocus(state_.projectNameEdit);
    EXPECT_EQ(NameEdit().placeholderText(), "");
    SetFocus(window_);
    EXPECT_EQ(NameEdit().placeholderText(), "Project name");
}

TEST_F(Layer, OnlyTheFirstLineOfAPasteIsTaken) {
    SetWindowTextW(state_.projectNameEdit, WIDE("abcd"));
    EXPECT_EQ(NameEdit().cursorPosition(), 0);
    NameEdit().setCursorPosition(2);
    QApplication::clipboard()->setText(QStringLiteral("one\ntwo\r\n"));
    NameEdit().paste();
    EXPECT_EQ(NameEdit().text(), QStringLiteral("abonecd"));
    EXPECT_EQ(NameEdit().cursorPosition(), 5);
    QLineEdit &location = Edit(state_.locationEdit);
    location.selectAll();
    location.paste();
    EXPECT_EQ(location.text(), "one") << "also into the text given at creation";
}

TEST_F(Layer, ScreenReadersFindControlsAndRowsByRoleAndNameAndPressTheFace) {
    const struct {
        HWND control;
        QAccessible::Role role;
        const char *name;
    } cases[] = {
        {state_.projectNameEdit, QAccessible::EditableText, "Project Name"},
        {state_.templateButton, QAccessible::Button, "Template"},
        {state_.locationEdit, QAccessible::EditableText, "Location"},
        {state_.openProjectButton, QAccessible::Button, "Open Project..."}, // as all buttons with a text
        {state_.recentList, QAccessible::List, "Recent Projects"},
        {state_.templatePopup, QAccessible::List, "Templates"},
    };
    for (const auto &[control, role, name] : cases) {
        EXPECT_EQ(ReaderOf(control).role(), role) << name;
        EXPECT_EQ(ReaderOf(control).text(QAccessible::Name).toStdString(), name);
        EXPECT_TRUE(ReaderOf(control).state().focusable) << name;
    }
    ReaderOf(state_.templateButton).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(state_.templatePopupOpen);
    const QAccessibleInterface &popup = ReaderOf(state_.templatePopup);
    ASSERT_EQ(popup.childCount(), 4);
    EXPECT_EQ(popup.child(0)->role(), QAccessible::ListItem);
    EXPECT_EQ(popup.child(3)->text(QAccessible::Name).toStdString(), "Action Arena Starter");
    EXPECT_EQ(popup.indexOfChild(popup.child(2)), 2);
    EXPECT_TRUE(popup.child(0)->state().selected);
    EXPECT_FALSE(popup.child(1)->state().selected);
    EXPECT_EQ(popup.child(4), nullptr);
}

// Records the keys that reach the edit's procedures.
LRESULT RecordKeys(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR /*id*/, DWORD_PTR data) {
    if (message == WM_KEYDOWN) {
        reinterpret_cast<std::vector<WPARAM> *>(data)->push_back(wParam);
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

TEST_F(Layer, ComposedTextAndAltKeysReachNoProcedureAsKeys) {
    std::vector<WPARAM> keys;
    SetWindowSubclass(state_.projectNameEdit, RecordKeys, 2, reinterpret_cast<DWORD_PTR>(&keys));
    SetFocus(state_.projectNameEdit);
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("\u30B2\u30FC\u30E0"));
    QCoreApplication::sendEvent(&NameEdit(), &composed);
    EXPECT_EQ(NameEdit().text(), QStringLiteral("\u30B2\u30FC\u30E0"));
    QTest::keyClick(&NameEdit(), Qt::Key_Return, Qt::AltModifier);
    EXPECT_TRUE(keys.empty());
    QTest::keyClick(&NameEdit(), Qt::Key_End);
    EXPECT_EQ(keys, std::vector<WPARAM>{VK_END});
}

} // namespace
} // namespace ovrin

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}

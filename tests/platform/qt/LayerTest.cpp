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
    void TearDown() override { Close(); }

    void Open() {
        window_ = CreateWindowExW(0, WIDE("LayerTest"), WIDE("Layer"), WS_CAPTION, 0, 0, 1220, 820, nullptr, nullptr,
                                  nullptr, &state_);
        ShowWindow(window_, SW_SHOWNORMAL);
    }

    void Close() {
        DestroyWindow(window_);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    [[nodiscard]] QLineEdit *NameEdit() const {
        return qobject_cast<QLineEdit *>(layer::WidgetOf(state_.projectNameEdit));
    }

    LauncherState state_;
    HWND window_ = nullptr;
};

TEST_F(Layer, NothingIsLeftOfAWindowAndItsHandlesAreDead) {
    const layer::LiveCounts before = layer::CountLiveObjects();
    Open();
    const HWND button = state_.createButton;
    EXPECT_EQ(layer::CountLiveObjects().windows, before.windows + 12);
    Close();
    EXPECT_EQ(layer::CountLiveObjects(), before);
    EXPECT_FALSE(IsWindow(window_) || IsWindow(button));
    EXPECT_EQ(SendMessageW(button, WM_COMMAND, 0, 0), 0);
    EXPECT_FALSE(MoveWindow(button, 0, 0, 9, 9, TRUE) || ShowWindow(button, SW_SHOW) || DestroyWindow(window_));
}

TEST_F(Layer, TheBannerGoesWithTheFocus) {
    Open();
    EXPECT_EQ(NameEdit()->placeholderText(), "Project name");
    SetFocus(state_.projectNameEdit);
    EXPECT_EQ(NameEdit()->placeholderText(), "");
    SetFocus(window_);
    EXPECT_EQ(NameEdit()->placeholderText(), "Project name");
}

TEST_F(Layer, OnlyTheFirstLineOfAPasteIsTaken) {
    Open();
    SetWindowTextW(state_.projectNameEdit, WIDE("abcd"));
    EXPECT_EQ(NameEdit()->cursorPosition(), 0);
    NameEdit()->setCursorPosition(2);
    QApplication::clipboard()->setText(QStringLiteral("one\ntwo\r\n"));
    NameEdit()->paste();
    EXPECT_EQ(NameEdit()->text(), QStringLiteral("abonecd"));
    EXPECT_EQ(NameEdit()->cursorPosition(), 5);
    auto *location = qobject_cast<QLineEdit *>(layer::WidgetOf(state_.locationEdit));
    const QString suggested = location->text();
    location->setCursorPosition(0);
    location->paste();
    EXPECT_EQ(location->text(), QStringLiteral("one") + suggested) << "also into the text given at creation";
}

TEST_F(Layer, ScreenReadersFindEveryControlByRoleAndName) {
    Open();
    const struct {
        HWND control;
        QAccessible::Role role;
        const char *name;
    } cases[] = {
        {state_.projectNameEdit, QAccessible::EditableText, "Project Name"},
        {state_.templateButton, QAccessible::Button, "Template"},
        {state_.locationEdit, QAccessible::EditableText, "Location"},
        {state_.browseButton, QAccessible::Button, "Browse"},
        {state_.createButton, QAccessible::Button, "Create Project"},
        {state_.recentList, QAccessible::List, "Recent Projects"},
        {state_.openSelectedButton, QAccessible::Button, "Open Selected"},
        {state_.openProjectButton, QAccessible::Button, "Open Project..."},
        {state_.removeMissingButton, QAccessible::Button, "Remove Missing"},
        {state_.quitButton, QAccessible::Button, "Quit"},
        {state_.templatePopup, QAccessible::List, "Templates"},
    };
    for (const auto &testCase : cases) {
        auto *known = QAccessible::queryAccessibleInterface(layer::WidgetOf(testCase.control));
        ASSERT_NE(known, nullptr) << testCase.name;
        EXPECT_EQ(known->role(), testCase.role) << testCase.name;
        EXPECT_EQ(known->text(QAccessible::Name).toStdString(), testCase.name);
        EXPECT_TRUE(known->state().focusable) << testCase.name;
    }
}

TEST_F(Layer, ScreenReadersReadTheRowsAndPressTheFace) {
    Open();
    auto *face = QAccessible::queryAccessibleInterface(layer::WidgetOf(state_.templateButton));
    face->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(state_.templatePopupOpen);
    auto *popup = QAccessible::queryAccessibleInterface(layer::WidgetOf(state_.templatePopup));
    ASSERT_EQ(popup->childCount(), 4);
    EXPECT_EQ(popup->child(3)->text(QAccessible::Name).toStdString(), "Action Arena Starter");
    EXPECT_EQ(popup->indexOfChild(popup->child(2)), 2);
    EXPECT_TRUE(popup->child(0)->state().selected);
    EXPECT_FALSE(popup->child(1)->state().selected);
    EXPECT_EQ(popup->child(4), nullptr);
}

// Records the keys that reach the edit's procedures.
LRESULT RecordKeys(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR /*id*/, DWORD_PTR data) {
    if (message == WM_KEYDOWN) {
        reinterpret_cast<std::vector<WPARAM> *>(data)->push_back(wParam);
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

TEST_F(Layer, ComposedTextAndAltKeysReachNoProcedureAsKeys) {
    Open();
    std::vector<WPARAM> keys;
    SetWindowSubclass(state_.projectNameEdit, RecordKeys, 2, reinterpret_cast<DWORD_PTR>(&keys));
    SetFocus(state_.projectNameEdit);
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("\u30B2\u30FC\u30E0"));
    QCoreApplication::sendEvent(NameEdit(), &composed);
    EXPECT_EQ(NameEdit()->text(), QStringLiteral("\u30B2\u30FC\u30E0"));
    QTest::keyClick(NameEdit(), Qt::Key_Return, Qt::AltModifier);
    EXPECT_TRUE(keys.empty());
    QTest::keyClick(NameEdit(), Qt::Key_End);
    EXPECT_EQ(keys, std::vector<WPARAM>{VK_END});
}

} // namespace
} // namespace ovrin

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}

// What the launcher answers and does, in the real window with real input.
#include "launcher/LauncherControls.h"
#include "tests/desktop/DesktopDriver.h"
#include "tests/desktop/Recorder.h"
#include "tests/desktop/Sandbox.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace ovrin::desktop {

namespace {

namespace fs = std::filesystem;

POINT MiddleOf(const RECT &rect) {
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

void Click(HWND window, const RECT &rect) {
    PressMouse(window, MiddleOf(rect));
    ReleaseMouse(window, MiddleOf(rect));
}

WideText TextOf(HWND window) {
    std::array<WideChar, 1024> buffer{};
    GetWindowTextW(window, buffer.data(), static_cast<int>(buffer.size()));
    return buffer.data();
}

// As UTF-8, so that a failed comparison can be read.
std::string Shown(WideTextView text) {
    return WideToUtf8(text);
}

void FillForm(const LauncherState &state, const WideText &name, const WideText &location) {
    SetWindowTextW(state.projectNameEdit, name.c_str());
    SetWindowTextW(state.locationEdit, location.c_str());
}

std::vector<std::string> EntriesBelow(const fs::path &folder) {
    std::vector<std::string> entries;
    for (const auto &entry : fs::recursive_directory_iterator{folder}) {
        entries.push_back(entry.path().generic_string());
    }
    std::sort(entries.begin(), entries.end());
    return entries;
}

TEST(LauncherWindow, OpensWithElevenControlsAndTheFocusOnNone) {
    struct Control {
        int id;
        DWORD style; // without visible, disabled and scroll bar, which follow the content
        const WideChar *text;
        SIZE size;
    };
    constexpr Control controls[] = {
        {1001, 0x44010080, WIDE(""), {746, 24}},
        {1010, 0x4401400B, WIDE(""), {284, 32}},
        {1002, 0x44010080, nullptr, {736, 24}},
        {1003, 0x4401000B, WIDE("Browse"), {120, 40}},
        {1004, 0x4401000B, WIDE("Create Project"), {180, 40}},
        {1005, 0x44010111, WIDE(""), {1084, 282}},
        {1006, 0x4401000B, WIDE("Open Selected"), {170, 42}},
        {1007, 0x4401000B, WIDE("Open Project..."), {170, 42}},
        {1008, 0x4401000B, WIDE("Remove Missing"), {160, 42}},
        {1009, 0x4401000B, WIDE("Quit"), {110, 42}},
        {1011, 0x44010111, WIDE(""), {300, 168}},
    };
    constexpr DWORD changing = WS_VISIBLE | WS_DISABLED | WS_VSCROLL;
    const Sandbox sandbox;
    const int exitCode = RunLauncher([&](const LauncherRun &run) {
        EXPECT_EQ(Shown(TextOf(run.window)), "OvrinEngine Launcher");
        EXPECT_EQ(static_cast<DWORD>(GetWindowLongPtrW(run.window, GWL_STYLE)) & 0x02CA0000U, 0x02CA0000U);
        RECT client{};
        GetClientRect(run.window, &client);
        EXPECT_EQ(client.right, 1220);
        EXPECT_EQ(client.bottom, 820);
        EXPECT_EQ(GetFocus(), run.window);
        for (const Control &expected : controls) {
            SCOPED_TRACE(expected.id);
            const HWND control = GetDlgItem(run.window, expected.id);
            const auto style = static_cast<DWORD>(GetWindowLongPtrW(control, GWL_STYLE));
            EXPECT_EQ(style & ~changing, expected.style);
            const WideText location = WideFromPath(sandbox.DefaultLocation());
            EXPECT_EQ(Shown(TextOf(control)), Shown(expected.text != nullptr ? expected.text : location));
            GetClientRect(control, &client);
            EXPECT_EQ(client.right, expected.size.cx);
            EXPECT_EQ(client.bottom, expected.size.cy);
            EXPECT_EQ(IsWindowVisible(control) != 0, expected.id != 1005 && expected.id != 1011);
            EXPECT_EQ(IsWindowEnabled(control) != 0, expected.id != 1006 && expected.id != 1008);
        }
        EXPECT_EQ(SendMessageW(run.state.templatePopup, LB_GETCOUNT, 0, 0), 4);
        EXPECT_EQ(SendMessageW(run.state.templatePopup, LB_GETITEMHEIGHT, 0, 0), 40);
        EXPECT_EQ(SendMessageW(run.state.recentList, LB_GETITEMHEIGHT, 0, 0), 72);
    });
    EXPECT_EQ(exitCode, 0);
}

TEST(LauncherWindow, AnswersWhatThePlatformAsks) {
    const Sandbox sandbox;
    RunLauncher([&](const LauncherRun &run) {
        MINMAXINFO sizes{};
        EXPECT_EQ(SendMessageW(run.window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&sizes)), 0);
        EXPECT_EQ(sizes.ptMinTrackSize.x, 1100);
        EXPECT_EQ(sizes.ptMinTrackSize.y, 760);
        EXPECT_EQ(SendMessageW(run.window, WM_ERASEBKGND, 0, 0), 1);
        EXPECT_EQ(SendMessageW(run.window, WM_DRAWITEM, 0, 0), 0);
        MEASUREITEMSTRUCT item{};
        item.CtlID = ControlId::recentList;
        EXPECT_EQ(SendMessageW(run.window, WM_MEASUREITEM, 1005, reinterpret_cast<LPARAM>(&item)), 1);
        EXPECT_EQ(item.itemHeight, 72U);
        EXPECT_EQ(CreateWindowExW(0, WIDE("OvrinLauncherWindow"), WIDE(""), 0, 0, 0, 9, 9, nullptr, nullptr, nullptr,
                                  nullptr),
                  nullptr)
            << "without a state there is no window";
    });
}

TEST(CreateProject, RefusesInItsOwnWordsAndKeepsTheFormAndTheDisk) {
    const Sandbox sandbox;
    const fs::path location = sandbox.folder().Path() / "here";
    sandbox.folder().Make("here/Full/inner/");
    sandbox.folder().Make("here/Made/Made.oproject");
    sandbox.folder().Make("here/Bytes", "content");
    sandbox.folder().Make("here/Empty");
    const WideText here = WideFromPath(location);
    const std::string badName = "Enter a valid project name without characters like /, \\, :, *, ?, or |.";
    const std::string inUse =
        "The target project folder already exists and is not empty. Choose a different name or location.";
    struct Refusal {
        WideText name;
        WideText location;
        std::string title;
        std::string text; // empty: the system's
        UINT icon;
    };
    const Refusal refusals[] = {
        {WIDE(""), WIDE(""), "Invalid Project Name", badName, MB_ICONWARNING},
        {WIDE(" \t "), here, "Invalid Project Name", badName, MB_ICONWARNING},
        {WIDE("a<b"), here, "Invalid Project Name", badName, MB_ICONWARNING},
        {WIDE("Game"), WIDE("  "), "Missing Project Location", "Choose a parent folder for the new project.",
         MB_ICONWARNING},
        {WIDE("Made"), here, "Project Already Exists",
         "A project file with that name already exists in the selected folder.", MB_ICONWARNING},
        {WIDE(" Full "), here, "Folder Not Empty", inUse, MB_ICONWARNING},
        {WIDE("Bytes"), here, "Folder Not Empty", inUse, MB_ICONWARNING},
        {WIDE("."), here, "Folder Not Empty", inUse, MB_ICONWARNING},
        {WIDE("Empty"), here, "Create Project Failed", "", MB_ICONERROR},
        {WIDE("Game"), here + WIDE("/Bytes"), "Create Project Failed", "", MB_ICONERROR},
    };
    const std::vector<std::string> before = EntriesBelow(sandbox.folder().Path());
    RunLauncher([&](const LauncherRun &run) {
        std::vector<MessageBoxSeen> boxes;
        OnMessageBox([&](const MessageBoxSeen &box) { boxes.push_back(box); });
        for (const Refusal &refusal : refusals) {
            SCOPED_TRACE(Shown(refusal.name) + " in " + Shown(refusal.location));
            boxes.clear();
            FillForm(run.state, refusal.name, refusal.location);
            Click(run.window, run.state.layout.createButtonRect);
            ASSERT_EQ(boxes.size(), 1U);
            EXPECT_EQ(Shown(boxes[0].title), refusal.title);
            if (refusal.text.empty()) {
                EXPECT_TRUE(Shown(boxes[0].text).starts_with("create_directories: ")) << Shown(boxes[0].text);
            } else {
                EXPECT_EQ(Shown(boxes[0].text), refusal.text);
            }
            EXPECT_EQ(boxes[0].icon, refusal.icon);
            EXPECT_EQ(boxes[0].buttons, 1);
            EXPECT_EQ(Shown(TextOf(run.state.projectNameEdit)), Shown(refusal.name));
            EXPECT_EQ(Shown(TextOf(run.state.locationEdit)), Shown(refusal.location));
        }
        OnMessageBox(nullptr);
    });
    EXPECT_EQ(EntriesBelow(sandbox.folder().Path()), before);
}

} // namespace

} // namespace ovrin::desktop

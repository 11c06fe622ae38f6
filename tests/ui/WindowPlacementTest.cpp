// Window placement over the application profile, on real windows.
#include "ui/WindowPlacement.h"

#include "framework/WinApp.h"
#include "support/DockingFixture.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

namespace {

using namespace tqmtest;

// A frame the system does not hold to a minimum tracking size, so that the
// sizes the placement gives are the sizes the window takes.
const DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_MAXIMIZEBOX | WS_VISIBLE;

class WindowPlacement : public testing::Test
{
protected:
    WindowPlacement() : window("TqmPlacement", RECT{120, 80, 520, 380}, kStyle)
    {
        app.SetProfileFile(dir.file("profile.ini").c_str());
        wnd.Attach(window.get());
    }

    void store(const char* value) { ASSERT_TRUE(app.WriteProfileString("WindowPos", "Main", value)); }
    std::string stored() { return app.GetProfileString("WindowPos", "Main", "<none>").GetString(); }

    TempDir dir;
    CWinApp app{"Placement Test"};
    TestWindow window;
    CWnd wnd;
};

TEST_F(WindowPlacement, SavedPlacementRoundTripsMaximisedAndMinimised)
{
    ASSERT_TRUE(SaveWindowPlacement(&wnd, "Main"));
    EXPECT_EQ("0,120,80,520,380", stored());
    MoveWindow(window.get(), 10, 10, 100, 100, TRUE);
    ASSERT_TRUE(RestoreWindowPlacement(&wnd, "Main"));
    EXPECT_RECT(120, 80, 520, 380, window.rect());

    ShowWindow(window.get(), SW_SHOWMAXIMIZED);
    ASSERT_TRUE(SaveWindowPlacement(&wnd, "Main"));
    EXPECT_EQ("1,120,80,520,380", stored()) << "the normal rectangle";
    ShowWindow(window.get(), SW_MINIMIZE);
    store("0,1,2,303,404");
    EXPECT_TRUE(SaveWindowPlacement(&wnd, "Main"));
    EXPECT_EQ("0,1,2,303,404", stored()) << "a minimised window is not saved";
    ShowWindow(window.get(), SW_RESTORE);  // from minimised to how it was: maximised
    ShowWindow(window.get(), SW_RESTORE);  // and to normal
    ASSERT_FALSE(IsZoomed(window.get()) || IsIconic(window.get()));
    ASSERT_TRUE(RestoreWindowPlacement(&wnd, "Main"));
    EXPECT_RECT(1, 2, 303, 404, window.rect());

    store("1,10,10,810,610");
    ASSERT_TRUE(RestoreWindowPlacement(&wnd, "Main"));
    EXPECT_TRUE(IsZoomed(window.get()));
    WINDOWPLACEMENT placement = {};
    wnd.GetWindowPlacement(&placement);
    EXPECT_RECT(10, 10, 810, 610, placement.rcNormalPosition);
}

// Restoring moves a window and maximises it when the entry says so, and
// does nothing else: a window started minimised (in the background) or
// maximised stays so, and nothing activates it.
TEST_F(WindowPlacement, MinimisedOrMaximisedWindowsStaySo)
{
    TestWindow front("TqmPlacementFront", RECT{0, 0, 100, 100}, kStyle);
    SetForegroundWindow(front.get());
    ShowWindow(window.get(), SW_SHOWMINNOACTIVE);
    store("0,1,2,303,404");
    ASSERT_TRUE(RestoreWindowPlacement(&wnd, "Main"));
    EXPECT_TRUE(IsIconic(window.get()));
    EXPECT_NE(window.get(), GetActiveWindow());
    EXPECT_NE(window.get(), GetForegroundWindow());

    ShowWindow(window.get(), SW_SHOWMAXIMIZED);
    ASSERT_TRUE(RestoreWindowPlacement(&wnd, "Main"));
    EXPECT_TRUE(IsZoomed(window.get()));
}

TEST_F(WindowPlacement, RestoredRectanglesArePulledOntoTheScreen)
{
    const int x = GetSystemMetrics(SM_XVIRTUALSCREEN), y = GetSystemMetrics(SM_YVIRTUALSCREEN);
    struct Case
    {
        const char* entry;
        RECT expected;
    };
    const Case cases[] = {
        {"0,100,100,120,110", {100, 100, 150, 150}},                  // at least 50 by 50
        {"0,5000,100,5800,700", {x, 100, x + 800, 700}},              // wholly right: to the left edge
        {"0,-3000,-2000,-2600,-1700", {x, y, x + 400, y + 300}},
        {"0,99999999999,99999999999,99999999999,99999999999", {x, y, x + 50, y + 50}},
    };
    for (const Case& c : cases) {
        store(c.entry);
        ASSERT_TRUE(RestoreWindowPlacement(&wnd, "Main")) << c.entry;
        EXPECT_RECT(c.expected.left, c.expected.top, c.expected.right, c.expected.bottom, window.rect()) << c.entry;
    }

    // The position alone keeps the size, and shows the window.
    ASSERT_TRUE(SaveWindowPos(&wnd, "Main"));
    EXPECT_EQ(std::to_string(x) + "," + std::to_string(y), stored());
    store("5000,-400");
    ShowWindow(window.get(), SW_HIDE);
    ASSERT_TRUE(RestoreWindowPos(&wnd, "Main"));
    EXPECT_RECT(x, y, x + 50, y + 50, window.rect());
    EXPECT_TRUE(IsWindowVisible(window.get()));
}

TEST_F(WindowPlacement, MalformedOrMissingEntriesLeaveTheWindowAlone)
{
    for (const char* entry : {"0,10,10,810", "text", "1;2;3;4;5", "", "0, 30 ,40,330,240"}) {
        store(entry);
        EXPECT_FALSE(RestoreWindowPlacement(&wnd, "Main")) << entry;
    }
    EXPECT_FALSE(RestoreWindowPlacement(&wnd, "Missing"));
    for (const char* entry : {"7", "7,x"}) {
        store(entry);
        EXPECT_FALSE(RestoreWindowPos(&wnd, "Main")) << entry;
    }
    EXPECT_RECT(120, 80, 520, 380, window.rect());

    EXPECT_FALSE(SaveWindowPlacement(nullptr, "Main"));
    EXPECT_FALSE(RestoreWindowPlacement(&wnd, nullptr));
    CWnd gone;
    EXPECT_FALSE(SaveWindowPos(&gone, "Main"));
}

TEST(WindowPlacementWithoutApplication, NothingIsSavedOrRestored)
{
    ASSERT_EQ(nullptr, AfxGetApp());
    TestWindow window("TqmPlacement", RECT{10, 10, 200, 200});
    CWnd wnd;
    wnd.Attach(window.get());
    EXPECT_FALSE(SaveWindowPlacement(&wnd, "Main"));
    EXPECT_FALSE(RestoreWindowPos(&wnd, "Main"));
}

}  // namespace

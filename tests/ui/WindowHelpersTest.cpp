// Window helpers on real windows: class names, descendants, the Z order at a
// point, centring.
#include "ui/WindowHelpers.h"

#include "support/BoxRecorder.h"
#include "support/DockingFixture.h"
#include "support/SuiteSettingsGuard.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using namespace tqmtest;

const DWORD kPopup = WS_POPUP | WS_VISIBLE;
const DWORD kChild = WS_CHILD | WS_VISIBLE;

TEST(WindowHelpers, ClassNamesCompareByTheirFirst19CharactersWithoutCase)
{
    TestWindow window("TqmHelperClassWithALongName", RECT{0, 0, 50, 50});
    EXPECT_TRUE(IsWindowOfClass(window.get(), "tqmhelperclasswitha"));
    EXPECT_FALSE(IsWindowOfClass(window.get(), "TqmHelperClassWithALongName")) << "the full name is never seen";
    EXPECT_FALSE(IsWindowOfClass(window.get(), "TqmHelperClassWith"));
    EXPECT_FALSE(IsWindowOfClass(window.get(), nullptr));
    HWND gone = window.get();
    window.destroy();
    EXPECT_FALSE(IsWindowOfClass(gone, "TqmHelperClassWithA"));
}

TEST(WindowHelpers, DescendantsAreFoundAtEveryDepth)
{
    std::map<HWND, int> paints;
    MessageHandler countPaints = [&paints](HWND hWnd, UINT message, WPARAM, LPARAM, LRESULT*) {
        paints[hWnd] += message == WM_PAINT;
        return false;
    };
    TestWindow parent("TqmHelperParent", RECT{0, 0, 300, 300}, kPopup);
    TestWindow child("TqmHelperChild", RECT{0, 0, 100, 100}, kChild, countPaints, parent.get());
    TestWindow other("TqmHelperOther", RECT{100, 0, 200, 100}, kChild, countPaints, parent.get());
    TestWindow grandchild("TqmHelperChild", RECT{0, 0, 50, 50}, kChild, countPaints, other.get());
    PumpMessages();
    paints.clear();
    for (HWND hWnd : {child.get(), other.get(), grandchild.get()})
        InvalidateRect(hWnd, nullptr, TRUE);
    EXPECT_TRUE(UpdateChildWindows(parent.get(), "TQMHELPERCHILD"));
    EXPECT_EQ(1, paints[child.get()]);
    EXPECT_EQ(1, paints[grandchild.get()]);
    EXPECT_EQ(0, paints[other.get()]);
    {
        BoxRecorder boxes;
        EXPECT_FALSE(UpdateChildWindows(parent.get(), nullptr));
        EXPECT_EQ(1u, boxes.count()) << "a class name is required";
    }
    EXPECT_EQ(parent.get(), GetWindowGrandParent(grandchild.get()));
    EXPECT_EQ(parent.get(), GetWindowGrandParent(parent.get()));

    EXPECT_TRUE(DestroyWindowsOfClass(parent.get(), "TqmHelperChild"));
    EXPECT_FALSE(IsWindow(child.get()) || IsWindow(grandchild.get()));
    EXPECT_TRUE(IsWindow(other.get()));
    DestroyWindowsOfClass(parent.get(), nullptr);
    EXPECT_FALSE(IsWindow(other.get()));
    EXPECT_TRUE(IsWindow(parent.get()));
}

TEST(WindowHelpers, TheClassStackAtAPointIsSearchedDownTheZOrder)
{
    TestWindow below("TqmHelperBelow", RECT{100, 100, 400, 400}, kPopup);
    TestWindow above("TqmHelperAbove", RECT{200, 200, 500, 500}, kPopup, MessageHandler(), nullptr, WS_EX_TOPMOST);
    EXPECT_EQ(above.get(), IsClassNameStackAtPt(POINT{250, 250}, "TqmHelperAbove"));
    EXPECT_EQ(below.get(), IsClassNameStackAtPt(POINT{250, 250}, "tqmhelperbelow"));
    EXPECT_EQ(nullptr, IsClassNameStackAtPt(POINT{450, 450}, "TqmHelperBelow")) << "below, but not under the point";
    EXPECT_EQ(1, IsTopMost(above.get()));
    EXPECT_EQ(0, IsTopMost(below.get()));
}

TEST(WindowHelpers, CenteringKeepsToThePrimaryScreenWhereItFits)
{
    const int sw = GetSystemMetrics(SM_CXSCREEN), sh = GetSystemMetrics(SM_CYSCREEN);
    TestWindow window("TqmHelperCentred", RECT{0, 0, 201, 101}, kPopup);
    EXPECT_TRUE(CenterWnd(window.get(), GetDesktopWindow()));
    EXPECT_RECT(sw / 2 - 100, sh / 2 - 50, sw / 2 + 101, sh / 2 + 51, window.rect());

    // On a window at the screen's corner: held back inside the screen.
    TestWindow ref("TqmHelperRef", RECT{sw - 100, sh - 100, sw, sh}, kPopup);
    EXPECT_TRUE(CenterWnd(window.get(), ref.get()));
    EXPECT_RECT(sw - 201, sh - 101, sw, sh, window.rect());

    // Wider than the screen: from a first x that is not negative, x ends
    // negative (screen width - w); from a negative one, at 0.
    TestWindow wide("TqmHelperWide", RECT{0, 0, sw + 300, 100}, kPopup);
    EXPECT_TRUE(CenterWnd(wide.get(), ref.get()));
    EXPECT_EQ(-300, wide.rect().left);
    EXPECT_TRUE(CenterWnd(wide.get(), GetDesktopWindow()));
    EXPECT_EQ(0, wide.rect().left);

    // TQMCenterWindow centres unless docking is off.
    SuiteSettingsGuard guard;
    MoveWindow(window.get(), 10, 20, 201, 101, TRUE);
    ASSERT_TRUE(WriteUserOption("DesktopDockPos", "1"));
    TQMCenterWindow(window.get());
    EXPECT_EQ(10, window.rect().left);
    ASSERT_TRUE(WriteUserOption("DesktopDockPos", "3"));
    TQMCenterWindow(window.get());
    EXPECT_EQ(sw / 2 - 100, window.rect().left);
}

}  // namespace

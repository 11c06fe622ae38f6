// Docking geometry: the suite's odd terms in the layouts, the hit-test
// filter and sizing commands, and the shared-edge constraint.
#include "ipc/logic/DockLayout.h"

#include <gtest/gtest.h>

namespace {

using tqm::DockSide;
using tqm::WindowBox;

// A work area that starts away from 0, so that a lost offset shows.
const RECT W{100, 50, 1124, 818};

TEST(DockLayout, LayoutsKeepTheSuitesArithmetic)
{
    struct Case
    {
        bool (*layout)(int, const RECT&, const RECT&, WindowBox&);
        int pos;
        RECT partner;
        WindowBox expected;
    };
    const RECT none{};
    const Case cases[] = {
        // A quarter of width + 1 and height - 1, truncated.
        {[](int p, const RECT& w, const RECT&, WindowBox& b) { return tqm::ManagerStartBox(p, w, b); }, 3, none,
         {1124 - 256, 50, 256, 767}},
        {tqm::ManagerAgainstClientBox, 5, {100, 50, 1124, 600}, {100, 600, 1025, 218}},
        // The work area's left edge is added to the manager's own.
        {tqm::ManagerInWorkAreaBox, 3, {900, 50, 1124, 817}, {1000, 50, 124, 767}},
        {tqm::ManagerInWorkAreaBox, 4, {100, 50, 1124, 250}, {100, 50, 1024, 199}},
        // A client beside the manager: a negative width at 4 and 5.
        {tqm::ClientBesideManagerBox, 2, {100, 50, 400, 817}, {400, 50, 724, 767}},
        {tqm::ClientBesideManagerBox, 4, {100, 50, 1124, 250}, {100, 250, -1023, 567}},
        // The free part, for dialogs and laid-out clients: the whole width.
        {tqm::FreeAreaBox, 4, {100, 50, 1124, 250}, {100, 250, 1024, 567}},
        {tqm::FreeAreaBox, 5, {100, 600, 1124, 818}, {100, 50, 1024, 550}},
    };
    for (const Case& c : cases) {
        WindowBox box;
        ASSERT_TRUE(c.layout(c.pos, W, c.partner, box)) << c.pos;
        EXPECT_EQ(c.expected.x, box.x) << c.pos;
        EXPECT_EQ(c.expected.y, box.y) << c.pos;
        EXPECT_EQ(c.expected.cx, box.cx) << c.pos;
        EXPECT_EQ(c.expected.cy, box.cy) << c.pos;
    }
    WindowBox box;
    for (int pos : {1, 0, 6})
        EXPECT_FALSE(tqm::ManagerStartBox(pos, W, box) || tqm::FreeAreaBox(pos, W, W, box)) << pos;
}

TEST(DockLayout, HitTestsKeepOnlyTheSharedEdge)
{
    const LRESULT sizing[] = {HTLEFT, HTRIGHT, HTTOP, HTTOPLEFT, HTTOPRIGHT, HTBOTTOM, HTBOTTOMLEFT, HTBOTTOMRIGHT};
    struct Case
    {
        int pos;
        DockSide side;
        LRESULT kept, corner1, corner2;
        bool bGripKept;
    };
    const Case cases[] = {
        {2, DockSide::Client, HTLEFT, HTTOPLEFT, HTBOTTOMLEFT, false},
        {2, DockSide::Manager, HTRIGHT, HTTOPRIGHT, HTBOTTOMRIGHT, true},
        {3, DockSide::Client, HTRIGHT, HTTOPRIGHT, HTBOTTOMRIGHT, true},
        {3, DockSide::Manager, HTLEFT, HTTOPLEFT, HTBOTTOMLEFT, false},
        {4, DockSide::Client, HTTOP, HTTOPLEFT, HTTOPRIGHT, false},
        {4, DockSide::Manager, HTBOTTOM, HTBOTTOMLEFT, HTBOTTOMRIGHT, true},
        {5, DockSide::Client, HTBOTTOM, HTBOTTOMLEFT, HTBOTTOMRIGHT, true},
        {5, DockSide::Manager, HTTOP, HTTOPLEFT, HTTOPRIGHT, false},
    };
    for (const Case& c : cases) {
        for (LRESULT nHit : sizing) {
            const bool bKept = nHit == c.kept || nHit == c.corner1 || nHit == c.corner2;
            EXPECT_EQ(bKept ? c.kept : HTNOWHERE, tqm::FilterDockHitTest(c.pos, c.side, nHit, false))
                << "position " << c.pos << ", code " << nHit;
        }
        for (LRESULT nHit : {LRESULT(HTCAPTION), LRESULT(HTCLIENT), LRESULT(HTBORDER)})
            EXPECT_EQ(nHit, tqm::FilterDockHitTest(c.pos, c.side, nHit, false));
        EXPECT_EQ(c.bGripKept ? HTCLIENT : HTNOWHERE, tqm::FilterDockHitTest(c.pos, c.side, HTCLIENT, true));
    }
    for (int pos : {1, 0, 6})
        EXPECT_EQ(HTTOP, tqm::FilterDockHitTest(pos, DockSide::Client, HTTOP, true)) << pos;
    EXPECT_TRUE(tqm::InSizeGrip(RECT{10, 10, 110, 210}, POINT{94, 194}, 16, 16));
    EXPECT_FALSE(tqm::InSizeGrip(RECT{10, 10, 110, 210}, POINT{93, 209}, 16, 16));
}

TEST(DockLayout, SizingGoesToTheSharedEdgeWithinTheMinimums)
{
    // Keyboard sizing (edge 0) is given the shared edge; its corners size it.
    EXPECT_EQ(UINT(WMSZ_LEFT), tqm::DockSizingEdge(2, DockSide::Client, 0));
    EXPECT_EQ(UINT(WMSZ_LEFT), tqm::DockSizingEdge(2, DockSide::Client, WMSZ_LEFT));
    EXPECT_EQ(UINT(WMSZ_LEFT), tqm::DockSizingEdge(2, DockSide::Client, WMSZ_BOTTOMLEFT));
    EXPECT_EQ(0u, tqm::DockSizingEdge(2, DockSide::Client, WMSZ_TOPRIGHT));
    EXPECT_EQ(UINT(WMSZ_TOP), tqm::DockSizingEdge(5, DockSide::Manager, 0));
    EXPECT_EQ(UINT(WMSZ_TOP), tqm::DockSizingEdge(1, DockSide::Client, WMSZ_TOP));

    const SIZE minimum{100, 40};
    struct Case
    {
        int pos;
        DockSide side;
        RECT current, proposed, expected;
    };
    const Case cases[] = {
        {2, DockSide::Manager, {100, 50, 400, 817}, {90, 60, 500, 900}, {100, 50, 500, 817}},
        {2, DockSide::Manager, {100, 50, 400, 817}, {100, 50, 1100, 817}, {100, 50, 1024, 817}},
        {2, DockSide::Client, {400, 50, 1124, 817}, {120, 50, 1124, 817}, {200, 50, 1124, 817}},
        {4, DockSide::Client, {100, 250, 1124, 817}, {100, 60, 1124, 817}, {100, 90, 1124, 817}},
        {5, DockSide::Manager, {100, 600, 1125, 818}, {100, 700, 1125, 818}, {100, 700, 1125, 818}},
        {2, DockSide::Manager, {100, 50, 150, 817}, {100, 50, 700, 817}, {100, 50, 700, 817}},
        {1, DockSide::Client, {400, 50, 1124, 817}, {0, 0, 10, 10}, {0, 0, 10, 10}},
    };
    for (const Case& c : cases) {
        const RECT r = tqm::ConstrainToSharedEdge(c.pos, c.side, W, c.current, c.proposed, minimum);
        EXPECT_TRUE(EqualRect(&r, &c.expected))
            << c.pos << ": " << r.left << "," << r.top << "," << r.right << "," << r.bottom;
    }
    // No room for both minimums: the edge stays.
    const RECT stuck = tqm::ConstrainToSharedEdge(2, DockSide::Manager, {100, 50, 250, 818}, {100, 50, 150, 817},
                                                  {100, 50, 700, 817}, minimum);
    EXPECT_EQ(150, stuck.right);
}

}  // namespace

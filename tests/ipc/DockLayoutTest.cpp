// Docking geometry: the layouts per position, the hit-test filter, the
// sizing commands and the shared-edge constraint.
#include "ipc/logic/DockLayout.h"

#include <gtest/gtest.h>

namespace {

using tqm::DockSide;
using tqm::WindowBox;

// A work area that starts away from 0, so that a lost offset shows.
const RECT W{100, 50, 1124, 818};

void expectBox(const WindowBox& expected, const WindowBox& box, int nDockPos)
{
    EXPECT_EQ(expected.x, box.x) << "position " << nDockPos;
    EXPECT_EQ(expected.y, box.y) << "position " << nDockPos;
    EXPECT_EQ(expected.cx, box.cx) << "position " << nDockPos;
    EXPECT_EQ(expected.cy, box.cy) << "position " << nDockPos;
}

TEST(DockLayout, ManagerStartsInAQuarterOfTheWorkArea)
{
    // Width 1024 + 1, height 768 - 1, divided with truncation.
    const WindowBox expected[] = {{100, 50, 256, 767}, {1124 - 256, 50, 256, 767}, {100, 50, 1025, 191},
                                  {100, 818 - 191, 1025, 191}};
    for (int pos = 2; pos <= 5; ++pos) {
        WindowBox box;
        ASSERT_TRUE(tqm::ManagerStartBox(pos, W, box));
        expectBox(expected[pos - 2], box, pos);
    }
    WindowBox box;
    EXPECT_FALSE(tqm::ManagerStartBox(1, W, box));
    EXPECT_FALSE(tqm::ManagerStartBox(0, W, box));
    EXPECT_FALSE(tqm::ManagerStartBox(6, W, box));
}

TEST(DockLayout, EachLayoutFollowsThePartnersRectangle)
{
    const RECT client{400, 50, 1124, 817};  // R of a client, M of a manager
    const RECT manager{100, 50, 400, 817};
    struct Case
    {
        int pos;
        bool (*layout)(int, const RECT&, const RECT&, WindowBox&);
        RECT partner;
        WindowBox expected;
    };
    const Case cases[] = {
        // The manager against a moved client.
        {2, tqm::ManagerAgainstClientBox, client, {100, 50, 300, 767}},
        {3, tqm::ManagerAgainstClientBox, {100, 50, 900, 817}, {900, 50, 224, 767}},
        {4, tqm::ManagerAgainstClientBox, {100, 300, 1124, 817}, {100, 50, 1025, 250}},
        {5, tqm::ManagerAgainstClientBox, {100, 50, 1124, 600}, {100, 600, 1025, 218}},
        // The manager after a change of the work area. At 3 the work area's
        // left edge is added to the manager's own (the suite's rule).
        {2, tqm::ManagerInWorkAreaBox, manager, {100, 50, 300, 767}},
        {3, tqm::ManagerInWorkAreaBox, {900, 50, 1124, 817}, {1000, 50, 124, 767}},
        {4, tqm::ManagerInWorkAreaBox, {100, 50, 1124, 250}, {100, 50, 1024, 199}},
        {5, tqm::ManagerInWorkAreaBox, {100, 600, 1124, 818}, {100, 600, 1024, 217}},
        // A client beside the manager: at 4 and 5 the width is negative on
        // purpose, left to the window's minimum tracking size.
        {2, tqm::ClientBesideManagerBox, manager, {400, 50, 724, 767}},
        {3, tqm::ClientBesideManagerBox, {900, 50, 1124, 817}, {100, 50, 800, 767}},
        {4, tqm::ClientBesideManagerBox, {100, 50, 1124, 250}, {100, 250, -1023, 567}},
        {5, tqm::ClientBesideManagerBox, {100, 600, 1124, 818}, {100, 50, -1023, 550}},
        // The free part beside the manager, for dialogs and laid-out clients.
        {2, tqm::FreeAreaBox, manager, {400, 50, 724, 767}},
        {3, tqm::FreeAreaBox, {900, 50, 1124, 817}, {100, 50, 800, 767}},
        {4, tqm::FreeAreaBox, {100, 50, 1124, 250}, {100, 250, 1024, 567}},
        {5, tqm::FreeAreaBox, {100, 600, 1124, 818}, {100, 50, 1024, 550}},
    };
    for (const Case& c : cases) {
        WindowBox box;
        ASSERT_TRUE(c.layout(c.pos, W, c.partner, box)) << c.pos;
        expectBox(c.expected, box, c.pos);
    }
    for (auto layout : {tqm::ManagerAgainstClientBox, tqm::ManagerInWorkAreaBox, tqm::ClientBesideManagerBox,
                        tqm::FreeAreaBox}) {
        WindowBox box;
        EXPECT_FALSE(layout(1, W, client, box));
        EXPECT_FALSE(layout(7, W, client, box));
    }
}

TEST(DockLayout, HitTestsKeepOnlyTheSharedEdge)
{
    const LRESULT sizing[] = {HTLEFT, HTRIGHT, HTTOP, HTTOPLEFT, HTTOPRIGHT, HTBOTTOM, HTBOTTOMLEFT, HTBOTTOMRIGHT};
    struct Case
    {
        int pos;
        DockSide side;
        LRESULT kept;
        LRESULT corners[2];
    };
    const Case cases[] = {
        {2, DockSide::Client, HTLEFT, {HTTOPLEFT, HTBOTTOMLEFT}},
        {2, DockSide::Manager, HTRIGHT, {HTTOPRIGHT, HTBOTTOMRIGHT}},
        {3, DockSide::Client, HTRIGHT, {HTTOPRIGHT, HTBOTTOMRIGHT}},
        {3, DockSide::Manager, HTLEFT, {HTTOPLEFT, HTBOTTOMLEFT}},
        {4, DockSide::Client, HTTOP, {HTTOPLEFT, HTTOPRIGHT}},
        {4, DockSide::Manager, HTBOTTOM, {HTBOTTOMLEFT, HTBOTTOMRIGHT}},
        {5, DockSide::Client, HTBOTTOM, {HTBOTTOMLEFT, HTBOTTOMRIGHT}},
        {5, DockSide::Manager, HTTOP, {HTTOPLEFT, HTTOPRIGHT}},
    };
    for (const Case& c : cases) {
        for (LRESULT nHit : sizing) {
            const bool bKept = nHit == c.kept || nHit == c.corners[0] || nHit == c.corners[1];
            EXPECT_EQ(bKept ? c.kept : HTNOWHERE, tqm::FilterDockHitTest(c.pos, c.side, nHit, false))
                << "position " << c.pos << ", code " << nHit;
        }
        for (LRESULT nHit : {LRESULT(HTCAPTION), LRESULT(HTCLIENT), LRESULT(HTSYSMENU), LRESULT(HTBORDER),
                             LRESULT(HTTRANSPARENT), LRESULT(HTCLOSE)})
            EXPECT_EQ(nHit, tqm::FilterDockHitTest(c.pos, c.side, nHit, false));
    }
    // Not docked (1, or a position outside 1..5): every code passes.
    for (int pos : {1, 0, 6, -1})
        for (LRESULT nHit : sizing)
            EXPECT_EQ(nHit, tqm::FilterDockHitTest(pos, DockSide::Client, nHit, false));
}

TEST(DockLayout, SizeGripKeepsTheCodeOnlyWhereTheGripFacesThePartner)
{
    for (int pos = 2; pos <= 5; ++pos) {
        const bool bManagerKeeps = pos == 2 || pos == 4;
        EXPECT_EQ(bManagerKeeps ? HTBOTTOMRIGHT : HTNOWHERE,
                  tqm::FilterDockHitTest(pos, DockSide::Manager, HTBOTTOMRIGHT, true));
        EXPECT_EQ(bManagerKeeps ? HTNOWHERE : HTBOTTOMRIGHT,
                  tqm::FilterDockHitTest(pos, DockSide::Client, HTBOTTOMRIGHT, true));
        EXPECT_EQ(bManagerKeeps ? HTCLIENT : HTNOWHERE, tqm::FilterDockHitTest(pos, DockSide::Manager, HTCLIENT, true));
    }
    const RECT window{10, 10, 110, 210};
    EXPECT_TRUE(tqm::InSizeGrip(window, POINT{109, 209}, 16, 16));
    EXPECT_TRUE(tqm::InSizeGrip(window, POINT{94, 194}, 16, 16));
    EXPECT_FALSE(tqm::InSizeGrip(window, POINT{93, 209}, 16, 16));
    EXPECT_FALSE(tqm::InSizeGrip(window, POINT{109, 193}, 16, 16));
    EXPECT_FALSE(tqm::InSizeGrip(window, POINT{110, 209}, 16, 16));
}

TEST(DockLayout, SizingCommandsGoToTheSharedEdge)
{
    // A left-docked manager's client: its left edge, and the corners beside it.
    const DockSide client = DockSide::Client;
    EXPECT_EQ(UINT(WMSZ_LEFT), tqm::DockSizingEdge(2, client, 0));  // keyboard: the edge is chosen for the user
    EXPECT_EQ(UINT(WMSZ_LEFT), tqm::DockSizingEdge(2, client, WMSZ_LEFT));
    EXPECT_EQ(UINT(WMSZ_LEFT), tqm::DockSizingEdge(2, client, WMSZ_TOPLEFT));
    EXPECT_EQ(UINT(WMSZ_LEFT), tqm::DockSizingEdge(2, client, WMSZ_BOTTOMLEFT));
    for (UINT nEdge : {WMSZ_RIGHT, WMSZ_TOP, WMSZ_BOTTOM, WMSZ_TOPRIGHT, WMSZ_BOTTOMRIGHT})
        EXPECT_EQ(0u, tqm::DockSizingEdge(2, client, nEdge)) << nEdge;
    EXPECT_EQ(UINT(WMSZ_TOP), tqm::DockSizingEdge(5, DockSide::Manager, 0));
    EXPECT_EQ(UINT(WMSZ_BOTTOM), tqm::DockSizingEdge(4, DockSide::Manager, WMSZ_BOTTOMRIGHT));
    EXPECT_EQ(UINT(WMSZ_TOP), tqm::DockSizingEdge(1, client, WMSZ_TOP));
    EXPECT_EQ(0u, tqm::SharedSizingEdge(1, client));
}

TEST(DockLayout, SizingMovesOnlyTheSharedEdgeWithinTheMinimums)
{
    const SIZE minimum{100, 40};
    const RECT manager{100, 50, 400, 817};
    const RECT client{400, 50, 1124, 817};
    struct Case
    {
        int pos;
        DockSide side;
        RECT current;
        RECT proposed;
        RECT expected;
    };
    const Case cases[] = {
        // The manager's right edge follows; its other edges do not.
        {2, DockSide::Manager, manager, {90, 60, 500, 900}, {100, 50, 500, 817}},
        {2, DockSide::Manager, manager, {100, 50, 1100, 817}, {100, 50, 1024, 817}},  // the client keeps 100
        {2, DockSide::Manager, manager, {100, 50, 120, 817}, {100, 50, 200, 817}},    // the manager keeps 100
        // The client's left edge follows.
        {2, DockSide::Client, client, {300, 0, 1200, 817}, {300, 50, 1124, 817}},
        {2, DockSide::Client, client, {120, 50, 1124, 817}, {200, 50, 1124, 817}},
        {3, DockSide::Client, {100, 50, 900, 817}, {100, 50, 950, 817}, {100, 50, 950, 817}},
        {4, DockSide::Manager, {100, 50, 1125, 250}, {100, 50, 1125, 300}, {100, 50, 1125, 300}},
        {4, DockSide::Client, {100, 250, 1124, 817}, {100, 60, 1124, 817}, {100, 90, 1124, 817}},
        {5, DockSide::Manager, {100, 600, 1125, 818}, {100, 700, 1125, 818}, {100, 700, 1125, 818}},
        // Not docked: the proposal stands.
        {1, DockSide::Client, client, {0, 0, 10, 10}, {0, 0, 10, 10}},
    };
    for (const Case& c : cases) {
        const RECT r = tqm::ConstrainToSharedEdge(c.pos, c.side, W, c.current, c.proposed, minimum);
        EXPECT_TRUE(EqualRect(&r, &c.expected)) << "position " << c.pos << ": " << r.left << "," << r.top << ","
                                                 << r.right << "," << r.bottom;
    }
    // A window below its minimum may still grow; one in a work area with no
    // room for both minimums keeps its edge.
    const RECT narrow{100, 50, 150, 817};
    const RECT r = tqm::ConstrainToSharedEdge(2, DockSide::Manager, W, narrow, {100, 50, 700, 817}, minimum);
    EXPECT_EQ(700, r.right);
    const RECT stuck = tqm::ConstrainToSharedEdge(2, DockSide::Manager, {100, 50, 250, 818}, narrow,
                                                  {100, 50, 700, 817}, minimum);
    EXPECT_EQ(150, stuck.right);
}

}  // namespace

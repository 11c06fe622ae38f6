// Desktop docking geometry: where the project manager and the other main
// windows go for each dock position, which sizing codes a docked window
// keeps, and how a docked window's sizing is held to the shared edge.
//
// Rectangles are (left, top, right, bottom) in screen coordinates; W is the
// desktop work area. The layouts keep the suite's arithmetic exactly, odd
// +1 and -1 terms included: programs of the suite that dock beside this
// library's windows compute the same places.
#pragma once

#include <windows.h>

namespace tqm {

enum DockPosition
{
    kDockNone = 1,    // not docked
    kDockLeft = 2,    // manager at the left edge, clients to its right
    kDockRight = 3,
    kDockTop = 4,
    kDockBottom = 5
};

enum class DockSide
{
    Manager,
    Client
};

// Position and size for MoveWindow or SetWindowPos.
struct WindowBox
{
    int x, y, cx, cy;
};

// True for the positions at which windows are docked (2 to 5).
bool IsDocked(int nDockPos);

// The manager's place at nDockPos when it starts without a saved placement:
// a quarter of W at its edge. False for any other position.
bool ManagerStartBox(int nDockPos, const RECT& W, WindowBox& box);
// The manager's place against a client that was moved to R. False when the
// manager is not to move (position 1 or unknown).
bool ManagerAgainstClientBox(int nDockPos, const RECT& W, const RECT& R, WindowBox& box);
// The manager's place after the work area changed, from its rectangle M.
bool ManagerInWorkAreaBox(int nDockPos, const RECT& W, const RECT& M, WindowBox& box);
// A client main window's place beside the manager's rectangle M. At
// positions 4 and 5 the width is negative on purpose (W.left - W.right + 1):
// the window's minimum tracking size then decides it.
bool ClientBesideManagerBox(int nDockPos, const RECT& W, const RECT& M, WindowBox& box);
// The part of W beside the manager's rectangle M, for dialog boxes and for
// the clients as the manager lays them out.
bool FreeAreaBox(int nDockPos, const RECT& W, const RECT& M, WindowBox& box);

// True when pt lies in the size-grip square (cx wide, cy high) at the bottom
// right of the window rectangle.
bool InSizeGrip(const RECT& window, POINT pt, int cx, int cy);
// The hit-test code a docked window answers for nHit, the default code:
// only the sizing edge facing the partner (and the corners beside it, as
// that edge) is kept.
LRESULT FilterDockHitTest(int nDockPos, DockSide side, LRESULT nHit, bool bInSizeGrip);

// The WMSZ_ edge of the window that faces its partner; 0 when not docked.
UINT SharedSizingEdge(int nDockPos, DockSide side);
// What becomes of a sizing command (SC_SIZE) for the edge nEdge (a WMSZ_
// value; 0 from the keyboard, before an edge is chosen): the edge to size
// (nEdge itself when it may go ahead as it is), or 0 when it is refused.
UINT DockSizingEdge(int nDockPos, DockSide side, UINT nEdge);

// The rectangle a docked window may take when it is sized from current to
// proposed: only the edge facing the partner follows, and it stays where
// both this window and the partner keep at least minExtent inside W.
RECT ConstrainToSharedEdge(int nDockPos, DockSide side, const RECT& W, const RECT& current, const RECT& proposed,
                           SIZE minExtent);

}  // namespace tqm

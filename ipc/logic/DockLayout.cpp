// Desktop docking geometry.
#include "ipc/logic/DockLayout.h"

#include <algorithm>

namespace tqm {
namespace {

enum class Edge
{
    Left,
    Top,
    Right,
    Bottom
};

// The edge of side's window that faces the partner (nDockPos is docked).
Edge sharedEdge(int nDockPos, DockSide side)
{
    const bool bManager = side == DockSide::Manager;
    switch (nDockPos) {
    case kDockLeft: return bManager ? Edge::Right : Edge::Left;
    case kDockRight: return bManager ? Edge::Left : Edge::Right;
    case kDockTop: return bManager ? Edge::Bottom : Edge::Top;
    default: return bManager ? Edge::Top : Edge::Bottom;
    }
}

LRESULT edgeHitCode(Edge edge)
{
    switch (edge) {
    case Edge::Left: return HTLEFT;
    case Edge::Top: return HTTOP;
    case Edge::Right: return HTRIGHT;
    default: return HTBOTTOM;
    }
}

// True for the two corners at the ends of edge.
bool isCornerOf(LRESULT nHit, Edge edge)
{
    switch (edge) {
    case Edge::Left: return nHit == HTTOPLEFT || nHit == HTBOTTOMLEFT;
    case Edge::Right: return nHit == HTTOPRIGHT || nHit == HTBOTTOMRIGHT;
    case Edge::Top: return nHit == HTTOPLEFT || nHit == HTTOPRIGHT;
    default: return nHit == HTBOTTOMLEFT || nHit == HTBOTTOMRIGHT;
    }
}

// Sizing codes and WMSZ_ edges run in the same order.
UINT wmszFromHit(LRESULT nHit) { return static_cast<UINT>(nHit - HTLEFT + WMSZ_LEFT); }
LRESULT hitFromWmsz(UINT nEdge) { return static_cast<LRESULT>(nEdge) - WMSZ_LEFT + HTLEFT; }

// The full work area as the suite's layouts start from it.
WindowBox wholeWorkArea(const RECT& W, int nWidthAdjust, int nHeightAdjust)
{
    return WindowBox{W.left, W.top, W.right - W.left + nWidthAdjust, W.bottom - W.top + nHeightAdjust};
}

// Narrows box, which starts over the work area, to the side of the manager's
// rectangle M that faces the clients.
bool besideManager(int nDockPos, const RECT& W, const RECT& M, WindowBox& box)
{
    switch (nDockPos) {
    case kDockLeft: box.x = M.right; box.cx = W.right - M.right; return true;
    case kDockRight: box.cx = M.left - W.left; return true;
    case kDockTop: box.y = M.bottom; box.cy = W.bottom - M.bottom - 1; return true;
    case kDockBottom: box.cy = M.top - W.top; return true;
    default: return false;
    }
}

// value held within low..high; when the window leaves no room, fallback.
LONG clampOr(LONG value, LONG low, LONG high, LONG fallback)
{
    return low <= high ? std::clamp(value, low, high) : fallback;
}

}  // namespace

bool IsDocked(int nDockPos) { return nDockPos >= kDockLeft && nDockPos <= kDockBottom; }

bool ManagerStartBox(int nDockPos, const RECT& W, WindowBox& box)
{
    box = wholeWorkArea(W, +1, -1);
    switch (nDockPos) {
    case kDockLeft: box.cx /= 4; return true;
    case kDockRight: box.cx /= 4; box.x = W.right - box.cx; return true;
    case kDockTop: box.cy /= 4; return true;
    case kDockBottom: box.cy /= 4; box.y = W.bottom - box.cy; return true;
    default: return false;
    }
}

bool ManagerAgainstClientBox(int nDockPos, const RECT& W, const RECT& R, WindowBox& box)
{
    box = wholeWorkArea(W, +1, -1);
    switch (nDockPos) {
    case kDockLeft: box.cx = R.left - W.left; return true;
    case kDockRight: box.x = R.right; box.cx = W.right - R.right; return true;
    case kDockTop: box.cy = R.top - W.top; return true;
    case kDockBottom: box.y = R.bottom; box.cy = W.bottom - R.bottom; return true;
    default: return false;
    }
}

bool ManagerInWorkAreaBox(int nDockPos, const RECT& W, const RECT& M, WindowBox& box)
{
    box = wholeWorkArea(W, 0, -1);
    switch (nDockPos) {
    case kDockLeft: box.cx = M.right - M.left; return true;
    // W.left + M.left shifts the manager when the work area does not start
    // at 0. Deliberate: the suite's programs place themselves by this rule.
    case kDockRight: box.x = W.left + M.left; box.cx = W.right - box.x; return true;
    case kDockTop: box.cy = M.bottom - W.top - 1; return true;
    case kDockBottom: box.y = M.top; box.cy = W.bottom - M.top - 1; return true;
    default: return false;
    }
}

bool ClientBesideManagerBox(int nDockPos, const RECT& W, const RECT& M, WindowBox& box)
{
    // The negative starting width is deliberate (see the header).
    box = WindowBox{W.left, W.top, W.left - W.right + 1, W.bottom - W.top - 1};
    return besideManager(nDockPos, W, M, box);
}

bool FreeAreaBox(int nDockPos, const RECT& W, const RECT& M, WindowBox& box)
{
    box = wholeWorkArea(W, 0, -1);
    return besideManager(nDockPos, W, M, box);
}

bool InSizeGrip(const RECT& window, POINT pt, int cx, int cy)
{
    return pt.x >= window.left && pt.x < window.right && pt.y >= window.top && pt.y < window.bottom &&
           pt.x >= window.right - cx && pt.y >= window.bottom - cy;
}

LRESULT FilterDockHitTest(int nDockPos, DockSide side, LRESULT nHit, bool bInSizeGrip)
{
    // An unknown position docks nothing, like position 1.
    if (!IsDocked(nDockPos))
        return nHit;
    if (bInSizeGrip) {
        const bool bKeeps = side == DockSide::Manager ? (nDockPos == kDockLeft || nDockPos == kDockTop)
                                                      : (nDockPos == kDockRight || nDockPos == kDockBottom);
        return bKeeps ? nHit : HTNOWHERE;
    }
    if (nHit < HTLEFT || nHit > HTBOTTOMRIGHT)
        return nHit;
    const Edge edge = sharedEdge(nDockPos, side);
    const LRESULT nKept = edgeHitCode(edge);
    return nHit == nKept || isCornerOf(nHit, edge) ? nKept : HTNOWHERE;
}

UINT SharedSizingEdge(int nDockPos, DockSide side)
{
    return IsDocked(nDockPos) ? wmszFromHit(edgeHitCode(sharedEdge(nDockPos, side))) : 0;
}

UINT DockSizingEdge(int nDockPos, DockSide side, UINT nEdge)
{
    if (!IsDocked(nDockPos))
        return nEdge;
    if (nEdge == 0)
        return SharedSizingEdge(nDockPos, side);
    // The same rule as the hit test: the shared edge and its corners size
    // that edge, every other edge is refused.
    const LRESULT nHit = FilterDockHitTest(nDockPos, side, hitFromWmsz(nEdge), false);
    if (nHit == HTNOWHERE)
        return 0;
    return nHit >= HTLEFT && nHit <= HTBOTTOMRIGHT ? wmszFromHit(nHit) : nEdge;
}

RECT ConstrainToSharedEdge(int nDockPos, DockSide side, const RECT& W, const RECT& current, const RECT& proposed,
                           SIZE minExtent)
{
    if (!IsDocked(nDockPos))
        return proposed;
    RECT result = current;
    const LONG cx = minExtent.cx, cy = minExtent.cy;
    // The edge follows the proposal, leaving this window its minimum on one
    // side and the partner its minimum before the work area's edge.
    switch (sharedEdge(nDockPos, side)) {
    case Edge::Left:
        result.left = clampOr(proposed.left, W.left + cx, current.right - cx, current.left);
        break;
    case Edge::Right:
        result.right = clampOr(proposed.right, current.left + cx, W.right - cx, current.right);
        break;
    case Edge::Top:
        result.top = clampOr(proposed.top, W.top + cy, current.bottom - cy, current.top);
        break;
    case Edge::Bottom:
        result.bottom = clampOr(proposed.bottom, current.top + cy, W.bottom - cy, current.bottom);
        break;
    }
    return result;
}

}  // namespace tqm

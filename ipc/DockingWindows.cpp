// Shared handling of docked windows.
#include "ipc/DockingWindows.h"

#include "ipc/DesktopDocking.h"

namespace tqm {
namespace {

// True while the user moves or sizes hWnd (the system's modal move/size loop
// runs for it), as opposed to a program moving it.
bool inMoveSizeLoop(HWND hWnd)
{
    GUITHREADINFO info = {};
    info.cbSize = sizeof(info);
    return ::GetGUIThreadInfo(::GetWindowThreadProcessId(hWnd, nullptr), &info) &&
           (info.flags & GUI_INMOVESIZE) && info.hwndMoveSize == hWnd;
}

}  // namespace

UINT RegisterDockingMessage() { return ::RegisterWindowMessageA("Tarn52.DesktopDocking"); }

HWND FindProjectManager() { return ::FindWindowA(TARN_PROJECT_MANAGER_CLASS, nullptr); }

RECT DesktopWorkArea()
{
    RECT rect = {};
    ::SystemParametersInfoA(SPI_GETWORKAREA, 0, &rect, 0);
    return rect;
}

RECT WindowRect(HWND hWnd)
{
    RECT rect = {};
    ::GetWindowRect(hWnd, &rect);
    return rect;
}

bool IsMinimizedOrMaximized(HWND hWnd) { return ::IsIconic(hWnd) || ::IsZoomed(hWnd); }

void MoveWindowTo(HWND hWnd, const WindowBox& box) { ::MoveWindow(hWnd, box.x, box.y, box.cx, box.cy, TRUE); }

void HoldToSharedEdge(HWND hWnd, int nDockPos, DockSide side, WINDOWPOS* pPos)
{
    if (!pPos || (pPos->flags & (SWP_NOMOVE | SWP_NOSIZE)) == (SWP_NOMOVE | SWP_NOSIZE) || !inMoveSizeLoop(hWnd))
        return;
    // The move loop sizes nothing (SWP_NOSIZE): a move, which stays put.
    if (pPos->flags & SWP_NOSIZE) {
        pPos->flags |= SWP_NOMOVE;
        return;
    }
    const RECT current = WindowRect(hWnd);
    RECT proposed = current;
    if (!(pPos->flags & SWP_NOMOVE)) {
        proposed.left = pPos->x;
        proposed.top = pPos->y;
    }
    proposed.right = proposed.left + pPos->cx;
    proposed.bottom = proposed.top + pPos->cy;
    const SIZE minimum{::GetSystemMetrics(SM_CXMINTRACK), ::GetSystemMetrics(SM_CYMINTRACK)};
    const RECT held = ConstrainToSharedEdge(nDockPos, side, DesktopWorkArea(), current, proposed, minimum);
    pPos->x = held.left;
    pPos->y = held.top;
    pPos->cx = held.right - held.left;
    pPos->cy = held.bottom - held.top;
    pPos->flags &= ~static_cast<UINT>(SWP_NOMOVE);
}

void HoldDragRect(HWND hWnd, RECT* pRect)
{
    if (pRect && inMoveSizeLoop(hWnd))
        *pRect = WindowRect(hWnd);
}

LRESULT DockedHitTest(HWND hWnd, int nDockPos, DockSide side, POINT pt, LRESULT nHit)
{
    const bool bInGrip =
        InSizeGrip(WindowRect(hWnd), pt, ::GetSystemMetrics(SM_CXHSCROLL), ::GetSystemMetrics(SM_CYVSCROLL));
    return FilterDockHitTest(nDockPos, side, nHit, bInGrip);
}

BOOL DockedSysCommand(HWND hWnd, int nDockPos, DockSide side, UINT nID, LPARAM lParam)
{
    switch (nID & 0xFFF0) {
    case SC_MOVE:
        return TRUE;
    case SC_SIZE: {
        // The low four bits name the edge being sized (a WMSZ_ value), 0 when
        // the user has yet to choose one with the keyboard.
        const UINT nEdge = nID & 0x000F;
        const UINT nAllowed = DockSizingEdge(nDockPos, side, nEdge);
        if (nAllowed == nEdge)
            return FALSE;
        // Sizing starts again at the shared edge, once this command is over.
        if (nAllowed != 0)
            ::PostMessageA(hWnd, WM_SYSCOMMAND, SC_SIZE | nAllowed, lParam);
        return TRUE;
    }
    default:
        return FALSE;
    }
}

}  // namespace tqm

// What the docking manager and client have in common: the registered
// message, the work area, and the handling of a docked window's moving,
// sizing and hit tests.
#pragma once

#include <windows.h>

#include "framework/Gdi.h"
#include "ipc/logic/DockLayout.h"

namespace tqm {

// The codes (wParam) of the docking message.
enum DockingCode
{
    kDockSubscribe = 1,        // client to manager
    kDockUnsubscribe = 2,      // client to manager
    kDockClientMoved = 3,      // client to manager
    kDockPositionChanged = 4,  // manager to client
    kDockQueryPosition = 5     // anyone to manager
};

// The entry of each side's placement in its program's profile.
const char kMainWindowPlacement[] = "MainWindow";

// "Tarn52.DesktopDocking", registered on first use; 0 when it cannot be.
UINT RegisterDockingMessage();
// The project manager's main window, or NULL.
HWND FindProjectManager();
// The desktop work area.
RECT DesktopWorkArea();
// The window's rectangle; empty when it is not a window.
RECT WindowRect(HWND hWnd);
bool IsMinimizedOrMaximized(HWND hWnd);
// Moves (and sizes) the window to box, repainting.
void MoveWindowTo(HWND hWnd, const WindowBox& box);

// Handlers for a window docked at nDockPos on side; the callers have checked
// that it is docked, and neither minimised nor maximised.
// During the user's own move or size of the window: a move is refused (the
// window stays in its place) and a size keeps to the shared edge.
void HoldToSharedEdge(HWND hWnd, int nDockPos, DockSide side, WINDOWPOS* pPos);
// The drag rectangle of a move stays where the window is.
void HoldDragRect(HWND hWnd, RECT* pRect);
// The hit code filtered for the docked window.
LRESULT DockedHitTest(HWND hWnd, int nDockPos, DockSide side, POINT pt, LRESULT nHit);
// The system menu's Size sizes the shared edge only, and Move is refused;
// TRUE when the command was handled here.
BOOL DockedSysCommand(HWND hWnd, int nDockPos, DockSide side, UINT nID, LPARAM lParam);

// Passes the main window's messages that both sides handle alike to the
// docking object's handlers; see HandleWindowMessage. Before the object has
// its window (hWnd NULL) the program handles everything itself.
template <typename Docking>
BOOL RouteWindowMessage(Docking& docking, HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (!hWnd)
        return FALSE;
    switch (message) {
    case WM_WINDOWPOSCHANGING:
        docking.OnWindowPosChanging(reinterpret_cast<WINDOWPOS*>(lParam));
        return FALSE;
    case WM_WINDOWPOSCHANGED:
        docking.OnWindowPosChanged(reinterpret_cast<WINDOWPOS*>(lParam));
        return FALSE;
    case WM_MOVING:
        docking.OnMoving(static_cast<UINT>(wParam), reinterpret_cast<RECT*>(lParam));
        *pResult = TRUE;
        return TRUE;
    case WM_NCHITTEST: {
        // The default hit code is the system's for the main window's frame.
        const LRESULT nHit = ::DefWindowProcA(hWnd, message, wParam, lParam);
        *pResult = docking.OnNcHitTest(CPoint(lParam), static_cast<LONG>(nHit));
        return TRUE;
    }
    case WM_SYSCOMMAND:
        *pResult = 0;
        return docking.OnSysCommand(static_cast<UINT>(wParam), static_cast<LONG>(lParam));
    default:
        return FALSE;
    }
}

// The window handle a docking message carries in its 32-bit lParam. Window
// handles fit in 32 bits on 64-bit Windows too, sign-extended.
inline HWND WindowFromDockingParam(LONG lParam) { return reinterpret_cast<HWND>(static_cast<LONG_PTR>(lParam)); }
inline LPARAM DockingParamFromWindow(HWND hWnd) { return reinterpret_cast<LPARAM>(hWnd); }

}  // namespace tqm

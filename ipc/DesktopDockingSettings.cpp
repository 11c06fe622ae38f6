// The docking settings, and dialog boxes fitted beside the docked manager.
#include "ipc/DesktopDocking.h"

#include "ipc/DockingWindows.h"
#include "paths/InstallDirs.h"

#include <algorithm>

void WINAPI DesktopDocking_GetSettings(int* pDockPos, BOOL* pDockDialogs)
{
    const CString options = TQMGetVMXOptionsFilePath();
    const int nDockPos = static_cast<int>(::GetPrivateProfileIntA("VMX", "DesktopDockPos", 2, options));
    const BOOL bDockDialogs =
        nDockPos == tqm::kDockNone ? FALSE : ::GetPrivateProfileIntA("VMX", "DockDialogBoxes", 1, options);
    if (pDockPos)
        *pDockPos = nDockPos;
    if (pDockDialogs)
        *pDockDialogs = bDockDialogs;
}

BOOL WINAPI DesktopDocking_SizeWindowToManager(HWND hWnd)
{
    HWND hManager = tqm::FindProjectManager();
    if (!::IsWindow(hWnd) || !hManager)
        return FALSE;
    const int nDockPos = static_cast<int>(::SendMessageA(hManager, tqm::RegisterDockingMessage(),
                                                         tqm::kDockQueryPosition, tqm::DockingParamFromWindow(hWnd)));
    tqm::WindowBox box;
    if (!tqm::FreeAreaBox(nDockPos, tqm::DesktopWorkArea(), tqm::WindowRect(hManager), box))
        return FALSE;

    MINMAXINFO info = {};
    info.ptMaxSize = {::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
    info.ptMinTrackSize = {::GetSystemMetrics(SM_CXMINTRACK), ::GetSystemMetrics(SM_CYMINTRACK)};
    info.ptMaxTrackSize = {::GetSystemMetrics(SM_CXMAXTRACK), ::GetSystemMetrics(SM_CYMAXTRACK)};
    if (::SendMessageA(hWnd, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info)) != 0)
        return FALSE;
    // Too narrow or too low for the dialog: it reaches back over the manager
    // by the difference, and its minimum size does the rest.
    if (box.cx < info.ptMinTrackSize.x)
        box.x = std::max(box.x - static_cast<int>(info.ptMinTrackSize.x - box.cx), 0);
    if (box.cy < info.ptMinTrackSize.y)
        box.y = std::max(box.y - static_cast<int>(info.ptMinTrackSize.y - box.cy), 0);
    tqm::MoveWindowTo(hWnd, box);
    return TRUE;
}

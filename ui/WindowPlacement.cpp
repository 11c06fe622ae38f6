// Window placement over the application profile.
#include "ui/WindowPlacement.h"

#include "framework/WinApp.h"
#include "ui/logic/PlacementText.h"

#include <stdio.h>

namespace {

const char kSection[] = "WindowPos";
const int kMinimumExtent = 50;  // a restored window is never smaller than this

bool usable(CWnd* pWnd, const char* pszKey) { return pWnd && ::IsWindow(pWnd->m_hWnd) && pszKey && AfxGetApp(); }

RECT virtualScreen()
{
    const int x = ::GetSystemMetrics(SM_XVIRTUALSCREEN);
    const int y = ::GetSystemMetrics(SM_YVIRTUALSCREEN);
    return RECT{x, y, x + ::GetSystemMetrics(SM_CXVIRTUALSCREEN), y + ::GetSystemMetrics(SM_CYVIRTUALSCREEN)};
}

// The entry's numbers; how many were read (0 for a missing or empty entry).
int readEntry(const char* pszKey, int* values, int nMax)
{
    const CString text = AfxGetApp()->GetProfileString(kSection, pszKey);
    return text.IsEmpty() ? 0 : tqm::ScanCommaIntegers(text, values, nMax);
}

}  // namespace

BOOL WINAPI SaveWindowPlacement(CWnd* pWnd, const char* pszKey)
{
    if (!usable(pWnd, pszKey))
        return FALSE;
    if (pWnd->IsIconic())
        return TRUE;
    const BOOL bMaximized = pWnd->IsZoomed();
    RECT rect;
    if (bMaximized) {
        WINDOWPLACEMENT placement = {};
        pWnd->GetWindowPlacement(&placement);
        rect = placement.rcNormalPosition;
    } else {
        pWnd->GetWindowRect(&rect);
    }
    char text[80];
    snprintf(text, sizeof(text), "%d,%d,%d,%d,%d", bMaximized ? 1 : 0, static_cast<int>(rect.left),
             static_cast<int>(rect.top), static_cast<int>(rect.right), static_cast<int>(rect.bottom));
    return AfxGetApp()->WriteProfileString(kSection, pszKey, text);
}

BOOL WINAPI RestoreWindowPlacement(CWnd* pWnd, const char* pszKey)
{
    if (!usable(pWnd, pszKey))
        return FALSE;
    int v[5];
    if (readEntry(pszKey, v, 5) < 5)
        return FALSE;
    const RECT saved{v[1], v[2], v[3], v[4]};
    const RECT fitted = tqm::FitOntoVirtualScreen(saved, virtualScreen());
    // The size comes from the saved rectangle, not from the fitted one.
    const int nWidth = tqm::SavedExtent(saved.left, saved.right, kMinimumExtent);
    const int nHeight = tqm::SavedExtent(saved.top, saved.bottom, kMinimumExtent);

    // Moved as the window is, without restoring it first: a program started
    // minimised or maximised stays so, and nothing activates it.
    pWnd->MoveWindow(fitted.left, fitted.top, nWidth, nHeight, TRUE);
    if (v[0])
        pWnd->ShowWindow(SW_SHOWMAXIMIZED);
    return TRUE;
}

BOOL WINAPI SaveWindowPos(CWnd* pWnd, const char* pszKey)
{
    if (!usable(pWnd, pszKey))
        return FALSE;
    RECT rect;
    pWnd->GetWindowRect(&rect);
    char text[40];
    snprintf(text, sizeof(text), "%d,%d", static_cast<int>(rect.left), static_cast<int>(rect.top));
    return AfxGetApp()->WriteProfileString(kSection, pszKey, text);
}

BOOL WINAPI RestoreWindowPos(CWnd* pWnd, const char* pszKey)
{
    if (!usable(pWnd, pszKey))
        return FALSE;
    int v[2];
    if (readEntry(pszKey, v, 2) != 2)
        return FALSE;
    RECT rect;
    pWnd->GetWindowRect(&rect);
    const RECT moved = tqm::RectAt(v[0], v[1], rect.right - rect.left, rect.bottom - rect.top);
    const RECT fitted = tqm::FitOntoVirtualScreen(moved, virtualScreen());
    return pWnd->SetWindowPos(nullptr, fitted.left, fitted.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_SHOWWINDOW);
}

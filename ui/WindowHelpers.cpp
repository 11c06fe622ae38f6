// Window helpers by class name.
#include "ui/WindowHelpers.h"

#include "diag/TarnAssert.h"
#include "ipc/DesktopDocking.h"

namespace {

// The class-name buffer holds 20 characters with the NUL. The limit is
// deliberate: the suite's programs find windows under these short names.
const int kClassNameBuffer = 20;

struct ClassWalk
{
    const char* className;  // NULL: every window
    BOOL(WINAPI* act)(HWND);
};

BOOL CALLBACK actOnMatchingChild(HWND hWnd, LPARAM lParam)
{
    const auto* walk = reinterpret_cast<const ClassWalk*>(lParam);
    if (!walk->className || IsWindowOfClass(hWnd, walk->className))
        walk->act(hWnd);
    return TRUE;  // every descendant, never stopping early
}

BOOL enumChildrenOfClass(HWND hParent, const char* className, BOOL(WINAPI* act)(HWND))
{
    ClassWalk walk{className, act};
    return ::EnumChildWindows(hParent, actOnMatchingChild, reinterpret_cast<LPARAM>(&walk));
}

// x of a window w wide centred on the span low..high, kept on a screen of
// the given extent.
int centredOnScreen(LONG low, LONG high, int w, int screen)
{
    int x = (low + high) / 2 - w / 2;
    if (x < 0)
        x = 0;
    else if (x + w > screen)
        x = screen - w;  // negative for a window wider than the screen, as intended
    return x;
}

}  // namespace

BOOL WINAPI IsWindowOfClass(HWND hWnd, const char* className)
{
    if (!::IsWindow(hWnd) || !className)
        return FALSE;
    char name[kClassNameBuffer] = "";
    ::GetClassNameA(hWnd, name, kClassNameBuffer);
    return ::lstrcmpiA(name, className) == 0 ? TRUE : FALSE;
}

BOOL WINAPI DestroyWindowsOfClass(HWND hParent, const char* className)
{
    return enumChildrenOfClass(hParent, className, ::DestroyWindow);
}

BOOL WINAPI UpdateChildWindows(HWND hParent, const char* className)
{
    TARN_ASSERT(className != NULL);
    if (!className)
        return FALSE;
    return enumChildrenOfClass(hParent, className, ::UpdateWindow);
}

HWND WINAPI GetWindowGrandParent(HWND hWnd)
{
    for (HWND hParent = ::GetParent(hWnd); hParent; hParent = ::GetParent(hWnd))
        hWnd = hParent;
    return hWnd;
}

HWND WINAPI IsClassNameStackAtPt(POINT pt, const char* className)
{
    for (HWND hWnd = ::WindowFromPoint(pt); hWnd; hWnd = ::GetWindow(hWnd, GW_HWNDNEXT)) {
        RECT rect;
        if (IsWindowOfClass(hWnd, className) && ::GetWindowRect(hWnd, &rect) && ::PtInRect(&rect, pt))
            return hWnd;
    }
    return nullptr;
}

BOOL WINAPI CenterWnd(HWND hWnd, HWND hRef)
{
    RECT rect = {};
    RECT ref = {};
    ::GetWindowRect(hWnd, &rect);
    ::GetWindowRect(hRef, &ref);
    const int x = centredOnScreen(ref.left, ref.right, rect.right - rect.left, ::GetSystemMetrics(SM_CXSCREEN));
    const int y = centredOnScreen(ref.top, ref.bottom, rect.bottom - rect.top, ::GetSystemMetrics(SM_CYSCREEN));
    return ::SetWindowPos(hWnd, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

BOOL WINAPI IsTopMost(HWND hWnd)
{
    return (::GetWindowLongA(hWnd, GWL_EXSTYLE) & WS_EX_TOPMOST) ? TRUE : FALSE;
}

void WINAPI TQMCenterWindow(HWND hWnd)
{
    int nDockPos = 0;
    BOOL bDockDialogs = FALSE;
    DesktopDocking_GetSettings(&nDockPos, &bDockDialogs);
    if (nDockPos != 1)
        CenterWnd(hWnd, ::GetDesktopWindow());
}

// DockPositionName, PaintTitle, DockedWindowProc, CreateDockedWindow - plain
// windows that show desktop docking, for tqm (its dock and pm commands, the
// demo) and the docking benchmark.
#pragma once

#include <windows.h>

namespace tqmtool {

// What a dock position means, in words: "manager at the left edge".
inline const char* DockPositionName(int nDockPos)
{
    switch (nDockPos) {
    case 1: return "not docked";
    case 2: return "manager at the left edge";
    case 3: return "manager at the right edge";
    case 4: return "manager at the top edge";
    case 5: return "manager at the bottom edge";
    default: return "unknown position";
    }
}

// Answers WM_PAINT with the window's title in the middle, so that a person
// or a picture can tell the windows apart where no frames are drawn.
inline void PaintTitle(HWND hWnd)
{
    PAINTSTRUCT paint;
    HDC hdc = BeginPaint(hWnd, &paint);
    char title[128] = "";
    GetWindowTextA(hWnd, title, sizeof(title));
    RECT client;
    GetClientRect(hWnd, &client);
    DrawTextA(hdc, title, -1, &client, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    EndPaint(hWnd, &paint);
}

// The procedure of a window whose user data is its docking object (a
// CDesktopDockingManager or a CDesktopDockingClient; none while NULL): the
// object sees every message first, as a program's main window forwards them.
template <typename Docking>
LRESULT CALLBACK DockedWindowProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* pDocking = reinterpret_cast<Docking*>(GetWindowLongPtrA(hWnd, GWLP_USERDATA));
    LRESULT result = 0;
    if (pDocking && pDocking->HandleWindowMessage(message, wParam, lParam, &result))
        return result;
    if (message == WM_PAINT) {
        PaintTitle(hWnd);
        return 0;
    }
    return DefWindowProcA(hWnd, message, wParam, lParam);
}

// A main window of className (registered with proc on first use) at rect,
// shown, with pUserData as its user data; NULL when it cannot be made.
inline HWND CreateDockedWindow(const char* className, WNDPROC proc, const char* title, const RECT& rect,
                               void* pUserData)
{
    WNDCLASSA wc = {};
    wc.lpfnWndProc = proc;
    wc.hInstance = GetModuleHandleA(nullptr);
    wc.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    wc.lpszClassName = className;
    RegisterClassA(&wc);
    HWND hWnd = CreateWindowA(className, title, WS_OVERLAPPEDWINDOW, rect.left, rect.top, rect.right - rect.left,
                              rect.bottom - rect.top, nullptr, nullptr, wc.hInstance, nullptr);
    if (!hWnd)
        return nullptr;
    SetWindowLongPtrA(hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(pUserData));
    ShowWindow(hWnd, SW_SHOWNORMAL);
    return hWnd;
}

// The same for a window whose messages go to pDocking first.
template <typename Docking>
HWND CreateDockedWindow(const char* className, const char* title, const RECT& rect, Docking* pDocking)
{
    return CreateDockedWindow(className, DockedWindowProc<Docking>, title, rect, pDocking);
}

}  // namespace tqmtool

// CDesktopDockingManager, CDesktopDockingClient, DesktopDocking_GetSettings,
// DesktopDocking_SizeWindowToManager - the suite's main windows docked at an
// edge of the desktop work area.
//
// The project manager's main window (class "Tarn52:VmxWClass",
// TARN_PROJECT_MANAGER_WINDOW_CLASS) owns one CDesktopDockingManager and
// docks at an edge of the work area; the main window of every other program
// owns one CDesktopDockingClient and fills the rest beside it. The two talk
// through the registered message "Tarn52.DesktopDocking" (wParam a code,
// lParam a window), sent between the processes:
//
//   1 client -> manager  subscribe; answers the dock position
//   2 client -> manager  unsubscribe; answers 1
//   3 client -> manager  the client was moved or sized: the manager docks
//                        against it, and the other clients follow; answers 1
//   4 manager -> client  the dock position changed (lParam); answers 1
//   5 any -> manager     answers the dock position
//
// Dock positions: 1 not docked, 2 manager at the left edge, 3 right, 4 top,
// 5 bottom. While docked, a window can be sized only at the edge it shares
// with the other side, by mouse or by keyboard (the system menu's Size), and
// the other side follows as it goes; a docked window cannot be moved away
// from its place (it stays put when dragged by its caption) until it is
// maximised or minimised.
//
// Each program forwards its main window's messages to its object: an MFC
// program from its message map to the On... handlers below (OnNcHitTest gets
// the default hit code, and an OnSysCommand that answers TRUE has handled
// the command), a program with a plain window procedure through
// HandleWindowMessage:
//
//     LRESULT result;
//     if (g_docking.HandleWindowMessage(message, wParam, lParam, &result))
//         return result;
//     ... the program's own handling, then DefWindowProc
#pragma once

#include <windows.h>

#include "diag/DebugOutput.h"
#include "framework/Collections.h"
#include "framework/Export.h"
#include "framework/Gdi.h"
#include "framework/Wnd.h"

// The project manager's side: docks its main window at an edge and keeps the clients beside it.
class TQM_CLASS CDesktopDockingManager
{
public:
    // Construction
    CDesktopDockingManager();
    ~CDesktopDockingManager();
    CDesktopDockingManager(const CDesktopDockingManager&) = delete;
    CDesktopDockingManager& operator=(const CDesktopDockingManager&) = delete;

    // After the main window is made: registers the message and docks the
    // window at nDockPos (restoring its saved placement "MainWindow" if
    // there is one). FALSE when the message could not be registered.
    BOOL Initialize(CWnd* pMainWnd, int nDockPos);
    // Before the main window is destroyed: saves its placement "MainWindow".
    void Close();

    // Attributes
    // Tells every client the new position first, then docks the main window
    // there: a saved placement at start-up, else a quarter of the work area.
    void SetDockPos(int nDockPos);
    int GetDockPos() { return m_nDockPos; }

    // The handler of the registered message (codes 1 to 5 from the clients).
    LONG OnMsgFromClient(UINT wParam, LONG lParam);

    // Handlers of the main window's messages
    void OnSettingChange(UINT uFlags, LPCSTR pszSection);
    void OnWindowPosChanged(WINDOWPOS* pPos);
    void OnWindowPosChanging(WINDOWPOS* pPos);
    void OnMoving(UINT nSide, RECT* pRect);
    LRESULT OnNcHitTest(CPoint pt, LONG nHit);
    BOOL OnSysCommand(UINT nID, LONG lParam);
    void OnSetFocus();

    // For a plain window procedure: passes the message to the handler it
    // belongs to. TRUE when the message is answered (*pResult); FALSE when
    // the program goes on with it as usual.
    BOOL HandleWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);

    static UINT m_DesktopDockingMsg;  // "Tarn52.DesktopDocking"

protected:
    // The index of hWnd in the client list, or -1.
    int findClientWndIndex(HWND hWnd);
    // True when a change of the main window's position or size is one the
    // clients follow: docked, a real move or size, not minimised or maximised.
    BOOL processWindowPos(WINDOWPOS* pPos);
    // Gives every listed client the free part of the work area beside the
    // manager's rectangle (x, y, cx, cy).
    void resizeClients(int x, int y, int cx, int cy);

    CWnd* m_pMainWnd;
    HWND m_hMainWnd;
    int m_nDockPos;
    CFrameworkArray<HWND> m_arrClientWnds;  // in order of subscription
    HWND m_hCurrentClient;                  // the sender of the message being handled
    RECT m_rcWorkArea;                      // refreshed whenever the work area is read

private:
    LONG onClientMoved(HWND hClient);
    bool isDockedNormal();
    const RECT& refreshWorkArea();
};

// Another program's side: fills the rest of the work area beside the docked project manager.
class TQM_CLASS CDesktopDockingClient
{
public:
    // Construction
    CDesktopDockingClient();
    virtual ~CDesktopDockingClient();
    CDesktopDockingClient(const CDesktopDockingClient&) = delete;
    CDesktopDockingClient& operator=(const CDesktopDockingClient&) = delete;

    // After the main window is made: subscribes it with the project manager
    // and fills the free part of the work area. Without a manager the window
    // takes its saved placement "MainWindow" and the result is FALSE.
    BOOL Subscribe(CWnd* pMainWnd);
    // Before the main window is destroyed: leaves the manager's list and
    // saves the placement "MainWindow".
    void Unsubscribe();
    // The dock position last learnt from the manager (1 before that).
    UINT GetDockPos() { return m_nDockPos; }

    // The handler of the registered message (code 4 from the manager).
    LONG OnMsgFromManager(UINT wParam, LONG lParam);

    // Handlers of the main window's messages
    void OnWindowPosChanged(WINDOWPOS* pPos);
    void OnWindowPosChanging(WINDOWPOS* pPos);
    void OnMoving(UINT nSide, RECT* pRect);
    LRESULT OnNcHitTest(CPoint pt, LONG nHit);
    BOOL OnSysCommand(UINT nID, LONG lParam);

    // For a plain window procedure; see CDesktopDockingManager.
    BOOL HandleWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);

    static UINT m_DesktopDockingMsg;  // "Tarn52.DesktopDocking"

protected:
    // Moves the main window beside the manager (when the manager is neither
    // minimised nor maximised).
    void resizeClientToManager();

    CWnd* m_pMainWnd;
    HWND m_hMainWnd;
    HWND m_hManagerWnd;
    UINT m_nDockPos;
    BOOL m_bMinMax;  // set while the main window is maximised or minimised

private:
    bool isDockedNormal();
};

// The docking settings of the user's options file (section "VMX"):
// "DesktopDockPos" (default 2) and "DockDialogBoxes" (default 1; 0 without
// reading when the position is 1). Either pointer may be NULL.
extern "C" TQM_CAPI void WINAPI DesktopDocking_GetSettings(int* pDockPos, BOOL* pDockDialogs);
// Fits a dialog box into the part of the work area beside the docked project
// manager. FALSE when hWnd is not a window, there is no manager, it is not
// docked, or the window does not answer WM_GETMINMAXINFO with 0.
extern "C" TQM_CAPI BOOL WINAPI DesktopDocking_SizeWindowToManager(HWND hWnd);

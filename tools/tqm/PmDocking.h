// PmDocking - the desktop docking of tqm pm --dock POS: the stand-in's window
// becomes a main window docked at an edge of the work area, as the project
// manager's is, with the CDesktopDockingManager that the suite's other main
// windows (tqm dock client) subscribe with. It prints a line for each
// docking message, and the keys 1 to 5 in its window dock it at another
// position.
#pragma once

#include "tools/tqm/ListenerWindow.h"

#include "ipc/DesktopDocking.h"

#include <windows.h>

namespace tqmtool {

class PmDocking
{
public:
    // Adds its handler to window; the window must not be made yet. nDockPos
    // is a dock position, 1 to 5.
    PmDocking(ListenerWindow& window, int nDockPos);
    ~PmDocking();
    PmDocking(const PmDocking&) = delete;
    PmDocking& operator=(const PmDocking&) = delete;

    // Makes the window a shown main window and docks it; false after a
    // message on stderr.
    bool Create();

private:
    bool handle(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void printDockingMessage(WPARAM wParam, LPARAM lParam, LRESULT result);
    void setDockPos(int nDockPos);
    void showDockPos();

    ListenerWindow& m_window;
    const int m_nStartPos;
    CDesktopDockingManager m_manager;
    CWnd m_wnd;
};

}  // namespace tqmtool

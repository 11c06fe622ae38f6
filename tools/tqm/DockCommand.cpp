// tqm dock client [--seconds N]
// tqm dock query
//
// A client main window that docks beside the suite's project manager, so
// that a person can watch desktop docking between processes; and the dock
// position of the running project manager.
#include "tools/tqm/Command.h"

#include "tools/tqm/DockedWindow.h"
#include "tools/tqm/ListenerWindow.h"

#include "ipc/DesktopDocking.h"

#include <windows.h>

#include <stdio.h>
#include <stdlib.h>

namespace tqmtool {
namespace {

const char kUsage[] =
    "usage: tqm dock client [--seconds N]\n"
    "       tqm dock query\n\n"
    "client opens a main window that subscribes with the running project manager\n"
    "(the window of class \"" TARN_PROJECT_MANAGER_WINDOW_CLASS "\"; tqm pm --dock POS stands in\n"
    "for it) and fills the free part of the desktop beside it. It follows when the\n"
    "manager is sized or docks at another edge; sizing its shared edge (by mouse,\n"
    "or Size in its system menu) sizes the manager too, and its other edges are\n"
    "held. Each change prints a line:\n\n"
    "    docked at position 2 (manager at the left edge): window at 256,0,1024,767\n\n"
    "Closing the window, Ctrl+C, or --seconds N ends it; it unsubscribes first.\n"
    "Exit 1 when no project manager is running.\n\n"
    "query prints the running project manager's dock position (1 not docked,\n"
    "2 left, 3 right, 4 top, 5 bottom); exit 1 when none is running.\n";

const char kClientClass[] = "TqmDockClient";

bool inOwnMoveSizeLoop(HWND hWnd)
{
    GUITHREADINFO info = {};
    info.cbSize = sizeof(info);
    return GetGUIThreadInfo(GetCurrentThreadId(), &info) && (info.flags & GUI_INMOVESIZE) && info.hwndMoveSize == hWnd;
}

// The client main window: subscribed while it runs, and a line for each new
// place or position.
class DockClient
{
public:
    DockClient() : m_window(kClientClass, "tqm dock client")
    {
        m_window.AddHandler([this](HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) {
            return handle(hWnd, msg, wParam, lParam, result);
        });
    }
    ~DockClient() { m_wnd.Detach(); }

    int Run(long nSeconds)
    {
        // Several clients may run beside one manager, as the suite's editors do.
        if (!m_window.CreateMainWindow(RECT{100, 100, 600, 500}, false))
            return kExitNegative;
        HWND hWnd = m_window.Window();
        m_wnd.Attach(hWnd);
        if (!m_client.Subscribe(&m_wnd))
            return Fail("the project manager went away before the client could subscribe");
        m_bSubscribed = true;
        printPlace(hWnd);
        if (nSeconds > 0)
            SetTimer(hWnd, 1, static_cast<UINT>(nSeconds * 1000), nullptr);
        m_window.Run();
        return kExitOk;
    }

private:
    bool handle(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result)
    {
        const bool bHandled = m_client.HandleWindowMessage(msg, wParam, lParam, &result) != FALSE;
        switch (msg) {
        case WM_WINDOWPOSCHANGED:
            // While the user drags, the line comes when the drag is over.
            if (!inOwnMoveSizeLoop(hWnd) && !IsIconic(hWnd))
                printPlace(hWnd);
            break;
        case WM_EXITSIZEMOVE:
            printPlace(hWnd);
            break;
        case WM_TIMER:
            m_window.Close();
            return true;
        case WM_CLOSE:
            // Out of the manager's list before the window goes.
            m_bSubscribed = false;
            m_client.Unsubscribe();
            break;
        case WM_PAINT:
            PaintTitle(hWnd);
            return true;
        default:
            if (bHandled && msg == CDesktopDockingClient::m_DesktopDockingMsg)
                printPlace(hWnd);
            break;
        }
        return bHandled;
    }

    void printPlace(HWND hWnd)
    {
        if (!m_bSubscribed)
            return;
        RECT r = {};
        GetWindowRect(hWnd, &r);
        const UINT nPos = m_client.GetDockPos();
        if (EqualRect(&r, &m_printedRect) && nPos == m_nPrintedPos)
            return;
        m_printedRect = r;
        m_nPrintedPos = nPos;
        printf("docked at position %u (%s): window at %ld,%ld,%ld,%ld\n", nPos,
               DockPositionName(static_cast<int>(nPos)), r.left, r.top, r.right, r.bottom);
        fflush(stdout);
    }

    CDesktopDockingClient m_client;
    CWnd m_wnd;
    bool m_bSubscribed = false;
    RECT m_printedRect = {};
    UINT m_nPrintedPos = 0;
    ListenerWindow m_window;
};

int runClient(long nSeconds)
{
    if (!FindWindowA(TARN_PROJECT_MANAGER_WINDOW_CLASS, nullptr))
        return Fail("no project manager is running (no window of class \"%s\")", TARN_PROJECT_MANAGER_WINDOW_CLASS);
    DockClient client;
    return client.Run(nSeconds);
}

int runQuery()
{
    HWND hManager = FindWindowA(TARN_PROJECT_MANAGER_WINDOW_CLASS, nullptr);
    if (!hManager)
        return Fail("no project manager is running");
    // The manager answers a question from any window; the desktop will do.
    const UINT nPos = static_cast<UINT>(SendMessageA(hManager, RegisterWindowMessageA("Tarn52.DesktopDocking"), 5,
                                                     reinterpret_cast<LPARAM>(GetDesktopWindow())));
    printf("%u (%s)\n", nPos, DockPositionName(static_cast<int>(nPos)));
    return kExitOk;
}

int runDock(const Args& args)
{
    if (args.empty())
        return UsageError("dock", "say client or query");
    if (args[0] == "query") {
        if (args.size() > 1)
            return UsageError("dock", "query takes no arguments");
        return runQuery();
    }
    if (args[0] != "client")
        return UsageError("dock", "unknown subcommand \"%s\"", args[0].c_str());
    long nSeconds = 0;
    for (size_t i = 1; i < args.size(); ++i) {
        if (args[i] != "--seconds" || i + 1 >= args.size())
            return UsageError("dock", "unexpected \"%s\"", args[i].c_str());
        char* end = nullptr;
        nSeconds = strtol(args[++i].c_str(), &end, 10);
        if (*end || nSeconds <= 0 || nSeconds > 86400)
            return UsageError("dock", "--seconds needs a number of seconds, not \"%s\"", args[i].c_str());
    }
    return runClient(nSeconds);
}

}  // namespace

TQM_REGISTER_COMMAND({"dock", "a client window docked beside the project manager; its dock position", kUsage,
                      runDock});

}  // namespace tqmtool

// tqm dock client [--seconds N]
// tqm dock query
//
// A client main window that docks beside the suite's project manager, so
// that a person can watch desktop docking between processes; and the dock
// position of the running project manager.
#include "tools/tqm/Command.h"

#include "ipc/DesktopDocking.h"

#include <windows.h>

#include <stdio.h>
#include <stdlib.h>

#include <atomic>

namespace tqmtool {
namespace {

const char kUsage[] =
    "usage: tqm dock client [--seconds N]\n"
    "       tqm dock query\n\n"
    "client opens a main window that subscribes with the running project manager\n"
    "(the window of class \"" TARN_PROJECT_MANAGER_CLASS "\") and fills the free part of the\n"
    "desktop beside it. It follows when the manager is sized or docks at another\n"
    "edge; sizing its shared edge (by mouse, or Size in its system menu) sizes the\n"
    "manager too, and its other edges are held. Each change prints a line:\n\n"
    "    docked at position 2 (manager at the left edge): window at 256,0,1024,767\n\n"
    "Closing the window, Ctrl+C, or --seconds N ends it; it unsubscribes first.\n"
    "Exit 1 when no project manager is running.\n\n"
    "query prints the running project manager's dock position (1 not docked,\n"
    "2 left, 3 right, 4 top, 5 bottom); exit 1 when none is running.\n";

const char kClientClass[] = "TqmDockClient";

const char* positionName(UINT nPos)
{
    switch (nPos) {
    case 1: return "not docked";
    case 2: return "manager at the left edge";
    case 3: return "manager at the right edge";
    case 4: return "manager at the top edge";
    case 5: return "manager at the bottom edge";
    default: return "unknown position";
    }
}

CDesktopDockingClient g_client;
std::atomic<HWND> g_window{nullptr};
bool g_bSubscribed = false;
RECT g_printedRect = {};
UINT g_printedPos = 0;

// One line for each new place or position of the window.
void printPlace(HWND hWnd)
{
    if (!g_bSubscribed)
        return;
    RECT r = {};
    GetWindowRect(hWnd, &r);
    const UINT nPos = g_client.GetDockPos();
    if (EqualRect(&r, &g_printedRect) && nPos == g_printedPos)
        return;
    g_printedRect = r;
    g_printedPos = nPos;
    printf("docked at position %u (%s): window at %ld,%ld,%ld,%ld\n", nPos, positionName(nPos), r.left, r.top,
           r.right, r.bottom);
    fflush(stdout);
}

bool inOwnMoveSizeLoop(HWND hWnd)
{
    GUITHREADINFO info = {};
    info.cbSize = sizeof(info);
    return GetGUIThreadInfo(GetCurrentThreadId(), &info) && (info.flags & GUI_INMOVESIZE) && info.hwndMoveSize == hWnd;
}

LRESULT CALLBACK clientProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    const bool handled = g_client.HandleWindowMessage(message, wParam, lParam, &result);
    switch (message) {
    case WM_WINDOWPOSCHANGED:
        // While the user drags, the line comes when the drag is over.
        if (!inOwnMoveSizeLoop(hWnd) && !IsIconic(hWnd))
            printPlace(hWnd);
        break;
    case WM_EXITSIZEMOVE:
        printPlace(hWnd);
        break;
    case WM_TIMER:
    case WM_CLOSE:
        g_bSubscribed = false;
        g_client.Unsubscribe();
        DestroyWindow(hWnd);
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    default:
        if (handled && message == CDesktopDockingClient::m_DesktopDockingMsg)
            printPlace(hWnd);
        break;
    }
    return handled ? result : DefWindowProcA(hWnd, message, wParam, lParam);
}

BOOL WINAPI onConsoleControl(DWORD)
{
    HWND hWnd = g_window.load();
    if (!hWnd)
        return FALSE;
    PostMessageA(hWnd, WM_CLOSE, 0, 0);
    return TRUE;
}

int runClient(long nSeconds)
{
    if (!FindWindowA(TARN_PROJECT_MANAGER_CLASS, nullptr))
        return Fail("no project manager is running (no window of class \"%s\")", TARN_PROJECT_MANAGER_CLASS);
    HINSTANCE hInstance = GetModuleHandleA(nullptr);
    WNDCLASSA wc = {};
    wc.lpfnWndProc = clientProc;
    wc.hInstance = hInstance;
    wc.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    wc.lpszClassName = kClientClass;
    RegisterClassA(&wc);
    HWND hWnd = CreateWindowA(kClientClass, "tqm dock client", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT,
                              CW_USEDEFAULT, 500, 400, nullptr, nullptr, hInstance, nullptr);
    if (!hWnd)
        return Fail("cannot create the client window (error %lu)", GetLastError());
    g_window.store(hWnd);
    SetConsoleCtrlHandler(onConsoleControl, TRUE);

    CWnd wnd;
    wnd.Attach(hWnd);
    if (!g_client.Subscribe(&wnd)) {
        DestroyWindow(hWnd);
        return Fail("the project manager went away before the client could subscribe");
    }
    g_bSubscribed = true;
    printPlace(hWnd);
    if (nSeconds > 0)
        SetTimer(hWnd, 1, static_cast<UINT>(nSeconds * 1000), nullptr);

    MSG msg;
    while (GetMessageA(&msg, nullptr, 0, 0) > 0) {
        TranslateMessage(&msg);
        DispatchMessageA(&msg);
    }
    g_window.store(nullptr);
    SetConsoleCtrlHandler(onConsoleControl, FALSE);
    wnd.Detach();
    return kExitOk;
}

int runQuery()
{
    HWND hManager = FindWindowA(TARN_PROJECT_MANAGER_CLASS, nullptr);
    if (!hManager)
        return Fail("no project manager is running");
    // The manager answers a question from any window; the desktop will do.
    const UINT nPos = static_cast<UINT>(SendMessageA(hManager, RegisterWindowMessageA("Tarn52.DesktopDocking"), 5,
                                                     reinterpret_cast<LPARAM>(GetDesktopWindow())));
    printf("%u (%s)\n", nPos, positionName(nPos));
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

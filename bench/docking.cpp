// Desktop docking: what docking adds to the messages of a main window, as
// ratios to the same work on an undocked window measured in the same run.
//
// Moving: a client main window moved back and forth by 20 pixels; docked,
// each move tells the manager (message code 3), which docks against it, and
// the client settles beside the manager again. Against: the same moves of a
// window without docking, so the ratio counts window moves' worth of work.
// Hit tests: WM_NCHITTEST on the docked client (the default hit test, then
// the filter) against the same on the undocked window. Manager and client
// share one thread here; between processes each message also crosses over.
#include "bench/BenchClock.h"
#include "ipc/DesktopDocking.h"

#include <windows.h>

#include <stdio.h>

using tqmbench::BestOf;

namespace {

constexpr int kMoves = 2000;
constexpr int kHitTests = 200000;
constexpr int kRounds = 5;

template <typename Docking>
LRESULT CALLBACK dockedProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* pDocking = reinterpret_cast<Docking*>(GetWindowLongPtrA(hWnd, GWLP_USERDATA));
    LRESULT result = 0;
    if (pDocking && pDocking->HandleWindowMessage(message, wParam, lParam, &result))
        return result;
    return DefWindowProcA(hWnd, message, wParam, lParam);
}

HWND makeWindow(const char* className, WNDPROC proc, void* pDocking)
{
    WNDCLASSA wc = {};
    wc.lpfnWndProc = proc;
    wc.hInstance = GetModuleHandleA(nullptr);
    wc.lpszClassName = className;
    RegisterClassA(&wc);
    HWND hWnd = CreateWindowA(className, className, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 300, 100, 500, 400, nullptr,
                              nullptr, wc.hInstance, nullptr);
    SetWindowLongPtrA(hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(pDocking));
    return hWnd;
}

void moveBackAndForth(HWND hWnd)
{
    for (int i = 0; i < kMoves; ++i)
        SetWindowPos(hWnd, nullptr, 300 + (i & 1) * 20, 100, 500, 400, SWP_NOZORDER | SWP_NOACTIVATE);
}

void hitTests(HWND hWnd)
{
    RECT r;
    GetWindowRect(hWnd, &r);
    for (int i = 0; i < kHitTests; ++i)
        SendMessageA(hWnd, WM_NCHITTEST, 0, MAKELPARAM(r.left + 1 + (i & 7), (r.top + r.bottom) / 2));
}

}  // namespace

int main()
{
    CDesktopDockingManager manager;
    CDesktopDockingClient client;
    HWND hManager = makeWindow(TARN_PROJECT_MANAGER_CLASS, dockedProc<CDesktopDockingManager>, &manager);
    HWND hClient = makeWindow("BenchDockClient", dockedProc<CDesktopDockingClient>, &client);
    HWND hPlain = makeWindow("BenchPlain", DefWindowProcA, nullptr);
    CWnd managerWnd, clientWnd;
    managerWnd.Attach(hManager);
    clientWnd.Attach(hClient);
    if (!manager.Initialize(&managerWnd, 2) || !client.Subscribe(&clientWnd)) {
        fprintf(stderr, "bench docking: the windows could not be docked\n");
        return 1;
    }
    SetForegroundWindow(hClient);

    const double plainMoves = BestOf(kRounds, [&] { moveBackAndForth(hPlain); });
    const double dockedMoves = BestOf(kRounds, [&] { moveBackAndForth(hClient); });
    RECT M;
    GetWindowRect(hManager, &M);
    const double plainHits = BestOf(kRounds, [&] { hitTests(hPlain); });
    const double dockedHits = BestOf(kRounds, [&] { hitTests(hClient); });

    printf("client moves, docked:   %7.1f us each, %5.2fx an undocked window's move (%.1f us)\n",
           dockedMoves / kMoves * 1e6, dockedMoves / plainMoves, plainMoves / kMoves * 1e6);
    printf("  (the manager followed: its right edge at %ld)\n", M.right);
    printf("hit tests, docked:      %7.2f us each, %5.2fx an undocked window's (%.2f us)\n",
           dockedHits / kHitTests * 1e6, dockedHits / plainHits, plainHits / kHitTests * 1e6);

    client.Unsubscribe();
    manager.Close();
    managerWnd.Detach();
    clientWnd.Detach();
    DestroyWindow(hClient);
    DestroyWindow(hManager);
    DestroyWindow(hPlain);
    return 0;
}

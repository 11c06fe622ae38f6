// The waiting loop of the acknowledged messages and the data exchange.
#include "ipc/WaitLoop.h"

namespace {

bool ownsWindow(HWND hWnd)
{
    DWORD pid = 0;
    return hWnd && ::GetWindowThreadProcessId(hWnd, &pid) && pid == ::GetCurrentProcessId();
}

// The loop of both waits; with watch set, it ends when watched is gone.
tqm::WaitEnd waitLoop(UINT awaited, bool watch, HWND watched, MSG& msg)
{
    using tqm::WaitEnd;
    for (;;) {
        if (watch && !::IsWindow(watched))
            return WaitEnd::PartnerGone;
        // With no window filter GetMessage fails only on a thread without a
        // message queue; that ends the wait as a quit does, never in a spin.
        if (::GetMessageA(&msg, nullptr, 0, 0) <= 0) {
            if (msg.message != WM_QUIT)
                msg = MSG{};
            // Put back, as the system's own modal loops do, so that the
            // program's main loop ends too.
            ::PostQuitMessage(static_cast<int>(msg.wParam));
            return WaitEnd::Quit;
        }
        if (msg.message == awaited)
            return WaitEnd::Arrived;
        if (ownsWindow(msg.hwnd)) {
            if (msg.message == WM_PAINT) {
                PAINTSTRUCT ps;
                ::BeginPaint(msg.hwnd, &ps);
                ::EndPaint(msg.hwnd, &ps);
            }
            continue;
        }
        ::TranslateMessage(&msg);
        ::DispatchMessageA(&msg);
    }
}

}  // namespace

tqm::WaitEnd tqm::WaitForMessage(UINT awaited, MSG& msg) { return waitLoop(awaited, false, nullptr, msg); }

tqm::WaitEnd tqm::WaitForMessageWhileWindow(UINT awaited, HWND watched, MSG& msg)
{
    return waitLoop(awaited, true, watched, msg);
}

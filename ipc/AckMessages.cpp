// Acknowledged messages.
#include "ipc/AckMessages.h"

#include "ipc/WaitLoop.h"

namespace {

// Registered while the library is loaded into the process (a static object
// of the DLL) and only read afterwards.
const UINT g_ackMessage = ::RegisterWindowMessageA(TARN_MSG_ACK);

}  // namespace

UINT WINAPI RegisterQM4AckMessage() { return g_ackMessage; }

LRESULT WINAPI PostMessageAndWaitAck(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    // A partner that is no window (FindWindow found none) gives its answer at
    // once. Nothing is posted to it: PostMessage would hand a message for no
    // window to this thread's own queue, where the program's main loop would
    // meet it later.
    if (!::IsWindow(hWnd))
        return TQM_ACK_PARTNER_GONE;
    ::PostMessageA(hWnd, nMsg, wParam, lParam);
    MSG msg;
    switch (tqm::WaitForMessageWhileWindow(g_ackMessage, hWnd, msg)) {
    case tqm::WaitEnd::PartnerGone:
        return TQM_ACK_PARTNER_GONE;
    case tqm::WaitEnd::Quit:
        return msg.lParam;
    case tqm::WaitEnd::Arrived:
        break;
    }
    // The wait validated paint messages without drawing: a target window
    // that still has an update region is invalidated whole, so that it is
    // painted afresh now.
    if (msg.hwnd && ::GetUpdateRect(msg.hwnd, nullptr, FALSE))
        ::InvalidateRect(msg.hwnd, nullptr, TRUE);
    return msg.lParam;
}

BOOL WINAPI PostAckMessage(HWND hWnd, LPARAM lResult) { return ::PostMessageA(hWnd, g_ackMessage, 0, lResult); }

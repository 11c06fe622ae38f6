// RegisterQM4AckMessage, PostMessageAndWaitAck, PostAckMessage - a posted
// message whose sender waits until the partner acknowledges it.
//
// The acknowledgement is the registered message "Tarn52.MsgAck", posted to
// the sender's window with wParam 0 and the result as lParam. While the
// sender waits its thread pumps messages, but its own windows take no input
// (see ipc/WaitLoop.h); there is no time-out.
#pragma once

#include <windows.h>

#include "framework/Export.h"

#define TARN_MSG_ACK "Tarn52.MsgAck"

// What PostMessageAndWaitAck returns when the partner's window is gone. The
// value is 0xFFFFFFFF in both builds (zero-extended in the 64-bit one), so
// callers that compare with that number work unchanged; an acknowledgement
// of -1 in the 64-bit build stays distinguishable from it.
#define TQM_ACK_PARTNER_GONE ((LRESULT)0xFFFFFFFFu)

// The number of "Tarn52.MsgAck", registered when the library was loaded.
extern "C" TQM_CAPI UINT WINAPI RegisterQM4AckMessage();

// Posts nMsg to hWnd and waits for an acknowledgement from anyone; returns
// its lParam, TQM_ACK_PARTNER_GONE when hWnd is found gone before a fetch
// (at the first message that reaches the thread after it went), or 0 when a
// quit message ended the wait (it is posted again). A hWnd that is no window
// at all, NULL included, gives TQM_ACK_PARTNER_GONE at once, and nothing is
// posted.
extern "C" TQM_CAPI LRESULT WINAPI PostMessageAndWaitAck(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam);

// Acknowledges to hWnd (the waiting sender's window) with lResult.
extern "C" TQM_CAPI BOOL WINAPI PostAckMessage(HWND hWnd, LPARAM lResult);

// The private message loop in which PostMessageAndWaitAck and ExchangeData
// wait for their partner's answer.
#pragma once

#include <windows.h>

namespace tqm {

enum class WaitEnd
{
    Arrived,      // the awaited message is in msg
    Quit,         // the quit message is in msg; it has been posted again
    PartnerGone,  // the watched window no longer exists
};

// Fetches this thread's messages until one numbered awaited arrives (from
// any sender, for any window; it is the wait's own and is not dispatched).
// Meanwhile messages for this process's own
// windows are dropped - paint messages validated without drawing - so that
// the program takes no input and runs no commands while it waits; messages
// without a window or for other processes' windows are dispatched. There is
// no time-out.
WaitEnd WaitForMessage(UINT awaited, MSG& msg);

// The same, but the wait ends as soon as watched is no longer a window,
// checked before every fetch. NULL is never a window: that wait ends at once.
WaitEnd WaitForMessageWhileWindow(UINT awaited, HWND watched, MSG& msg);

}  // namespace tqm

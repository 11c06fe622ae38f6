// ExchangeData - a request of up to 10240 bytes handed to another program
// through shared memory, and its reply copied back.
//
// The sender creates a named section of 10240 bytes (zero-filled, the
// request at its start) and posts "Tarn52:DataExchange" to the partner with
// wParam = its own window and lParam = a global atom of the section's name.
// The partner reads the section (the request's length is not sent: the
// partner knows its requests, or reads up to the first zero byte), deletes
// that atom, writes its reply into a named section of its own, and posts
// "Tarn52:DataReady" to the sender's window with wParam = the number of reply
// bytes and lParam = a global atom of that section's name (at most 99
// characters), which the sender deletes. The partner keeps its section open
// until the sender has read it: at least until the sender's next request, or
// until the sender's window is gone.
//
// The sender waits as PostMessageAndWaitAck does (ipc/WaitLoop.h), without a
// time-out and without checking that the partner is still there. Two
// exchanges at the same time need different section names.
#pragma once

#include <windows.h>

#include "framework/Export.h"

#define TARN_MSG_DATA_EXCHANGE "Tarn52:DataExchange"
#define TARN_MSG_DATA_READY "Tarn52:DataReady"

// The size of the request section; a request must fit into it.
#define TQM_EXCHANGE_REQUEST_SIZE 10240

// Tqmlib52.h defines the structure too, for C programs: whichever comes
// first does.
#ifndef TQM_EXCHANGEDATA_DEFINED
#define TQM_EXCHANGEDATA_DEFINED
// What ExchangeData sends and receives. The handles and pointers are
// pointer-sized in both builds; the sizes are 32 bits.
typedef struct tagEXCHANGEDATA
{
    HWND hWndPartner;            // receives the request
    HWND hWndOwner;              // the sender's window: gets the reply, owns error boxes
    const char* pszSectionName;  // the request section's name
    DWORD dwRequestSize;         // request bytes, at most TQM_EXCHANGE_REQUEST_SIZE
    const void* pRequest;
    DWORD dwReplySize;           // out: reply bytes
    void* pReply;                // out: the reply and one zero byte; free with HeapFree(GetProcessHeap(), ...)
} EXCHANGEDATA;
#endif

// Sends the request and waits for the reply. FALSE, after a "System Error"
// box owned by hWndOwner with the system's reason, when a section cannot be
// made, opened or mapped; a quit message ending the wait ends up there too
// (it is posted again). Deliberately beyond the suite's old rule, a request
// that cannot be posted (hWndPartner is no window) fails the same way at
// once instead of waiting for ever for a reply that cannot come.
extern "C" TQM_CAPI BOOL WINAPI ExchangeData(EXCHANGEDATA* pData);

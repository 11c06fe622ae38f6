// ExchangePartner - the answering side of the data exchange (ExchangeData,
// ipc/DataExchange.h), for programs that stand in for a partner: tqm pm and
// the benchmark's partner process.
//
// It keeps, for each requester, the sections of its last exchange open: the
// request section, so that the requester's next exchange under the same name
// finds it instead of making a new one (making a section is what costs most),
// and the reply section, used again for the next reply that fits (by then the
// requester has read the last one: its exchange waited until it had). Both go
// when the requester's window is gone, and with them the atom of a reply it
// never read (a requester killed while it waited).
#pragma once

#include "framework/Handles.h"

#include <windows.h>

#include <map>
#include <string>

namespace tqmtool {

class ExchangePartner
{
public:
    ExchangePartner();

    // The numbers of the request ("Tarn52:DataExchange") and reply messages.
    UINT RequestMessage() const { return m_requestMessage; }
    UINT ReplyMessage() const { return m_replyMessage; }

    // The request of a "Tarn52:DataExchange" message from requester, from the
    // section named by its atom (deleted here): the bytes up to the first
    // zero byte. False when the section cannot be opened or mapped.
    bool ReadRequest(HWND requester, ATOM sectionAtom, std::string& sectionName, std::string& request);

    // Answers the requester's window with size bytes: writes them into its
    // reply section and posts "Tarn52:DataReady". False, with the system's
    // error code, when the section cannot be made or the post fails.
    bool Reply(HWND requester, const void* reply, DWORD size, DWORD* pError);

    // Before the partner ends: waits, at most maxMs, until every requester
    // whose reply may still be unread has gone (a program that asked once
    // and ends, such as tqm exchange), so that no reply vanishes unread.
    void WaitForReaders(DWORD maxMs);

private:
    struct Section
    {
        std::string name;
        DWORD capacity = 0;
        tqm::UniqueHandle handle;
        tqm::UniqueView view;
    };
    struct Requester
    {
        Section request;
        Section reply;
    };

    void releaseGone();
    bool makeReplySection(Section& reply, DWORD size);

    UINT m_requestMessage;
    UINT m_replyMessage;
    unsigned long m_serial = 0;
    std::map<HWND, Requester> m_requesters;
};

}  // namespace tqmtool

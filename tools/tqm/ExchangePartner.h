// ExchangePartner - the answering side of the data exchange (ExchangeData,
// ipc/DataExchange.h), for programs that stand in for a partner: tqm pm and
// the benchmark's partner process.
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

    // The request a "Tarn52:DataExchange" message announces, from the section
    // named by its atom (deleted here): the bytes up to the first zero byte.
    // False when the section cannot be opened or mapped.
    static bool ReadRequest(ATOM sectionAtom, std::string& sectionName, std::string& request);

    // Answers the requester's window with size bytes: writes them into a
    // section of our own and posts "Tarn52:DataReady". Each requester has its
    // section, kept open and used again for its next reply when that fits
    // (by then it has read the last one: its exchange waited until it had);
    // it goes when the requester's window is gone. False, with the system's
    // error code, when the section cannot be made or the post fails.
    bool Reply(HWND requester, const void* reply, DWORD size, DWORD* pError);

    // Before the partner ends: waits, at most maxMs, until every requester
    // whose reply may still be unread has gone (a program that asked once
    // and ends, such as tqm exchange), so that no reply vanishes unread.
    void WaitForReaders(DWORD maxMs);

private:
    void releaseGone();

    struct ReplySection
    {
        std::string name;
        DWORD capacity = 0;
        tqm::UniqueHandle section;
        tqm::UniqueView view;
    };
    bool makeSection(ReplySection& reply, DWORD size);

    UINT m_requestMessage;
    UINT m_replyMessage;
    unsigned long m_serial = 0;
    std::map<HWND, ReplySection> m_replies;  // the reply section of each requester
};

}  // namespace tqmtool

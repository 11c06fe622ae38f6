// The answering side of the data exchange.
#include "tools/tqm/ExchangePartner.h"

#include "ipc/DataExchange.h"

#include <stdio.h>
#include <string.h>

namespace tqmtool {

ExchangePartner::ExchangePartner()
    : m_requestMessage(RegisterWindowMessageA(TARN_MSG_DATA_EXCHANGE)),
      m_replyMessage(RegisterWindowMessageA(TARN_MSG_DATA_READY))
{
}

bool ExchangePartner::ReadRequest(HWND requester, ATOM sectionAtom, std::string& sectionName, std::string& request)
{
    char name[256] = "";
    GlobalGetAtomNameA(sectionAtom, name, sizeof(name));
    GlobalDeleteAtom(sectionAtom);
    sectionName = name;
    request.clear();
    releaseGone();
    Section& section = m_requesters[requester].request;
    if (section.name != name || !section.view) {
        section.view.reset();
        section.handle.reset(OpenFileMappingA(FILE_MAP_READ, FALSE, name));
        if (section.handle)
            section.view.reset(MapViewOfFile(section.handle.get(), FILE_MAP_READ, 0, 0, TQM_EXCHANGE_REQUEST_SIZE));
        if (!section.view) {
            section = Section{};
            return false;
        }
        section.name = name;
    }
    const char* bytes = static_cast<const char*>(section.view.get());
    request.assign(bytes, strnlen(bytes, TQM_EXCHANGE_REQUEST_SIZE));
    return true;
}

bool ExchangePartner::Reply(HWND requester, const void* reply, DWORD size, DWORD* pError)
{
    Section& section = m_requesters[requester].reply;
    if (section.capacity < size || !section.view) {
        if (!makeReplySection(section, size)) {
            *pError = GetLastError();
            section = Section{};
            return false;
        }
    }
    if (size)
        memcpy(section.view.get(), reply, size);
    ATOM atom = GlobalAddAtomA(section.name.c_str());
    if (!PostMessageA(requester, m_replyMessage, size, atom)) {
        *pError = GetLastError();
        GlobalDeleteAtom(atom);
        return false;
    }
    return true;
}

// A new section under a new name: the requester may still hold the old one.
bool ExchangePartner::makeReplySection(Section& reply, DWORD size)
{
    char name[64];
    snprintf(name, sizeof(name), "Tqm.ExchangeReply.%lu.%lu", GetCurrentProcessId(), ++m_serial);
    // A section cannot be empty: an empty reply gets one byte nobody reads.
    const DWORD capacity = size ? size : 1;
    reply.view.reset();
    reply.handle.reset(CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, capacity, name));
    if (!reply.handle)
        return false;
    reply.view.reset(MapViewOfFile(reply.handle.get(), FILE_MAP_WRITE, 0, 0, 0));
    if (!reply.view)
        return false;
    reply.name = name;
    reply.capacity = capacity;
    return true;
}

// A requester whose window is gone reads nothing more. A reply posted just
// before it went was never read: the atom naming its section would stay in
// the global table for the rest of the session, so it goes too. The name is
// this process's own and was never handed to anyone else.
void ExchangePartner::releaseGone()
{
    for (auto it = m_requesters.begin(); it != m_requesters.end();) {
        if (IsWindow(it->first)) {
            ++it;
            continue;
        }
        const std::string& replyName = it->second.reply.name;
        if (!replyName.empty()) {
            if (ATOM unread = GlobalFindAtomA(replyName.c_str()))
                GlobalDeleteAtom(unread);
        }
        it = m_requesters.erase(it);
    }
}

void ExchangePartner::WaitForReaders(DWORD maxMs)
{
    const DWORD start = GetTickCount();
    for (releaseGone(); !m_requesters.empty() && GetTickCount() - start < maxMs; releaseGone())
        Sleep(10);
}

}  // namespace tqmtool

// The data exchange's sending side.
#include "ipc/DataExchange.h"

#include "diag/ErrorReport.h"
#include "diag/TarnAssert.h"
#include "framework/Handles.h"
#include "ipc/WaitLoop.h"

#include <string.h>

namespace {

// The reply section's name as the sender reads it, terminator included.
constexpr DWORD kReplyNameSize = 100;

// Shows the thread's last error under the sender's window; returns FALSE.
BOOL failWithLastError(HWND hWndOwner)
{
    LastError(hWndOwner);
    return FALSE;
}

// Posts to a window; FALSE, with the system's reason, when it cannot. A hWnd
// that is no window is refused here: PostMessage would hand the message to
// this thread's own queue instead.
BOOL postToWindow(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    if (!::IsWindow(hWnd)) {
        ::SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    return ::PostMessageA(hWnd, nMsg, wParam, lParam);
}

// The request section, made and filled; its handle stays open for the
// partner. NULL after a failure (the system's reason in the last error).
tqm::UniqueHandle makeRequestSection(const EXCHANGEDATA& data)
{
    tqm::UniqueHandle section(::CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                                   TQM_EXCHANGE_REQUEST_SIZE, data.pszSectionName));
    if (!section)
        return section;
    tqm::UniqueView view(::MapViewOfFile(section.get(), FILE_MAP_ALL_ACCESS, 0, 0, TQM_EXCHANGE_REQUEST_SIZE));
    if (!view) {
        section.reset();
        return section;
    }
    memset(view.get(), 0, TQM_EXCHANGE_REQUEST_SIZE);
    // A request that does not fit is the caller's fault: reported, and cut
    // rather than written past the section.
    TARN_ASSERT(data.dwRequestSize <= TQM_EXCHANGE_REQUEST_SIZE);
    TARN_ASSERT(data.pRequest != nullptr || data.dwRequestSize == 0);
    DWORD size = data.dwRequestSize < TQM_EXCHANGE_REQUEST_SIZE ? data.dwRequestSize : TQM_EXCHANGE_REQUEST_SIZE;
    if (data.pRequest && size)
        memcpy(view.get(), data.pRequest, size);
    return section;
}

// Copies the partner's reply from its section into a new block of the
// process heap (with one zero byte behind it). Mapping exactly the announced
// size fails on a section too small for it, so a wrong size never reads past
// the partner's section.
BOOL takeReply(EXCHANGEDATA& data, const char* sectionName, DWORD size)
{
    tqm::UniqueHandle section(::OpenFileMappingA(FILE_MAP_ALL_ACCESS, FALSE, sectionName));
    if (!section)
        return failWithLastError(data.hWndOwner);
    tqm::UniqueView view(::MapViewOfFile(section.get(), FILE_MAP_ALL_ACCESS, 0, 0, size));
    if (!view)
        return failWithLastError(data.hWndOwner);
    void* reply = ::HeapAlloc(::GetProcessHeap(), HEAP_ZERO_MEMORY, static_cast<SIZE_T>(size) + 1);
    if (!reply) {
        ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return failWithLastError(data.hWndOwner);
    }
    memcpy(reply, view.get(), size);
    data.dwReplySize = size;
    data.pReply = reply;
    return TRUE;
}

}  // namespace

BOOL WINAPI ExchangeData(EXCHANGEDATA* pData)
{
    TARN_ASSERT(pData != nullptr && pData->pszSectionName != nullptr);
    if (!pData || !pData->pszSectionName)
        return FALSE;
    EXCHANGEDATA& data = *pData;
    // Registered once and kept: a name gives the same number for the whole
    // session, and registering costs two trips to the window manager.
    static const UINT exchangeMessage = ::RegisterWindowMessageA(TARN_MSG_DATA_EXCHANGE);
    static const UINT readyMessage = ::RegisterWindowMessageA(TARN_MSG_DATA_READY);

    tqm::UniqueHandle request = makeRequestSection(data);
    if (!request)
        return failWithLastError(data.hWndOwner);
    // The partner deletes the atom. A request that cannot be posted would
    // never be answered: rather than wait for ever, the call fails.
    ATOM name = ::GlobalAddAtomA(data.pszSectionName);
    if (!postToWindow(data.hWndPartner, exchangeMessage, reinterpret_cast<WPARAM>(data.hWndOwner), name)) {
        DWORD error = ::GetLastError();
        if (name)
            ::GlobalDeleteAtom(name);
        ::SetLastError(error);
        return failWithLastError(data.hWndOwner);
    }

    // A quit message ending the wait is taken as the reply it is not, and
    // fails below at opening a section without a name.
    MSG msg;
    tqm::WaitForMessage(readyMessage, msg);
    char replyName[kReplyNameSize] = "";
    const ATOM replyAtom = static_cast<ATOM>(msg.lParam);
    ::GlobalGetAtomNameA(replyAtom, replyName, kReplyNameSize);
    ::GlobalDeleteAtom(replyAtom);
    return takeReply(data, replyName, static_cast<DWORD>(msg.wParam));
}

// CrcInit, CrcCalc, CrcFileCalc.
#include "datafiles/Crc.h"

#include "datafiles/logic/CrcUpdate.h"
#include "diag/ErrorReport.h"
#include "diag/TarnAssert.h"
#include "framework/Handles.h"
#include "res/StringIds.h"

#include <string.h>

namespace {
// CrcFileCalc checksums at most this much of a file's head.
constexpr DWORD kFileHeadSize = 1024;
}

// The table is computed when the library is built, so there is nothing left
// to prepare and no first call for two threads to race on. The function stays
// for the programs that call it before their first CrcCalc.
void WINAPI CrcInit() {}

WORD WINAPI CrcCalc(WORD wCrc, void* pData, UINT nLength)
{
    TARN_ASSERT(pData != nullptr || nLength == 0);
    if (!pData)
        return wCrc;
    return tqm::Crc16Update(wCrc, pData, nLength);
}

// Checksums the head of a text file: the bytes before the first zero byte, at
// most 1024. A file that cannot be read, or reads short, simply gives the CRC
// of what arrived (0 for nothing): callers have always got a value here, and
// only a file that cannot be opened is reported.
WORD WINAPI CrcFileCalc(HWND hWndOwner, const char* pszPath)
{
    tqm::UniqueGlobal hBuffer(::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, kFileHeadSize));
    tqm::GlobalLock lock(hBuffer.get());
    if (!lock.get()) {
        SystemError(hWndOwner, IDS_OUT_OF_MEMORY, nullptr, 0);
        return 0;
    }
    // Others may read the file meanwhile, but nobody may change it.
    tqm::UniqueFile file(::CreateFileA(pszPath ? pszPath : "", GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                       FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) {
        SystemError(hWndOwner, IDS_CANNOT_OPEN_FILE, pszPath ? pszPath : "", 0);
        return 0;
    }
    auto* pHead = lock.as<char>();
    DWORD dwRead = 0;
    ::ReadFile(file.get(), pHead, kFileHeadSize, &dwRead, nullptr);
    // A head of 1024 bytes without a zero byte has no terminator: count no further.
    return CrcCalc(0, pHead, static_cast<UINT>(strnlen(pHead, kFileHeadSize)));
}

// CRecFile::Verify, CRecFile::Dump.
#include "datafiles/RecFile.h"

#include "diag/MessageBoxHook.h"
#include "diag/TarnAssert.h"

#include <algorithm>
#include <memory>
#include <new>

#undef TARN_SOURCE
#define TARN_SOURCE "RecFile"

namespace {

constexpr DWORD kAnyType = 0xFFFFFFFF;
// Verify reads a record's data in pieces of at most this size.
constexpr DWORD kVerifyPieceSize = 64 * 1024;
// The longest message a "Verify Failed" box shows, with its terminating zero.
constexpr UINT kMaxVerifyMessage = 520;

// The support staff know Verify's checks by these line numbers of its
// reports, whatever the layout of this file; so they are given here rather
// than taken from where the checks stand.
constexpr int kLineOpen = 955;
constexpr int kLineGetRecHdr = 958;
constexpr int kLineReadRec = 961;

void reportFailedCheck(const char* pszExpr, int nLine)
{
    TarnDebug("TARN_VERIFY", pszExpr, TARN_SOURCE, nLine, ::GetLastError());
}

void showVerifyFailure(CFileException* e)
{
    char szMessage[kMaxVerifyMessage] = "";
    e->GetErrorMessage(szMessage, kMaxVerifyMessage);
    ::MessageBeep(MB_ICONHAND);
    tqm::ShowMessageBox(nullptr, szMessage, "Verify Failed", MB_OK | MB_ICONERROR);
}

}  // namespace

// Runs with the throw flag set, so that the first failure, wherever it
// happens, ends the walk and is shown. The exceptions are raised and caught
// here inside the library.
BOOL CRecFile::Verify(const char* pszPath, DWORD dwFileType)
{
    BOOL bSavedThrow = m_bThrow;
    m_bThrow = TRUE;
    // The data is checked in pieces rather than read whole: the checksum is
    // the same, and a large record cannot run the process out of memory.
    std::unique_ptr<BYTE[]> piece(new (std::nothrow) BYTE[kVerifyPieceSize]);
    try {
        if (!TqmResultOrThrow(open(pszPath, dwFileType, FALSE)))
            reportFailedCheck("Open(pszPath, dwFileType)", kLineOpen);
        while (TqmResultOrThrow(findNextRec(kAnyType))) {
            tagRECHDR* pRecHdr = GetRecHdr();
            if (!pRecHdr) {
                reportFailedCheck("pRecHdr = GetRecHdr()", kLineGetRecHdr);
                continue;
            }
            if (pRecHdr->dwDataLength == 0)
                continue;
            BOOL bRead = piece && TqmResultOrThrow(readRecBegin(nullptr));
            for (DWORD dwDone = 0; bRead && dwDone < pRecHdr->dwDataLength; dwDone += kVerifyPieceSize) {
                DWORD dwSize = std::min(kVerifyPieceSize, pRecHdr->dwDataLength - dwDone);
                bRead = TqmResultOrThrow(readRecData(piece.get(), dwSize));
            }
            if (!bRead || !TqmResultOrThrow(readRecEnd()))
                reportFailedCheck("ReadRec(pData, pRecHdr->dwDataLength)", kLineReadRec);
        }
    } catch (CFileException* e) {
        showVerifyFailure(e);
        e->Delete();
    }
    // A failure to close would throw out of Verify, which promises not to.
    close();
    if (CException* e = TqmTakeDeferredException())
        e->Delete();
    m_bThrow = bSavedThrow;
    return TRUE;
}

// Writing a readable listing of a record file was never implemented; the
// member stays for the programs that link against it. "tqm rec dump" shows
// a file's records.
BOOL CRecFile::Dump(const char*, const char*) { return FALSE; }

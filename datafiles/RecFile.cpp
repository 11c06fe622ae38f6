// CRecFile: construction, creating, opening and closing, failures and the
// attributes of the open file.
#include "datafiles/RecFile.h"

#include "datafiles/RecFileAccess.h"
#include "datafiles/logic/RecordChecksum.h"
#include "datafiles/logic/RecordDescriptor.h"

#include <string.h>

namespace {

constexpr DWORD kUnknown = 0xFFFFFFFF;
// error(): keep the system's last-error code.
constexpr DWORD kSystemError = 0xFFFFFFFF;

enum Mode
{
    kModeNone = 0,
    kModeRead = 1,
    kModeWrite = 2
};

constexpr int kNoPosition = 0;

}  // namespace

CRecFile::CRecFile(BOOL bThrow) : m_bThrow(bThrow), m_hFile(INVALID_HANDLE_VALUE), m_pAccess(nullptr)
{
    clearData();
}

CRecFile::~CRecFile()
{
    if (isOpen())
        releaseFile();
}

// ---- state -------------------------------------------------------------

void CRecFile::resetSeek()
{
    memset(&m_RecHdr, 0, sizeof(m_RecHdr));
    m_nRecState = kNoPosition;
    m_dwNextRecPos = 0;
    m_dwDataDone = 0;
    m_dwRunningSum = tqm::RecordChecksumStart(m_dwFileType);
    m_dwRecStartPos = kUnknown;
}

void CRecFile::clearData()
{
    m_hFile = INVALID_HANDLE_VALUE;
    m_dwFileType = kUnknown;
    m_dwVersion = kUnknown;
    m_strDesc.Empty();
    m_nMode = kModeNone;
    memset(&m_CreationTime, 0, sizeof(m_CreationTime));
    m_dwFileSize = 0;
    m_dwFirstRecPos = 0;
    resetSeek();
}

BOOL CRecFile::isOpen() const { return m_hFile != INVALID_HANDLE_VALUE; }
BOOL CRecFile::isReading() const { return isOpen() && m_nMode == kModeRead; }
BOOL CRecFile::isWriting() const { return isOpen() && m_nMode == kModeWrite; }

DWORD CRecFile::checksum(DWORD dwSum, const void* p, UINT n) const
{
    return tqm::RecordChecksumUpdate(m_dwFileType, dwSum, p, n);
}

// Every failure ends here. The file is closed but the mode stays, so the
// object must be Closed before it takes another file: deliberate, a caller
// that missed a failure cannot write on into a wrong place.
BOOL CRecFile::error(DWORD dwError)
{
    resetSeek();
    if (dwError == kSystemError)
        dwError = ::GetLastError();
    ::SetLastError(dwError);
    if (isOpen())
        releaseFile();
    // Closing must not change the code the caller sees.
    ::SetLastError(dwError);
    if (m_bThrow) {
        LONG lOsError = static_cast<LONG>(dwError);
        tqm::DeferException(
            new CFileException(CFileException::OsErrorToException(lOsError), lOsError, m_strPath));
    }
    return FALSE;
}

// ---- the handle ----------------------------------------------------------

BOOL CRecFile::attachFile(HANDLE hFile)
{
    m_pAccess = CRecFileAccess::Attach(hFile);
    if (!m_pAccess) {
        ::CloseHandle(hFile);
        ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return FALSE;
    }
    m_hFile = hFile;
    return TRUE;
}

// Closes the file. FALSE, with the system's code as the last error, when
// closing failed.
BOOL CRecFile::releaseFile()
{
    delete m_pAccess;
    m_pAccess = nullptr;
    DWORD dwError = 0;
    if (m_hFile != INVALID_HANDLE_VALUE && !::CloseHandle(m_hFile))
        dwError = ::GetLastError();
    m_hFile = INVALID_HANDLE_VALUE;
    if (dwError)
        ::SetLastError(dwError);
    return dwError == 0;
}

// The members are the object's state: a derived class may read and set
// them between calls. The record file's logic works on a copy of them for
// the length of one step.
tqm::RecordFileCore* CRecFile::core()
{
    if (!m_pAccess)
        return nullptr;
    tqm::RecordFileCore& core = *m_pAccess->core;
    core.mode = m_nMode;
    core.recState = m_nRecState;
    core.firstRecPos = m_dwFirstRecPos;
    core.nextRecPos = m_dwNextRecPos;
    core.fileSize = m_dwFileSize;
    core.header = {m_RecHdr.dwMagic, m_RecHdr.dwRecType, m_RecHdr.dwRecParam, m_RecHdr.dwDataLength,
                   m_RecHdr.dwChecksum};
    core.fileType = m_dwFileType;
    core.version = m_dwVersion;
    core.runningSum = m_dwRunningSum;
    core.dataDone = m_dwDataDone;
    core.recStartPos = m_dwRecStartPos;
    return &core;
}

void CRecFile::mirror()
{
    const tqm::RecordFileCore& core = *m_pAccess->core;
    m_nMode = core.mode;
    m_nRecState = core.recState;
    m_dwFirstRecPos = core.firstRecPos;
    m_dwNextRecPos = core.nextRecPos;
    m_dwFileSize = core.fileSize;
    m_RecHdr = {core.header.magic, core.header.type, core.header.param, core.header.length, core.header.checksum};
    m_dwFileType = core.fileType;
    m_dwVersion = core.version;
    m_dwRunningSum = core.runningSum;
    m_dwDataDone = core.dataDone;
    m_dwRecStartPos = core.recStartPos;
}

BOOL CRecFile::outcome(DWORD dwCode)
{
    if (m_pAccess)
        mirror();
    if (dwCode == 0)
        return TRUE;
    if (dwCode == tqm::RecordFileCore::kEndOfRecords) {
        // Whatever last-error code the thread holds now makes the end a
        // failure: deliberate, callers clear the code before they read on to
        // the end and rely on it either way.
        return ::GetLastError() != 0 ? error(kSystemError) : FALSE;
    }
    return error(dwCode);
}

BOOL CRecFile::getFullPath(const char* pszPath)
{
    m_strPath = pszPath;
    if (!pszPath || !*pszPath) {
        ::SetLastError(ERROR_INVALID_NAME);
        return FALSE;
    }
    char szFull[MAX_PATH];
    DWORD dwLength = ::GetFullPathNameA(pszPath, MAX_PATH, szFull, nullptr);
    if (dwLength == 0)
        return FALSE;
    if (dwLength >= MAX_PATH) {
        ::SetLastError(ERROR_FILENAME_EXCED_RANGE);
        return FALSE;
    }
    m_strPath = szFull;
    return TRUE;
}

BOOL CRecFile::seek(DWORD dwPos, DWORD dwMethod)
{
    if (dwPos == kUnknown && dwMethod == FILE_BEGIN)
        return error(ERROR_INVALID_FUNCTION);
    if (dwMethod != FILE_BEGIN && dwMethod != FILE_END)
        return error(ERROR_INVALID_FUNCTION);
    tqm::RecordFileCore* pCore = core();
    if (!pCore) {
        // No file: the system refuses to move on the handle, with its own code.
        resetSeek();
        LARGE_INTEGER distance = {};
        if (!::SetFilePointerEx(m_hFile, distance, nullptr, dwMethod))
            return error(kSystemError);
        return error(ERROR_INVALID_HANDLE);
    }
    if (dwMethod == FILE_BEGIN)
        return outcome(pCore->Seek(dwPos));
    return outcome(pCore->SeekFromEnd(static_cast<LONG>(dwPos)));
}

// ---- creating ----------------------------------------------------------

BOOL CRecFile::create(const char* pszPath, DWORD dwFileType, DWORD dwVersion, const char* pszDesc)
{
    if (isOpen() || m_nMode != kModeNone || !pszDesc || strnlen(pszDesc, tqm::kMaxDescriptionLength + 1) >
                                                            tqm::kMaxDescriptionLength)
        return error(ERROR_INVALID_FUNCTION);
    clearData();
    if (!getFullPath(pszPath))
        return error(kSystemError);
    HANDLE hFile = ::CreateFileA(m_strPath, GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                 FILE_ATTRIBUTE_NORMAL, nullptr);
    if (hFile == INVALID_HANDLE_VALUE || !attachFile(hFile))
        return error(kSystemError);

    ::GetLocalTime(&m_CreationTime);
    m_strDesc = pszDesc;
    const SYSTEMTIME& t = m_CreationTime;
    DWORD dwError = core()->Create(dwFileType, dwVersion,
                                   {t.wYear, t.wMonth, t.wDay, t.wHour, t.wMinute, t.wSecond}, pszDesc);
    mirror();
    if (dwError == 0)
        return TRUE;

    // Nothing half-made stays behind.
    releaseFile();
    ::DeleteFileA(m_strPath);
    clearData();
    return error(dwError);
}

// ---- opening -----------------------------------------------------------

BOOL CRecFile::open(const char* pszPath, DWORD dwFileType, BOOL bWrite)
{
    if (isOpen() || m_nMode != kModeNone)
        return error(ERROR_INVALID_FUNCTION);
    clearData();
    if (!getFullPath(pszPath))
        return error(kSystemError);
    DWORD dwAccess = GENERIC_READ | (bWrite ? GENERIC_WRITE : 0);
    HANDLE hFile = ::CreateFileA(m_strPath, dwAccess, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (hFile == INVALID_HANDLE_VALUE || !attachFile(hFile))
        return error(kSystemError);

    tqm::RecordFileCore& opened = *core();
    if (DWORD dwError = opened.Open(dwFileType, bWrite != FALSE)) {
        releaseFile();
        clearData();
        return error(dwError);
    }
    mirror();
    memset(&m_CreationTime, 0, sizeof(m_CreationTime));
    m_CreationTime.wYear = static_cast<WORD>(opened.created.year);
    m_CreationTime.wMonth = static_cast<WORD>(opened.created.month);
    m_CreationTime.wDay = static_cast<WORD>(opened.created.day);
    m_CreationTime.wHour = static_cast<WORD>(opened.created.hour);
    m_CreationTime.wMinute = static_cast<WORD>(opened.created.minute);
    m_CreationTime.wSecond = static_cast<WORD>(opened.created.second);
    m_strDesc = opened.description.c_str();
    // Records are appended.
    if (bWrite && !seek(0, FILE_END))
        return FALSE;
    return TRUE;
}

// ---- closing -----------------------------------------------------------

BOOL CRecFile::close()
{
    if (!isOpen()) {
        clearData();
        return FALSE;
    }
    if (!releaseFile()) {
        DWORD dwError = ::GetLastError();
        clearData();
        return error(dwError);
    }
    clearData();
    return TRUE;
}

// ---- attributes --------------------------------------------------------
// Asking while no file is open is a call in the wrong state, as for every
// other member.

BOOL CRecFile::getFileType(DWORD& dwType)
{
    dwType = kUnknown;
    if (!isOpen())
        return error(ERROR_INVALID_FUNCTION);
    dwType = m_dwFileType;
    return TRUE;
}

BOOL CRecFile::getVersion(DWORD& dwVersion)
{
    dwVersion = kUnknown;
    if (!isOpen())
        return error(ERROR_INVALID_FUNCTION);
    dwVersion = m_dwVersion;
    return TRUE;
}

BOOL CRecFile::getCreationTime(SYSTEMTIME* pTime)
{
    if (!isOpen() || !pTime)
        return error(ERROR_INVALID_FUNCTION);
    *pTime = m_CreationTime;
    return TRUE;
}

BOOL CRecFile::getCreationTime(CString& str)
{
    str.Empty();
    if (!isOpen())
        return error(ERROR_INVALID_FUNCTION);
    const SYSTEMTIME& t = m_CreationTime;
    str.Format("%02u/%02u/%04u %02u:%02u:%02u", t.wDay, t.wMonth, t.wYear, t.wHour, t.wMinute, t.wSecond);
    return TRUE;
}

const char* CRecFile::GetDesc() { return isOpen() ? m_strDesc.GetString() : nullptr; }

CRecFile::tagRECHDR* CRecFile::GetRecHdr() { return isOpen() && m_nRecState >= 2 ? &m_RecHdr : nullptr; }

DWORD CRecFile::GetRecType() { return isOpen() && m_nRecState >= 2 ? m_RecHdr.dwRecType : kUnknown; }

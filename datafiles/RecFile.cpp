// CRecFile: construction, creating, opening and closing, failures and the
// attributes of the open file.
#include "datafiles/RecFile.h"

#include "datafiles/RecFileIo.h"
#include "datafiles/logic/RecordChecksum.h"
#include "datafiles/logic/RecordDescriptor.h"
#include "datafiles/logic/RecordHeader.h"

#include <string.h>

#include <string>

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

enum RecState
{
    kNoPosition = 0,
    kAtBoundary = 1
};

// The code a failure reports: the system's, or the given one when the
// failure had no system call behind it.
DWORD failureCode(DWORD dwWithoutSystemCode)
{
    DWORD dwError = ::GetLastError();
    return dwError ? dwError : dwWithoutSystemCode;
}

}  // namespace

CRecFile::CRecFile(BOOL bThrow) : m_bThrow(bThrow), m_hFile(INVALID_HANDLE_VALUE), m_pIo(nullptr)
{
    clearData();
}

CRecFile::~CRecFile()
{
    if (isOpen())
        releaseFile(true);
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
        releaseFile(true);
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
    m_pIo = tqm::RecFileIo::Attach(hFile);
    if (!m_pIo) {
        DWORD dwError = ::GetLastError();
        ::CloseHandle(hFile);
        ::SetLastError(dwError);
        return FALSE;
    }
    m_hFile = hFile;
    return TRUE;
}

// Closes the file. With bWritePending the bytes still gathered go to disk
// first, so that the file holds exactly what was written through the object.
// FALSE, with the system's code as the last error, when that or closing failed.
BOOL CRecFile::releaseFile(bool bWritePending)
{
    BOOL bOk = TRUE;
    DWORD dwError = 0;
    if (m_pIo) {
        if (bWritePending && !m_pIo->flush()) {
            bOk = FALSE;
            dwError = ::GetLastError();
        }
        delete m_pIo;
        m_pIo = nullptr;
    }
    if (m_hFile != INVALID_HANDLE_VALUE && !::CloseHandle(m_hFile) && bOk) {
        bOk = FALSE;
        dwError = ::GetLastError();
    }
    m_hFile = INVALID_HANDLE_VALUE;
    if (!bOk)
        ::SetLastError(dwError);
    return bOk;
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
    if (dwPos == kUnknown)
        return error(ERROR_INVALID_FUNCTION);
    resetSeek();
    bool bOk = false;
    if (dwMethod == FILE_BEGIN)
        bOk = m_pIo->seek(dwPos);
    else if (dwMethod == FILE_END)
        bOk = m_pIo->seekFromEnd(static_cast<LONG>(dwPos));
    else
        return error(ERROR_INVALID_FUNCTION);
    if (!bOk)
        return error(kSystemError);
    m_nRecState = kAtBoundary;
    return TRUE;
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
    // CreateFile leaves "already exists" behind when it truncated a file; a
    // later failure without a code of its own is a write fault, not that.
    ::SetLastError(ERROR_SUCCESS);

    m_nMode = kModeWrite;
    m_dwFileType = dwFileType;
    m_dwVersion = dwVersion;
    ::GetLocalTime(&m_CreationTime);
    m_strDesc = pszDesc;
    if (writeFileHead())
        return TRUE;

    // Nothing half-made stays behind.
    DWORD dwError = failureCode(ERROR_WRITE_FAULT);
    if (m_pIo)
        m_pIo->discard();
    releaseFile(false);
    ::DeleteFileA(m_strPath);
    clearData();
    return error(dwError);
}

// The magic and the descriptor record of a new file.
BOOL CRecFile::writeFileHead()
{
    if (!m_pIo->write(tqm::kFileMagic, tqm::kFileMagicSize))
        return FALSE;
    m_nRecState = kAtBoundary;
    tqm::RecordDescriptor descriptor;
    descriptor.fileType = m_dwFileType;
    descriptor.version = m_dwVersion;
    descriptor.day = m_CreationTime.wDay;
    descriptor.month = m_CreationTime.wMonth;
    descriptor.year = m_CreationTime.wYear;
    descriptor.hour = m_CreationTime.wHour;
    descriptor.minute = m_CreationTime.wMinute;
    descriptor.second = m_CreationTime.wSecond;
    descriptor.description = m_strDesc.GetString();
    std::string text = tqm::FormatRecordDescriptor(descriptor);
    // The text goes with its terminating zero byte.
    return writeRec(0, 1, static_cast<DWORD>(text.size() + 1), text.c_str());
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
    // From here a failure without a system code means the contents are wrong.
    ::SetLastError(ERROR_SUCCESS);

    m_nMode = bWrite ? kModeWrite : kModeRead;
    if (!readFileHead(dwFileType)) {
        DWORD dwError = failureCode(ERROR_BAD_FORMAT);
        releaseFile(false);
        clearData();
        return error(dwError);
    }
    // Records are appended.
    if (bWrite && !seek(0, FILE_END))
        return FALSE;
    m_nRecState = kAtBoundary;
    return TRUE;
}

// Reads and checks the magic (or the old text line) and the descriptor;
// leaves the position behind the descriptor.
BOOL CRecFile::readFileHead(DWORD dwFileType)
{
    BYTE magic[tqm::kFileMagicSize];
    DWORD dwRead = 0;
    if (!m_pIo->read(magic, sizeof(magic), &dwRead))
        return FALSE;
    if (dwRead != sizeof(magic) || memcmp(magic, tqm::kFileMagic, sizeof(magic)) != 0) {
        BYTE head[tqm::kLegacyHeadSize] = {};
        if (!m_pIo->seek(0) || !m_pIo->read(head, sizeof(head), &dwRead))
            return FALSE;
        if (head[sizeof(head) - 1] == tqm::kLegacyEofMark) {
            // The end-of-file mark is followed by one byte of any value.
            head[sizeof(head) - 1] = 0;
            BYTE extra;
            if (!m_pIo->read(&extra, 1, &dwRead))
                return FALSE;
        }
        if (!tqm::IsLegacyFileHead(head))
            return FALSE;
    }
    m_dwFirstRecPos = m_pIo->position();

    LARGE_INTEGER size;
    if (!::GetFileSizeEx(m_hFile, &size))
        return FALSE;
    if (size.QuadPart > 0xFFFFFFFFLL)  // offsets are 32 bits wide
        return FALSE;
    m_dwFileSize = size.LowPart;

    // The descriptor header's magic and type are not checked: files of some
    // writers carry other values there.
    BYTE rawHeader[tqm::kRecordHeaderSize];
    if (!m_pIo->read(rawHeader, sizeof(rawHeader), &dwRead) || dwRead != sizeof(rawHeader))
        return FALSE;
    tqm::RecordHeader header = tqm::DecodeRecordHeader(rawHeader);
    if (header.length < tqm::kMinDescriptorLength || header.length > tqm::kMaxDescriptorLength)
        return FALSE;
    char text[tqm::kMaxDescriptorLength];
    if (!m_pIo->read(text, header.length, &dwRead) || dwRead != header.length)
        return FALSE;

    tqm::RecordDescriptor descriptor;
    if (!tqm::ParseRecordDescriptor(text, header.length, descriptor))
        return FALSE;
    if (tqm::RecordChecksum(descriptor.fileType, text, header.length) != header.checksum)
        return FALSE;
    if (dwFileType != kUnknown && dwFileType != descriptor.fileType)
        return FALSE;

    m_dwFileType = descriptor.fileType;
    m_dwVersion = descriptor.version;
    memset(&m_CreationTime, 0, sizeof(m_CreationTime));
    m_CreationTime.wYear = static_cast<WORD>(descriptor.year);
    m_CreationTime.wMonth = static_cast<WORD>(descriptor.month);
    m_CreationTime.wDay = static_cast<WORD>(descriptor.day);
    m_CreationTime.wHour = static_cast<WORD>(descriptor.hour);
    m_CreationTime.wMinute = static_cast<WORD>(descriptor.minute);
    m_CreationTime.wSecond = static_cast<WORD>(descriptor.second);
    m_strDesc = descriptor.description.c_str();
    return TRUE;
}

// ---- closing -----------------------------------------------------------

BOOL CRecFile::close()
{
    if (!isOpen()) {
        clearData();
        return FALSE;
    }
    if (!releaseFile(true)) {
        DWORD dwError = ::GetLastError();
        clearData();
        return error(dwError);
    }
    clearData();
    return TRUE;
}

// ---- attributes --------------------------------------------------------
// Asking while no file is open is no misuse that would close anything: these
// answer with their "none" value and leave the object and the last-error
// code as they are.

BOOL CRecFile::GetFileType(DWORD& dwType)
{
    dwType = kUnknown;
    if (!isOpen())
        return FALSE;
    dwType = m_dwFileType;
    return TRUE;
}

BOOL CRecFile::GetVersion(DWORD& dwVersion)
{
    dwVersion = kUnknown;
    if (!isOpen())
        return FALSE;
    dwVersion = m_dwVersion;
    return TRUE;
}

BOOL CRecFile::GetCreationTime(SYSTEMTIME* pTime)
{
    if (!isOpen() || !pTime)
        return FALSE;
    *pTime = m_CreationTime;
    return TRUE;
}

BOOL CRecFile::GetCreationTime(CString& str)
{
    str.Empty();
    if (!isOpen())
        return FALSE;
    const SYSTEMTIME& t = m_CreationTime;
    str.Format("%02u/%02u/%04u %02u:%02u:%02u", t.wDay, t.wMonth, t.wYear, t.wHour, t.wMinute, t.wSecond);
    return TRUE;
}

const char* CRecFile::GetDesc() { return isOpen() ? m_strDesc.GetString() : nullptr; }

CRecFile::tagRECHDR* CRecFile::GetRecHdr() { return isOpen() && m_nRecState >= 2 ? &m_RecHdr : nullptr; }

DWORD CRecFile::GetRecType() { return isOpen() && m_nRecState >= 2 ? m_RecHdr.dwRecType : kUnknown; }

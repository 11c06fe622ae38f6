// A record file's bytes in a file.
#include "datafiles/RecFileStore.h"

namespace tqm {
namespace {

bool moveTo(HANDLE hFile, uint64_t pos)
{
    LARGE_INTEGER distance;
    distance.QuadPart = static_cast<LONGLONG>(pos);
    return ::SetFilePointerEx(hFile, distance, nullptr, FILE_BEGIN) != FALSE;
}

// The system's code of the failure just seen; a failure without one still is one.
uint32_t lastError(uint32_t fallback)
{
    DWORD dwError = ::GetLastError();
    return dwError ? dwError : fallback;
}

}  // namespace

uint32_t FileRecordStore::ReadAt(uint64_t pos, void* p, uint32_t n, uint32_t* pDone)
{
    *pDone = 0;
    DWORD dwLastError = ::GetLastError();
    DWORD dwDone = 0;
    if (!moveTo(m_hFile, pos))
        return lastError(ERROR_SEEK);
    if (::ReadFile(m_hFile, p, n, &dwDone, nullptr)) {
        *pDone = dwDone;
        ::SetLastError(dwLastError);  // see below
        return 0;
    }
    if (::GetLastError() != ERROR_HANDLE_EOF)
        return lastError(ERROR_READ_FAULT);
    // Reading at the end brings nothing and, as a read without an offset
    // would, leaves the thread's last-error code alone: the record file
    // decides by it whether its end was a failure.
    ::SetLastError(dwLastError);
    return 0;
}

uint32_t FileRecordStore::WriteAt(uint64_t pos, const void* p, uint32_t n)
{
    DWORD dwWritten = 0;
    if (!moveTo(m_hFile, pos))
        return lastError(ERROR_SEEK);
    // A disk that fills up takes what fits and reports success for that
    // (Wine does, as the file system below it does); writing the rest then
    // fails with the system's own reason, a full disk. A write that takes
    // nothing and still succeeds has no reason to give.
    const BYTE* bytes = static_cast<const BYTE*>(p);
    for (uint32_t left = n; left > 0; left -= dwWritten, bytes += dwWritten) {
        if (!::WriteFile(m_hFile, bytes, left, &dwWritten, nullptr))
            return lastError(ERROR_WRITE_FAULT);
        if (dwWritten == 0)
            return ERROR_WRITE_FAULT;
    }
    return 0;
}

uint32_t FileRecordStore::Size(uint64_t* pSize)
{
    LARGE_INTEGER size;
    if (!::GetFileSizeEx(m_hFile, &size))
        return lastError(ERROR_INVALID_HANDLE);
    *pSize = static_cast<uint64_t>(size.QuadPart);
    return 0;
}

}  // namespace tqm

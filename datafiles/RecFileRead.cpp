// CRecFile: finding records and reading their data.
#include "datafiles/RecFile.h"

#include "datafiles/RecFileIo.h"
#include "datafiles/logic/RecordChecksum.h"
#include "datafiles/logic/RecordHeader.h"

namespace {

constexpr DWORD kAnyType = 0xFFFFFFFF;

enum RecState
{
    kAtBoundary = 1,
    kHeaderDone = 2,
    kDataPartly = 3,
    kDataComplete = 4
};

}  // namespace

BOOL CRecFile::findNextRec(DWORD dwRecType)
{
    if (!isReading())
        return error(ERROR_INVALID_FUNCTION);
    for (;;) {
        // Anywhere but at a record boundary, the next record is where the
        // current one ends. With no position at all that is offset 0, whose
        // bytes are no record header: after the end of the file only Rewind
        // or SeekToRecord go on.
        if (m_nRecState != kAtBoundary && !seek(m_dwNextRecPos, FILE_BEGIN))
            return FALSE;
        DWORD dwHeaderPos = m_pIo->position();
        BYTE raw[tqm::kRecordHeaderSize];
        DWORD dwRead = 0;
        if (!m_pIo->read(raw, sizeof(raw), &dwRead) || dwRead != sizeof(raw)) {
            // The end of the file. Whatever last-error code the thread holds
            // now makes it a failure: deliberate, callers clear the code
            // before they read on to the end and rely on it either way.
            if (::GetLastError() != 0)
                return error(0xFFFFFFFF);
            resetSeek();
            return FALSE;
        }
        tqm::RecordHeader header = tqm::DecodeRecordHeader(raw);
        m_RecHdr = {header.magic, header.type, header.param, header.length, header.checksum};
        ULONGLONG ullEnd = ULONGLONG(dwHeaderPos) + sizeof(raw) + header.length;
        if (header.magic != tqm::kRecordMagic || ullEnd > m_dwFileSize)
            return error(ERROR_SEEK);
        m_dwRunningSum = tqm::RecordChecksumStart(m_dwFileType);
        m_dwDataDone = 0;
        m_dwNextRecPos = static_cast<DWORD>(ullEnd);
        m_nRecState = kHeaderDone;
        if (dwRecType == kAnyType || dwRecType == header.type)
            return TRUE;
    }
}

BOOL CRecFile::rewind()
{
    if (!isReading())
        return error(ERROR_INVALID_FUNCTION);
    return seek(m_dwFirstRecPos, FILE_BEGIN);
}

BOOL CRecFile::seekToRecord(DWORD dwPos)
{
    if (!isReading())
        return error(ERROR_INVALID_FUNCTION);
    if (!seek(dwPos, FILE_BEGIN))
        return FALSE;
    return findNextRec(kAnyType);
}

BOOL CRecFile::readRecBegin(tagRECHDR* pHdr)
{
    if (!isReading() || m_nRecState != kHeaderDone)
        return error(ERROR_INVALID_FUNCTION);
    if (pHdr)
        *pHdr = m_RecHdr;
    m_dwDataDone = 0;
    return TRUE;
}

BOOL CRecFile::readRecData(void* pData, DWORD dwSize)
{
    if (!isReading() || (m_nRecState != kHeaderDone && m_nRecState != kDataPartly) ||
        ULONGLONG(m_dwDataDone) + dwSize > m_RecHdr.dwDataLength || (!pData && dwSize))
        return error(ERROR_INVALID_FUNCTION);
    DWORD dwRead = 0;
    if (!m_pIo->read(pData, dwSize, &dwRead))
        return error(0xFFFFFFFF);
    // The record lay within the file when its header was read, and nobody
    // else can write to the file.
    if (dwRead != dwSize)
        return error(ERROR_HANDLE_EOF);
    m_dwRunningSum = checksum(m_dwRunningSum, pData, dwSize);
    m_dwDataDone += dwSize;
    m_nRecState = m_dwDataDone == m_RecHdr.dwDataLength ? kDataComplete : kDataPartly;
    return TRUE;
}

BOOL CRecFile::readRecEnd()
{
    if (!isReading() || m_nRecState != kDataComplete)
        return error(ERROR_INVALID_FUNCTION);
    if (tqm::RecordChecksumFinish(m_dwFileType, m_dwRunningSum) != m_RecHdr.dwChecksum)
        return error(ERROR_CRC);
    m_nRecState = kAtBoundary;
    return TRUE;
}

BOOL CRecFile::readRec(void* pData, DWORD dwSize)
{
    return readRecBegin(nullptr) && readRecData(pData, dwSize) && readRecEnd();
}

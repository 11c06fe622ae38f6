// CRecFile: writing records.
#include "datafiles/RecFile.h"

#include "datafiles/RecFileIo.h"
#include "datafiles/logic/RecordChecksum.h"
#include "datafiles/logic/RecordHeader.h"

#include <string.h>

namespace {

enum RecState
{
    kAtBoundary = 1,
    kHeaderDone = 2
};

}  // namespace

BOOL CRecFile::writeRecBegin(DWORD dwRecType, DWORD dwRecParam)
{
    if (!isWriting() || m_nRecState != kAtBoundary)
        return error(ERROR_INVALID_FUNCTION);
    m_dwRecStartPos = m_pIo->position();
    // Length and checksum stay 0 until the record is finished.
    m_RecHdr = {tqm::kRecordMagic, dwRecType, dwRecParam, 0, 0};
    BYTE raw[tqm::kRecordHeaderSize];
    tqm::EncodeRecordHeader({tqm::kRecordMagic, dwRecType, dwRecParam, 0, 0}, raw);
    if (!m_pIo->write(raw, sizeof(raw)))
        return error(0xFFFFFFFF);
    m_dwRunningSum = tqm::RecordChecksumStart(m_dwFileType);
    m_dwDataDone = 0;
    m_nRecState = kHeaderDone;
    return TRUE;
}

BOOL CRecFile::writeRecData(const void* pData, DWORD dwSize)
{
    if (!isWriting() || m_nRecState != kHeaderDone || (!pData && dwSize))
        return error(ERROR_INVALID_FUNCTION);
    if (!m_pIo->write(pData, dwSize))
        return error(0xFFFFFFFF);
    m_dwRunningSum = checksum(m_dwRunningSum, pData, dwSize);
    m_dwDataDone += dwSize;
    return TRUE;
}

// Fills in the record's length and checksum. While the record's header is
// still gathered in memory (the usual case) that happens there, and the
// record goes to disk with the records around it when the buffer is full or
// the file is closed: the file is not shared, so nobody can look at it
// before. A record too large for the buffer is partly on disk already: then
// its header is read back and checked for magic, type and parameter before
// the two fields are written in place.
BOOL CRecFile::writeRecEnd()
{
    if (!isWriting() || m_nRecState != kHeaderDone)
        return error(ERROR_INVALID_FUNCTION);
    m_RecHdr.dwDataLength = m_dwDataDone;
    m_RecHdr.dwChecksum = tqm::RecordChecksumFinish(m_dwFileType, m_dwRunningSum);
    BYTE raw[tqm::kRecordHeaderSize];
    tqm::EncodeRecordHeader({m_RecHdr.dwMagic, m_RecHdr.dwRecType, m_RecHdr.dwRecParam, m_RecHdr.dwDataLength,
                             m_RecHdr.dwChecksum},
                            raw);
    const BYTE* pTail = raw + tqm::kRecordHeaderLengthOffset;
    const DWORD dwTailSize = tqm::kRecordHeaderSize - tqm::kRecordHeaderLengthOffset;

    if (BYTE* pGathered = m_pIo->pendingBytes(m_dwRecStartPos, tqm::kRecordHeaderSize)) {
        // Only this object writes the buffer, so the header there is unchanged.
        memcpy(pGathered + tqm::kRecordHeaderLengthOffset, pTail, dwTailSize);
    } else {
        BYTE onDisk[tqm::kRecordHeaderIdentitySize];
        DWORD dwRead = 0;
        if (!m_pIo->seek(m_dwRecStartPos) || !m_pIo->read(onDisk, sizeof(onDisk), &dwRead))
            return error(0xFFFFFFFF);
        if (dwRead != sizeof(onDisk) || memcmp(onDisk, raw, sizeof(onDisk)) != 0)
            return error(ERROR_SEEK);
        if (!m_pIo->write(pTail, dwTailSize) || !m_pIo->seekFromEnd(0))
            return error(0xFFFFFFFF);
    }
    m_dwRecStartPos = 0xFFFFFFFF;
    m_nRecState = kAtBoundary;
    return TRUE;
}

BOOL CRecFile::writeRec(DWORD dwRecType, DWORD dwRecParam, DWORD dwSize, const void* pData)
{
    return writeRecBegin(dwRecType, dwRecParam) && writeRecData(pData, dwSize) && writeRecEnd();
}

DWORD CRecFile::getRecFilePointer()
{
    if (!isWriting() || m_nRecState != kAtBoundary) {
        error(ERROR_INVALID_FUNCTION);
        return 0xFFFFFFFF;
    }
    return m_pIo->position();
}

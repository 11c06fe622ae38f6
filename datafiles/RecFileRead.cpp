// CRecFile: finding records and reading their data.
#include "datafiles/RecFile.h"

#include "datafiles/RecFileAccess.h"

BOOL CRecFile::findNextRec(DWORD dwRecType)
{
    tqm::RecordFileCore* pCore = core();
    return pCore ? outcome(pCore->FindNext(dwRecType)) : error(ERROR_INVALID_FUNCTION);
}

// In any mode: back to the descriptor record. Without a file, the system's
// refusal to move is the failure.
BOOL CRecFile::rewind() { return seek(m_dwFirstRecPos, FILE_BEGIN); }

BOOL CRecFile::seekToRecord(DWORD dwPos)
{
    tqm::RecordFileCore* pCore = core();
    return pCore ? outcome(pCore->SeekToRecord(dwPos)) : error(ERROR_INVALID_FUNCTION);
}

BOOL CRecFile::readRecBegin(tagRECHDR* pHdr)
{
    tqm::RecordFileCore* pCore = core();
    if (!pCore)
        return error(ERROR_INVALID_FUNCTION);
    if (!outcome(pCore->ReadBegin()))
        return FALSE;
    if (pHdr)
        *pHdr = m_RecHdr;
    return TRUE;
}

BOOL CRecFile::readRecData(void* pData, DWORD dwSize)
{
    tqm::RecordFileCore* pCore = core();
    return pCore ? outcome(pCore->ReadData(pData, dwSize)) : error(ERROR_INVALID_FUNCTION);
}

BOOL CRecFile::readRecEnd()
{
    tqm::RecordFileCore* pCore = core();
    return pCore ? outcome(pCore->ReadEnd()) : error(ERROR_INVALID_FUNCTION);
}

BOOL CRecFile::readRec(void* pData, DWORD dwSize)
{
    return readRecBegin(nullptr) && readRecData(pData, dwSize) && readRecEnd();
}

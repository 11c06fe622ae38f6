// CRecFile: finding records and reading their data.
#include "datafiles/RecFile.h"

#include "datafiles/RecFileAccess.h"

BOOL CRecFile::findNextRec(DWORD dwRecType)
{
    if (!m_pAccess)
        return error(ERROR_INVALID_FUNCTION);
    return outcome(m_pAccess->core->FindNext(dwRecType));
}

BOOL CRecFile::rewind()
{
    if (!m_pAccess)
        return error(ERROR_INVALID_FUNCTION);
    return outcome(m_pAccess->core->Rewind());
}

BOOL CRecFile::seekToRecord(DWORD dwPos)
{
    if (!m_pAccess)
        return error(ERROR_INVALID_FUNCTION);
    return outcome(m_pAccess->core->SeekToRecord(dwPos));
}

BOOL CRecFile::readRecBegin(tagRECHDR* pHdr)
{
    if (!m_pAccess)
        return error(ERROR_INVALID_FUNCTION);
    if (!outcome(m_pAccess->core->ReadBegin()))
        return FALSE;
    if (pHdr)
        *pHdr = m_RecHdr;
    return TRUE;
}

BOOL CRecFile::readRecData(void* pData, DWORD dwSize)
{
    if (!m_pAccess)
        return error(ERROR_INVALID_FUNCTION);
    return outcome(m_pAccess->core->ReadData(pData, dwSize));
}

BOOL CRecFile::readRecEnd()
{
    if (!m_pAccess)
        return error(ERROR_INVALID_FUNCTION);
    return outcome(m_pAccess->core->ReadEnd());
}

BOOL CRecFile::readRec(void* pData, DWORD dwSize)
{
    return readRecBegin(nullptr) && readRecData(pData, dwSize) && readRecEnd();
}

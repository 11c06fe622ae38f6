// CRecFile: writing records.
#include "datafiles/RecFile.h"

#include "datafiles/RecFileAccess.h"

BOOL CRecFile::writeRecBegin(DWORD dwRecType, DWORD dwRecParam)
{
    if (!m_pAccess)
        return error(ERROR_INVALID_FUNCTION);
    return outcome(m_pAccess->core->WriteBegin(dwRecType, dwRecParam));
}

BOOL CRecFile::writeRecData(const void* pData, DWORD dwSize)
{
    if (!m_pAccess)
        return error(ERROR_INVALID_FUNCTION);
    return outcome(m_pAccess->core->WriteData(pData, dwSize));
}

BOOL CRecFile::writeRecEnd()
{
    if (!m_pAccess)
        return error(ERROR_INVALID_FUNCTION);
    return outcome(m_pAccess->core->WriteEnd());
}

BOOL CRecFile::writeRec(DWORD dwRecType, DWORD dwRecParam, DWORD dwSize, const void* pData)
{
    return writeRecBegin(dwRecType, dwRecParam) && writeRecData(pData, dwSize) && writeRecEnd();
}

DWORD CRecFile::getRecFilePointer()
{
    if (!m_pAccess) {
        error(ERROR_INVALID_FUNCTION);
        return 0xFFFFFFFF;
    }
    DWORD dwPos = 0;
    uint32_t pos = 0;
    if (!outcome(m_pAccess->core->RecFilePointer(&pos)))
        return 0xFFFFFFFF;
    dwPos = pos;
    return dwPos;
}

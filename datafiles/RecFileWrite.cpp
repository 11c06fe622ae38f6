// CRecFile: writing records.
#include "datafiles/RecFile.h"

#include "datafiles/RecFileAccess.h"

BOOL CRecFile::writeRecBegin(DWORD dwRecType, DWORD dwRecParam)
{
    tqm::RecordFileCore* pCore = core();
    return pCore ? outcome(pCore->WriteBegin(dwRecType, dwRecParam)) : error(ERROR_INVALID_FUNCTION);
}

BOOL CRecFile::writeRecData(const void* pData, DWORD dwSize)
{
    tqm::RecordFileCore* pCore = core();
    return pCore ? outcome(pCore->WriteData(pData, dwSize)) : error(ERROR_INVALID_FUNCTION);
}

BOOL CRecFile::writeRecEnd()
{
    tqm::RecordFileCore* pCore = core();
    return pCore ? outcome(pCore->WriteEnd()) : error(ERROR_INVALID_FUNCTION);
}

// The same as WriteRecBegin, WriteRecData, WriteRecEnd, but the record is
// known whole: its header and data go to the file in one write.
BOOL CRecFile::writeRec(DWORD dwRecType, DWORD dwRecParam, DWORD dwSize, const void* pData)
{
    tqm::RecordFileCore* pCore = core();
    return pCore ? outcome(pCore->WriteRecord(dwRecType, dwRecParam, pData, dwSize)) : error(ERROR_INVALID_FUNCTION);
}

DWORD CRecFile::getRecFilePointer()
{
    tqm::RecordFileCore* pCore = core();
    uint32_t pos = 0;
    if (!pCore) {
        error(ERROR_INVALID_FUNCTION);
        return 0xFFFFFFFF;
    }
    if (!outcome(pCore->RecFilePointer(&pos)))
        return 0xFFFFFFFF;
    return pos;
}

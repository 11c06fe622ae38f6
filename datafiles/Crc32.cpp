// TQMCrc32Partial, TQMCrc32.
#include "datafiles/Crc.h"

#include "datafiles/logic/CrcUpdate.h"
#include "diag/TarnAssert.h"

DWORD WINAPI TQMCrc32Partial(DWORD dwCrc, const void* pData, UINT nLength)
{
    TARN_ASSERT(pData != nullptr || nLength == 0);
    if (!pData)
        return dwCrc;
    return tqm::Crc32Update(dwCrc, pData, nLength);
}

DWORD WINAPI TQMCrc32(const void* pData, UINT nLength) { return ~TQMCrc32Partial(0xFFFFFFFF, pData, nLength); }

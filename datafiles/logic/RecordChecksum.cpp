// The two checksum schemes of record files.
#include "datafiles/logic/RecordChecksum.h"

#include "datafiles/logic/CrcUpdate.h"

namespace tqm {

uint32_t RotateXorUpdate(uint32_t sum, const void* data, size_t length)
{
    const auto* p = static_cast<const unsigned char*>(data);
    for (size_t i = 0; i < length; ++i) {
        uint32_t c = sum ^ p[i];
        sum = (c << 1) | (c >> 31);
    }
    return sum;
}

uint32_t RecordChecksumStart(uint32_t fileType) { return fileType == kOldChecksumFileType ? 0 : 0xFFFFFFFFu; }

uint32_t RecordChecksumUpdate(uint32_t fileType, uint32_t sum, const void* data, size_t length)
{
    if (fileType == kOldChecksumFileType)
        return RotateXorUpdate(sum, data, length);
    return Crc32Update(sum, data, length);
}

uint32_t RecordChecksumFinish(uint32_t fileType, uint32_t sum)
{
    return fileType == kOldChecksumFileType ? sum : ~sum;
}

uint32_t RecordChecksum(uint32_t fileType, const void* data, size_t length)
{
    return RecordChecksumFinish(fileType, RecordChecksumUpdate(fileType, RecordChecksumStart(fileType), data, length));
}

}  // namespace tqm

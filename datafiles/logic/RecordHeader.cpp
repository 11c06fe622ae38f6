// Encoding of record headers and recognition of the old file head.
#include "datafiles/logic/RecordHeader.h"

#include <string.h>

namespace tqm {

void StoreLittleEndian32(uint32_t value, uint8_t out[4])
{
    for (int i = 0; i < 4; ++i)
        out[i] = static_cast<uint8_t>(value >> (8 * i));
}

uint32_t LoadLittleEndian32(const uint8_t in[4])
{
    return uint32_t(in[0]) | uint32_t(in[1]) << 8 | uint32_t(in[2]) << 16 | uint32_t(in[3]) << 24;
}

void EncodeRecordHeader(const RecordHeader& header, uint8_t out[kRecordHeaderSize])
{
    StoreLittleEndian32(header.magic, out);
    StoreLittleEndian32(header.type, out + 4);
    StoreLittleEndian32(header.param, out + 8);
    StoreLittleEndian32(header.length, out + 12);
    StoreLittleEndian32(header.checksum, out + 16);
}

RecordHeader DecodeRecordHeader(const uint8_t in[kRecordHeaderSize])
{
    return {LoadLittleEndian32(in), LoadLittleEndian32(in + 4), LoadLittleEndian32(in + 8),
            LoadLittleEndian32(in + 12), LoadLittleEndian32(in + 16)};
}

bool IsLegacyFileHead(const uint8_t head[kLegacyHeadSize])
{
    return memcmp(head, kLegacyFileLine, kLegacyHeadSize) == 0;
}

}  // namespace tqm

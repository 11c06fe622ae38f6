// RecordHeader, EncodeRecordHeader, DecodeRecordHeader, IsLegacyFileHead -
// the fixed parts of a record file.
//
// A record file starts with the magic "TARN" (older files: a text line, see
// below), then the descriptor record, then data records. Every record is a
// 20-byte header - five unsigned 32-bit little-endian fields - followed by
// its data.
#pragma once

#include <stddef.h>
#include <stdint.h>

namespace tqm {

constexpr size_t kFileMagicSize = 4;
constexpr char kFileMagic[kFileMagicSize + 1] = "TARN";
constexpr uint32_t kRecordMagic = 0x2A2A2A2Au;  // "****"
constexpr size_t kRecordHeaderSize = 20;

// Offsets of the fields inside an encoded header.
constexpr size_t kRecordHeaderLengthOffset = 12;  // dwDataLength, then dwChecksum
constexpr size_t kRecordHeaderIdentitySize = 12;  // magic, type, parameter

struct RecordHeader
{
    uint32_t magic;
    uint32_t type;
    uint32_t param;
    uint32_t length;    // data bytes after the header
    uint32_t checksum;  // of the data only
};

void EncodeRecordHeader(const RecordHeader& header, uint8_t out[kRecordHeaderSize]);
RecordHeader DecodeRecordHeader(const uint8_t in[kRecordHeaderSize]);

void StoreLittleEndian32(uint32_t value, uint8_t out[4]);
uint32_t LoadLittleEndian32(const uint8_t in[4]);

// Files written before the magic existed start with this 41-character line,
// then either a zero byte (records from offset 42) or the byte 0x1A and one
// more byte of any value (records from offset 43).
constexpr char kLegacyFileLine[] = "Tarn-Holmvik Leitwerk AG, CH-9000 Lorvik\n";
constexpr size_t kLegacyHeadSize = sizeof(kLegacyFileLine);  // the line and its zero byte: 42
constexpr uint8_t kLegacyEofMark = 0x1A;

// True when the first 42 bytes of a file are the old line and its zero byte.
// The caller has already turned a 0x1A in the last place into a zero.
bool IsLegacyFileHead(const uint8_t head[kLegacyHeadSize]);

}  // namespace tqm

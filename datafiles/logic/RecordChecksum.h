// RecordChecksumStart, RecordChecksumUpdate, RecordChecksumFinish - the two
// data checksums of record files.
//
// The file type in a record file's descriptor chooses the scheme for every
// record of the file, the descriptor included:
// - type 1, the old scheme: from 0, each byte is folded in by exclusive-or
//   and the sum rotated left by one bit; no final step;
// - every other type: the standard CRC-32 (from 0xFFFFFFFF, inverted at the end).
#pragma once

#include <stddef.h>
#include <stdint.h>

namespace tqm {

// The file type whose records carry the old rotate-and-exclusive-or sum.
constexpr uint32_t kOldChecksumFileType = 1;

// The running value a record's checksum starts from.
uint32_t RecordChecksumStart(uint32_t fileType);
// The running value after the bytes.
uint32_t RecordChecksumUpdate(uint32_t fileType, uint32_t sum, const void* data, size_t length);
// The checksum stored in a record header, from the running value.
uint32_t RecordChecksumFinish(uint32_t fileType, uint32_t sum);
// The stored checksum of a whole block of data.
uint32_t RecordChecksum(uint32_t fileType, const void* data, size_t length);

// The old scheme's running value after the bytes.
uint32_t RotateXorUpdate(uint32_t sum, const void* data, size_t length);

}  // namespace tqm

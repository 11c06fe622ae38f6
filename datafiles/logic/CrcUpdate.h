// Crc32Update, Crc16Update - the two checksum families of the library as
// running updates over bytes, with their tables.
//
// CRC-32 is the ISO-HDLC / zlib / PKZIP CRC: reflected, polynomial
// 0x04C11DB7. CRC-16 is the CCITT polynomial 0x1021, not reflected, from a
// caller-given start value (from 0 it is CRC-16/XMODEM). Both take one table
// lookup per byte.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <array>

namespace tqm {

// The reflected CRC-32 table (entry 1 is 0x77073096).
extern const std::array<uint32_t, 256> kCrc32Table;
// The non-reflected CCITT table (entry 1 is 0x1021).
extern const std::array<uint16_t, 256> kCrc16Table;

// The running CRC-32 after the bytes. Start a stream with 0xFFFFFFFF and
// invert the last result; no inversion happens here.
uint32_t Crc32Update(uint32_t crc, const void* data, size_t length);

// The running CRC-16 after the bytes; no final exclusive-or.
uint16_t Crc16Update(uint16_t crc, const void* data, size_t length);

}  // namespace tqm

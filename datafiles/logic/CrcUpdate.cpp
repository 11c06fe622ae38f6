// The CRC tables, computed by the compiler, and the byte-at-a-time updates.
#include "datafiles/logic/CrcUpdate.h"

namespace tqm {
namespace {

constexpr std::array<uint32_t, 256> makeCrc32Table()
{
    std::array<uint32_t, 256> table{};
    for (uint32_t i = 0; i < 256; ++i) {
        uint32_t c = i;
        for (int bit = 0; bit < 8; ++bit)
            c = (c & 1) ? (c >> 1) ^ 0xEDB88320u : c >> 1;
        table[i] = c;
    }
    return table;
}

// Entry i is i * 256 shifted left through eight steps, each step folding in
// the polynomial when the top bit falls out.
constexpr std::array<uint16_t, 256> makeCrc16Table()
{
    std::array<uint16_t, 256> table{};
    for (uint32_t i = 0; i < 256; ++i) {
        uint32_t c = i << 8;
        for (int bit = 0; bit < 8; ++bit)
            c = (c & 0x8000) ? (c << 1) ^ 0x1021 : c << 1;
        table[i] = static_cast<uint16_t>(c);
    }
    return table;
}

static_assert(makeCrc32Table()[1] == 0x77073096u && makeCrc32Table()[3] == 0x990951BAu, "CRC-32 table");
static_assert(makeCrc16Table()[1] == 0x1021, "CRC-16 table");

}  // namespace

// Constant-initialised: ready before any code of the process runs.
const std::array<uint32_t, 256> kCrc32Table = makeCrc32Table();
const std::array<uint16_t, 256> kCrc16Table = makeCrc16Table();

uint32_t Crc32Update(uint32_t crc, const void* data, size_t length)
{
    const auto* p = static_cast<const unsigned char*>(data);
    for (size_t i = 0; i < length; ++i)
        crc = (crc >> 8) ^ kCrc32Table[(crc ^ p[i]) & 0xFF];
    return crc;
}

uint16_t Crc16Update(uint16_t crc, const void* data, size_t length)
{
    const auto* p = static_cast<const unsigned char*>(data);
    uint32_t c = crc;
    for (size_t i = 0; i < length; ++i)
        c = (kCrc16Table[((c >> 8) ^ p[i]) & 0xFF] ^ (c << 8)) & 0xFFFF;
    return static_cast<uint16_t>(c);
}

}  // namespace tqm

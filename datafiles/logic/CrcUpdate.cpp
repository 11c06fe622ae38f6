// The CRC tables, computed by the compiler, and the updates.
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

// Slicing by eight: table k gives the CRC of byte i followed by k zero bytes,
// so eight bytes are folded in with eight independent lookups instead of a
// chain of eight. Table 0 is the plain table.
using Crc32Slices = std::array<std::array<uint32_t, 256>, 8>;

constexpr Crc32Slices makeCrc32Slices()
{
    Crc32Slices slices{};
    slices[0] = makeCrc32Table();
    for (size_t k = 1; k < slices.size(); ++k) {
        for (uint32_t i = 0; i < 256; ++i)
            slices[k][i] = (slices[k - 1][i] >> 8) ^ slices[0][slices[k - 1][i] & 0xFF];
    }
    return slices;
}

constexpr Crc32Slices kCrc32Slices = makeCrc32Slices();

uint32_t loadLittleEndian(const unsigned char* p)
{
    return uint32_t(p[0]) | uint32_t(p[1]) << 8 | uint32_t(p[2]) << 16 | uint32_t(p[3]) << 24;
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
    const Crc32Slices& t = kCrc32Slices;
    for (; length >= 8; p += 8, length -= 8) {
        uint32_t lo = crc ^ loadLittleEndian(p);
        uint32_t hi = loadLittleEndian(p + 4);
        crc = t[7][lo & 0xFF] ^ t[6][(lo >> 8) & 0xFF] ^ t[5][(lo >> 16) & 0xFF] ^ t[4][lo >> 24] ^
              t[3][hi & 0xFF] ^ t[2][(hi >> 8) & 0xFF] ^ t[1][(hi >> 16) & 0xFF] ^ t[0][hi >> 24];
    }
    for (; length > 0; ++p, --length)
        crc = (crc >> 8) ^ t[0][(crc ^ *p) & 0xFF];
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

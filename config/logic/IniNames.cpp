// NameFold - byte-wise case folding, comparison and hashing of INI names.
#include "config/logic/IniNames.h"

namespace tqm {
namespace ini {

NameFold::NameFold()
{
    for (int i = 0; i < 256; ++i)
        m_upper[i] = static_cast<unsigned char>((i >= 'a' && i <= 'z') ? i - 'a' + 'A' : i);
}

NameFold::NameFold(const unsigned char (&upper)[256])
{
    for (int i = 0; i < 256; ++i)
        m_upper[i] = upper[i];
}

bool NameFold::Equal(const char* a, const char* b) const
{
    for (;; ++a, ++b) {
        if ((*this)(*a) != (*this)(*b))
            return false;
        if (*a == '\0')
            return true;
    }
}

bool NameFold::EqualPrefix(const char* text, const char* name, size_t n) const
{
    for (size_t i = 0; i < n; ++i) {
        if ((*this)(text[i]) != (*this)(name[i]))
            return false;
        if (text[i] == '\0')
            return true;
    }
    return true;
}

uint32_t NameFold::Hash(const char* name) const
{
    // FNV-1a over the folded bytes. Its low bits depend only on the low bits
    // of the characters, and numbered names differ in little else; the final
    // mix (MurmurHash3's) spreads every bit over the whole value, since the
    // index takes the low bits.
    uint32_t h = 2166136261u;
    for (; *name; ++name) {
        h ^= (*this)(*name);
        h *= 16777619u;
    }
    h ^= h >> 16;
    h *= 0x85ebca6bu;
    h ^= h >> 13;
    h *= 0xc2b2ae35u;
    h ^= h >> 16;
    return h;
}

}  // namespace ini
}  // namespace tqm

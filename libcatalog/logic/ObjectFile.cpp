// The object-file reader: header, check words, dependency names, references.
#include "libcatalog/logic/ObjectFile.h"

#include <string.h>

#include <algorithm>

namespace tqm {
namespace {

// A read position over the file's bytes. Reading past the end, or seeking
// there, leaves the cursor failed; every later read then fails too.
class ByteCursor
{
public:
    ByteCursor(const uint8_t* data, size_t size) : m_data(data), m_size(size) {}

    bool ok() const { return m_ok; }
    size_t position() const { return m_pos; }
    const uint8_t* at(size_t pos) const { return m_data + pos; }

    // A fresh start at pos: fails only when pos lies past the end.
    void seek(uint32_t pos)
    {
        m_ok = pos <= m_size;
        if (m_ok)
            m_pos = pos;
    }

    // The next n bytes, or NULL (and failed) when fewer are left.
    const uint8_t* take(size_t n)
    {
        if (!m_ok || m_size - m_pos < n) {
            m_ok = false;
            return nullptr;
        }
        const uint8_t* p = m_data + m_pos;
        m_pos += n;
        return p;
    }

    unsigned byte()
    {
        const uint8_t* p = take(1);
        return p ? p[0] : 0;
    }
    uint16_t word()
    {
        const uint8_t* p = take(2);
        return p ? static_cast<uint16_t>(p[0] | (p[1] << 8)) : 0;
    }
    uint32_t dword()
    {
        const uint8_t* p = take(4);
        return p ? (p[0] | (p[1] << 8) | (p[2] << 16) | (static_cast<uint32_t>(p[3]) << 24)) : 0;
    }

    // A NUL-terminated string of at most kObjectFileStringSize bytes with its
    // NUL; the cursor fails when no NUL comes within that room.
    std::string string()
    {
        if (!m_ok)
            return std::string();
        const size_t room = std::min(m_size - m_pos, kObjectFileStringSize);
        const void* nul = room ? memchr(m_data + m_pos, 0, room) : nullptr;
        if (!nul) {
            m_ok = false;
            return std::string();
        }
        const size_t length = static_cast<const uint8_t*>(nul) - (m_data + m_pos);
        std::string text(reinterpret_cast<const char*>(m_data + m_pos), length);
        m_pos += length + 1;
        return text;
    }

private:
    const uint8_t* m_data;
    size_t m_size;
    size_t m_pos = 0;
    bool m_ok = true;
};

enum class HeaderCheck
{
    Match,
    Mismatch,
    Short
};

// Reads words header words and the check word from the cursor's position and
// compares the check over the words' bytes.
HeaderCheck checkHeader(ByteCursor& in, unsigned words, uint32_t* header)
{
    const size_t start = in.position();
    for (unsigned i = 0; i < words; ++i)
        header[i] = in.dword();
    const uint16_t stored = in.word();
    if (!in.ok())
        return HeaderCheck::Short;
    return UpdateCheckWord(0, in.at(start), words * 4u) == stored ? HeaderCheck::Match : HeaderCheck::Mismatch;
}

// The bytes from start up to the cursor, continued into check.
uint16_t checkSince(const ByteCursor& in, size_t start, uint16_t check)
{
    return UpdateCheckWord(check, in.at(start), in.position() - start);
}

// The 16 groups of the dependency section: a byte, a count and that many
// words each, all under one check word.
ObjectFileFault skipDependencyGroups(ByteCursor& in)
{
    const size_t start = in.position();
    for (unsigned group = 0; group < kObjectFileDependencyGroups; ++group) {
        in.byte();
        const unsigned count = in.word();
        in.take(count * 2u);
    }
    const uint16_t check = checkSince(in, start, 0);
    const uint16_t stored = in.word();
    if (!in.ok())
        return ObjectFileFault::Unreadable;
    return check == stored ? ObjectFileFault::None : ObjectFileFault::BadChecksum;
}

// A counted list of entries of stringsPerEntry strings each, the last of which
// is the name kept, then the check word over the count and all strings.
ObjectFileFault readNameList(ByteCursor& in, unsigned stringsPerEntry, std::vector<std::string>& names)
{
    const size_t start = in.position();
    const unsigned count = in.word();
    for (unsigned i = 0; i < count && in.ok(); ++i) {
        std::string name;
        for (unsigned s = 0; s < stringsPerEntry; ++s)
            name = in.string();
        if (in.ok())
            names.push_back(std::move(name));
    }
    if (!in.ok())
        return ObjectFileFault::Unreadable;
    const uint16_t check = checkSince(in, start, 0);
    const uint16_t stored = in.word();
    if (!in.ok())
        return ObjectFileFault::Unreadable;
    return check == stored ? ObjectFileFault::None : ObjectFileFault::BadChecksum;
}

}  // namespace

unsigned ObjectFileHeaderWords(unsigned version)
{
    unsigned words = 15;
    for (unsigned step : {213u, 214u, 215u, 216u, 218u}) {
        if (version >= step)
            words += 2;
    }
    if (version >= 220)
        words += 8;
    return words;
}

uint16_t UpdateCheckWord(uint16_t check, const uint8_t* data, size_t size)
{
    for (size_t i = 0; i < size; ++i) {
        const uint16_t x = static_cast<uint16_t>(check ^ data[i]);
        check = static_cast<uint16_t>((x << 1) | (x >> 15));
    }
    return check;
}

ObjectFileNames ReadObjectFileNames(const uint8_t* data, size_t size)
{
    ObjectFileNames result;
    ByteCursor in(data, size);
    in.string();
    in.string();
    result.version = in.byte();
    if (!in.ok()) {
        result.fault = ObjectFileFault::Unreadable;
        return result;
    }
    if (result.version < kLowestObjectFileVersion) {
        result.fault = ObjectFileFault::UnsupportedVersion;
        return result;
    }

    unsigned words = ObjectFileHeaderWords(result.version);
    uint32_t header[40] = {};
    const size_t headerStart = in.position();
    HeaderCheck check = checkHeader(in, words, header);
    if (check != HeaderCheck::Match && result.version == 220) {
        in.seek(static_cast<uint32_t>(headerStart));
        words -= 8;
        for (uint32_t& word : header)
            word = 0;
        check = checkHeader(in, words, header);
    }
    if (check != HeaderCheck::Match) {
        result.fault = check == HeaderCheck::Short ? ObjectFileFault::Unreadable : ObjectFileFault::BadChecksum;
        return result;
    }

    const unsigned flags = result.version <= 210 ? in.byte() : in.word();
    if (!in.ok()) {
        result.fault = ObjectFileFault::Unreadable;
        return result;
    }
    if (flags & kObjectFileDependencyFlag) {
        in.seek(header[kDependencySectionWord]);
        result.fault = skipDependencyGroups(in);
        if (result.fault == ObjectFileFault::None)
            result.fault = readNameList(in, 1, result.names);
        if (result.fault != ObjectFileFault::None)
            return result;
    }
    // Headers of 17 words or fewer have no word 17: no reference list.
    if (words > kReferenceListWord && header[kReferenceListWord] != 0) {
        in.seek(header[kReferenceListWord]);
        result.fault = readNameList(in, 2, result.names);
    }
    return result;
}

}  // namespace tqm

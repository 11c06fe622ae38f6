// The object-file reader: header, check words, dependency names, references.
#include "libcatalog/logic/ObjectFile.h"

#include <string.h>

#include <algorithm>

namespace tqm {
namespace {

// The bytes a cursor holds at a time: enough for the longest single read
// (the header, a string) many times over, and for a small file whole.
constexpr size_t kCursorBlock = 64 * 1024;

// A read position over the source's bytes, read a block at a time. Every
// byte taken continues a check word, which startCheck() sets back to 0.
// Reading past the end, seeking there, or a read error leaves the cursor
// failed; every later read then fails too.
class ByteCursor
{
public:
    explicit ByteCursor(ObjectFileSource& source) : m_source(source), m_size(source.Size()) {}

    bool ok() const { return m_ok; }
    uint64_t position() const { return m_pos; }
    void startCheck() { m_check = 0; }
    uint16_t check() const { return m_check; }

    // A fresh start at pos: fails only when pos lies past the end.
    void seek(uint64_t pos)
    {
        m_ok = pos <= m_size;
        if (m_ok)
            m_pos = pos;
    }

    // The next n bytes (at most kCursorBlock), or NULL (and failed) when
    // fewer are left. The pointer holds until the next read.
    const uint8_t* take(size_t n)
    {
        if (available(n) < n) {
            m_ok = false;
            return nullptr;
        }
        const uint8_t* p = m_block.data() + (m_pos - m_blockStart);
        m_pos += n;
        m_check = UpdateCheckWord(m_check, p, n);
        return p;
    }

    // Passes over n bytes, checking them.
    void skip(size_t n)
    {
        while (n && m_ok) {
            const size_t piece = n < kCursorBlock ? n : kCursorBlock;
            take(piece);
            n -= piece;
        }
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
        const size_t room = available(kObjectFileStringSize);
        const uint8_t* start = m_block.data() + (m_pos - m_blockStart);
        const void* nul = room ? memchr(start, 0, room) : nullptr;
        if (!nul) {
            m_ok = false;
            return std::string();
        }
        const size_t length = static_cast<const uint8_t*>(nul) - start;
        std::string text(reinterpret_cast<const char*>(start), length);
        take(length + 1);
        return text;
    }

private:
    // How many of the n bytes from the position on are in the block (fewer
    // only at the end of the file), reading a new block when needed.
    size_t available(size_t n)
    {
        if (!m_ok)
            return 0;
        const uint64_t blockEnd = m_blockStart + m_block.size();
        if (m_pos >= m_blockStart && m_pos <= blockEnd && blockEnd - m_pos >= n)
            return n;
        // A block, or the rest of a smaller file.
        const uint64_t rest = m_size > m_pos ? m_size - m_pos : 0;
        m_block.resize(rest < kCursorBlock ? static_cast<size_t>(rest) : kCursorBlock);
        size_t got = 0;
        if (!m_source.Read(m_pos, m_block.data(), m_block.size(), &got)) {
            m_block.clear();
            m_ok = false;
            return 0;
        }
        m_block.resize(got);
        m_blockStart = m_pos;
        return got < n ? got : n;
    }

    ObjectFileSource& m_source;
    const uint64_t m_size;
    std::vector<uint8_t> m_block;
    uint64_t m_blockStart = 0;
    uint64_t m_pos = 0;
    uint16_t m_check = 0;
    bool m_ok = true;
};

// A source over bytes in memory.
class MemorySource : public ObjectFileSource
{
public:
    MemorySource(const uint8_t* data, size_t size) : m_data(data), m_size(data ? size : 0) {}
    uint64_t Size() override { return m_size; }
    bool Read(uint64_t offset, uint8_t* buffer, size_t size, size_t* got) override
    {
        *got = offset < m_size ? std::min<size_t>(size, static_cast<size_t>(m_size - offset)) : 0;
        if (*got)
            memcpy(buffer, m_data + offset, *got);
        return true;
    }

private:
    const uint8_t* m_data;
    size_t m_size;
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
    in.startCheck();
    for (unsigned i = 0; i < words; ++i)
        header[i] = in.dword();
    const uint16_t computed = in.check();
    const uint16_t stored = in.word();
    if (!in.ok())
        return HeaderCheck::Short;
    return computed == stored ? HeaderCheck::Match : HeaderCheck::Mismatch;
}

// The 16 groups of the dependency section: a byte, a count and that many
// words each, all under one check word.
ObjectFileFault skipDependencyGroups(ByteCursor& in)
{
    in.startCheck();
    for (unsigned group = 0; group < kObjectFileDependencyGroups; ++group) {
        in.byte();
        const unsigned count = in.word();
        in.skip(count * 2u);
    }
    const uint16_t computed = in.check();
    const uint16_t stored = in.word();
    if (!in.ok())
        return ObjectFileFault::Unreadable;
    return computed == stored ? ObjectFileFault::None : ObjectFileFault::BadChecksum;
}

// A counted list of entries of stringsPerEntry strings each, the last of which
// is the name kept, then the check word over the count and all strings.
ObjectFileFault readNameList(ByteCursor& in, unsigned stringsPerEntry, std::vector<std::string>& names)
{
    in.startCheck();
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
    const uint16_t computed = in.check();
    const uint16_t stored = in.word();
    if (!in.ok())
        return ObjectFileFault::Unreadable;
    return computed == stored ? ObjectFileFault::None : ObjectFileFault::BadChecksum;
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
    MemorySource source(data, size);
    return ReadObjectFileNames(source);
}

ObjectFileNames ReadObjectFileNames(ObjectFileSource& source)
{
    ObjectFileNames result;
    ByteCursor in(source);
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
    const uint64_t headerStart = in.position();
    HeaderCheck check = checkHeader(in, words, header);
    if (check != HeaderCheck::Match && result.version == 220) {
        in.seek(headerStart);
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

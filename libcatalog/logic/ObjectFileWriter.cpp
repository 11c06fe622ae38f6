// The fixture writer of object files.
#include "libcatalog/logic/ObjectFileWriter.h"

#include "libcatalog/logic/ObjectFile.h"

namespace tqm {
namespace {

void putByte(std::vector<uint8_t>& out, unsigned value) { out.push_back(static_cast<uint8_t>(value)); }

void putWord(std::vector<uint8_t>& out, unsigned value)
{
    putByte(out, value & 0xFF);
    putByte(out, (value >> 8) & 0xFF);
}

void putDword(std::vector<uint8_t>& out, uint32_t value)
{
    putWord(out, value & 0xFFFF);
    putWord(out, value >> 16);
}

void putString(std::vector<uint8_t>& out, const std::string& text)
{
    out.insert(out.end(), text.begin(), text.end());
    putByte(out, 0);
}

void setDword(std::vector<uint8_t>& out, size_t at, uint32_t value)
{
    for (int i = 0; i < 4; ++i)
        out[at + i] = static_cast<uint8_t>(value >> (8 * i));
}

// Appends the check word over the bytes from start on.
void putCheckSince(std::vector<uint8_t>& out, size_t start)
{
    putWord(out, UpdateCheckWord(0, out.data() + start, out.size() - start));
}

void putDependencySection(std::vector<uint8_t>& out, const std::vector<std::string>& names)
{
    size_t start = out.size();
    for (unsigned group = 0; group < kObjectFileDependencyGroups; ++group) {
        putByte(out, group);
        const unsigned count = group % 3;
        putWord(out, count);
        for (unsigned i = 0; i < count; ++i)
            putWord(out, 0x100 * group + i);
    }
    putCheckSince(out, start);
    start = out.size();
    putWord(out, static_cast<unsigned>(names.size()));
    for (const std::string& name : names)
        putString(out, name);
    putCheckSince(out, start);
}

void putReferenceList(std::vector<uint8_t>& out, const std::vector<std::pair<std::string, std::string>>& references)
{
    const size_t start = out.size();
    putWord(out, static_cast<unsigned>(references.size()));
    for (const auto& reference : references) {
        putString(out, reference.first);
        putString(out, reference.second);
    }
    putCheckSince(out, start);
}

}  // namespace

ObjectFileParts WriteObjectFileParts(const ObjectFileLayout& layout)
{
    ObjectFileParts parts;
    std::vector<uint8_t>& out = parts.head;
    putString(out, layout.text1);
    putString(out, layout.text2);
    putByte(out, layout.version);

    unsigned words = ObjectFileHeaderWords(layout.version);
    if (layout.shortHeader && layout.version == 220)
        words -= 8;
    const size_t header = out.size();
    for (unsigned i = 0; i < words; ++i)
        putDword(out, i == 0 ? 0x51A7u : 0);  // word 0: something a compiler would set

    // The header check is written once the offsets are known.
    const size_t check = out.size();
    putWord(out, 0);
    const unsigned flags = layout.dependencySection ? kObjectFileDependencyFlag : 0;
    if (layout.version <= 210)
        putByte(out, flags);
    else
        putWord(out, flags);

    // The sections follow the code; offsets are reckoned in the whole file.
    const uint32_t tailAt = static_cast<uint32_t>(out.size() + layout.codeSize);
    std::vector<uint8_t>& tail = parts.tail;
    if (layout.dependencySection) {
        setDword(out, header + 4 * kDependencySectionWord, static_cast<uint32_t>(tailAt + tail.size()));
        putDependencySection(tail, layout.dependencies);
    }
    if (words > kReferenceListWord && !layout.references.empty()) {
        setDword(out, header + 4 * kReferenceListWord, static_cast<uint32_t>(tailAt + tail.size()));
        putReferenceList(tail, layout.references);
    }
    const uint16_t headerCheck = UpdateCheckWord(0, out.data() + header, words * 4u);
    out[check] = static_cast<uint8_t>(headerCheck & 0xFF);
    out[check + 1] = static_cast<uint8_t>(headerCheck >> 8);
    return parts;
}

std::vector<uint8_t> WriteObjectFile(const ObjectFileLayout& layout)
{
    ObjectFileParts parts = WriteObjectFileParts(layout);
    std::vector<uint8_t>& out = parts.head;
    out.insert(out.end(), layout.codeSize, 0x90);  // code
    out.insert(out.end(), parts.tail.begin(), parts.tail.end());
    return out;
}

}  // namespace tqm

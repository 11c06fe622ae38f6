// ReadObjectFileNames, UpdateCheckWord, ObjectFileHeaderWords - the part of
// a compiled object file (".obj", ".obl") that names other files.
//
// An object file records the files it was built from and depends on: the
// names of its dependency section and the file names of its reference list.
// The reader works on the file's bytes, read from the start:
//
//   text 1, text 2   NUL-terminated, at most 260 bytes each (skipped)
//   version          1 byte, 206 the lowest supported
//   header           N little-endian 32-bit words (N by version, below)
//   header check     16-bit check word over the header's bytes
//   flags            1 byte up to version 210, else 2; 0x40: dependency section
//
// Word 12 of the header is the offset of the dependency section, word 17 (in
// headers that have one) the offset of the reference list, 0 for none.
//
// Pure code over a byte source: nothing here opens a file.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <string>
#include <vector>

namespace tqm {

constexpr unsigned kLowestObjectFileVersion = 206;
// Every string of the format, its NUL included, fits in this many bytes.
constexpr size_t kObjectFileStringSize = 260;
constexpr unsigned kObjectFileDependencyGroups = 16;
constexpr unsigned kObjectFileDependencyFlag = 0x40;
constexpr unsigned kDependencySectionWord = 12;
constexpr unsigned kReferenceListWord = 17;

// The number of header words of a version: 15, plus 2 each from versions
// 213, 214, 215, 216 and 218, plus 8 from version 220.
unsigned ObjectFileHeaderWords(unsigned version);

// The check word continued over size bytes: each byte is XORed in, then the
// word is rotated left by one bit. A check starts at 0.
uint16_t UpdateCheckWord(uint16_t check, const uint8_t* data, size_t size);

enum class ObjectFileFault
{
    None,
    UnsupportedVersion,  // below 206
    BadChecksum,         // a check word does not match
    Unreadable           // the bytes end early, an offset points past them, or a string has no NUL
};

struct ObjectFileNames
{
    ObjectFileFault fault = ObjectFileFault::None;
    unsigned version = 0;
    // The dependency names, then the file names of the reference list, in
    // file order. After a fault, the names read before it.
    std::vector<std::string> names;
};

// Where the reader takes a file's bytes from. The reader reads the front of
// the file and the two lists where the header says they are, in blocks of
// its own: a file of any size is read with the same small memory.
class ObjectFileSource
{
public:
    virtual ~ObjectFileSource() = default;
    // The file's size in bytes.
    virtual uint64_t Size() = 0;
    // Copies up to size bytes from offset on into buffer and stores how many
    // in *got (fewer only at the end of the file); false on a read error.
    virtual bool Read(uint64_t offset, uint8_t* buffer, size_t size, size_t* got) = 0;
};

// Reads the names an object file holds. Files of version 220 exist with two
// header sizes: when the check fails over 33 words it is tried over 25
// (deliberate; both kinds are in use). A read error of the source ends the
// reading as Unreadable.
ObjectFileNames ReadObjectFileNames(ObjectFileSource& source);

// The same over bytes in memory.
ObjectFileNames ReadObjectFileNames(const uint8_t* data, size_t size);

}  // namespace tqm

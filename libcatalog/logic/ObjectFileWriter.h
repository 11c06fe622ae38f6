// WriteObjectFile - object files made to measure, for the tests, the demo
// installation and the benchmark.
//
// Writes the parts the catalogue reads (see ObjectFile.h) with valid check
// words, and a little filler where a compiler would put code.
#pragma once

#include <stdint.h>

#include <string>
#include <utility>
#include <vector>

namespace tqm {

struct ObjectFileLayout
{
    unsigned version = 220;
    // A version-220 file with the older 25-word header.
    bool shortHeader = false;
    std::string text1 = "TQM object";
    std::string text2;
    // Written with the dependency flag set when dependencySection is true.
    bool dependencySection = true;
    std::vector<std::string> dependencies;
    // (symbol, file name) pairs; written only where the header has word 17.
    std::vector<std::pair<std::string, std::string>> references;
    // Bytes of code between the flags and the sections.
    uint32_t codeSize = 16;
};

std::vector<uint8_t> WriteObjectFile(const ObjectFileLayout& layout);

// The same file as the bytes before its code and the bytes after it; the
// codeSize bytes between are left to the caller (a sparse file of any size).
struct ObjectFileParts
{
    std::vector<uint8_t> head;
    std::vector<uint8_t> tail;
};
ObjectFileParts WriteObjectFileParts(const ObjectFileLayout& layout);

}  // namespace tqm

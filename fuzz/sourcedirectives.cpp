// The source-directive scanner over any bytes: names are never empty and
// never cross a line, bare names hold no blank or ";", and a whole file scans
// to what its lines scan to one by one, and to what its pieces scan to when it
// arrives in pieces.
#include "FuzzSupport.h"
#include "libcatalog/logic/SourceDirectives.h"

#include <string.h>

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const char* text = reinterpret_cast<const char*>(data);
    const std::vector<tqm::SourceDirective> whole = tqm::ScanSourceDirectives(text, size);

    std::vector<tqm::SourceDirective> byLine;
    for (size_t start = 0; start < size;) {
        const void* newline = memchr(text + start, '\n', size - start);
        const size_t end = newline ? static_cast<const char*>(newline) - text : size;
        for (tqm::SourceDirective& d : tqm::ScanSourceDirectives(text + start, end - start))
            byLine.push_back(std::move(d));
        start = end + 1;
    }
    TQM_FUZZ_CHECK(whole.size() == byLine.size());

    // Fed in pieces split anywhere, as a file is read block by block, the
    // text scans the same.
    tqm::SourceDirectiveScanner scanner;
    for (size_t start = 0, piece = 1; start < size; start += piece, piece = piece % 7 + 1)
        scanner.Feed(text + start, std::min(piece, size - start));
    const std::vector<tqm::SourceDirective> pieces = scanner.Finish();
    TQM_FUZZ_CHECK(pieces.size() == whole.size());
    for (size_t i = 0; i < whole.size() && i < pieces.size(); ++i)
        TQM_FUZZ_CHECK(pieces[i].kind == whole[i].kind && pieces[i].name == whole[i].name);
    for (size_t i = 0; i < whole.size(); ++i) {
        const tqm::SourceDirective& d = whole[i];
        TQM_FUZZ_CHECK(d.kind == byLine[i].kind && d.name == byLine[i].name);
        TQM_FUZZ_CHECK(!d.name.empty());
        TQM_FUZZ_CHECK(d.name.find_first_of(std::string("\n\0", 2)) == std::string::npos);
        // Only a quoted name holds a blank or ";", and then its closing quote follows it.
        if (d.name.find_first_of(" \t\r\v\f;") != std::string::npos) {
            const std::string closed = d.name + "\"";
            TQM_FUZZ_CHECK(memmem(text, size, closed.data(), closed.size()) != nullptr);
        }
    }
    TQM_FUZZ_CHECK(tqm::HasEncipheredSignature(text, size) ==
                   (size >= tqm::kEncipheredSignatureSize &&
                    memcmp(text, tqm::kEncipheredSignature, tqm::kEncipheredSignatureSize) == 0));
    return 0;
}

void TqmFuzzSeeds(tqmfuzz::Seeds& seeds)
{
    seeds.Add("directives", "(* main *)\r\n$INCLUDE Types.inc\r\n  $include \"My File.inc\" ; quoted\r\n$USE Axis\r\n"
                            "$LIB \"Drives\"\r\n$LIBRARY x\r\n");
    seeds.Add("odd", "$INCLUDE \"unclosed\n$INCLUDE\n$USE ;\n\t$Use\tx\n");
}

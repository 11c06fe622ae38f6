// The molecule head: any atom name read as a head stays within the name and
// the piece table, and a head written from what was read reads back the same.
// Also the line cut of ReadFileLine, on any chunk of a file.
#include "FuzzSupport.h"
#include "ipc/logic/FileLine.h"
#include "ipc/logic/MoleculeHead.h"

#include <string.h>

#include <string>

namespace {

void checkHead(const std::string& name)
{
    tqm::MoleculeHead head;
    if (!tqm::ReadMoleculeHead(name.c_str(), head))
        return;
    TQM_FUZZ_CHECK(head.readPieces <= head.pieceCount);
    TQM_FUZZ_CHECK(head.readPieces <= tqm::kMoleculeReadablePieces);
    TQM_FUZZ_CHECK(head.readPieces == 0 || 9 + 9 * (head.readPieces - 1) < name.size());

    // Only heads the writer can make: fewer than 27 pieces, four hex digits.
    if (head.pieceCount >= tqm::kMoleculePieceLimit || head.length > 0xFFFF)
        return;
    char written[tqm::kMoleculeHeadMax + 1];
    size_t length = tqm::FormatMoleculeHeadPrefix(written, head.pieceCount, head.length);
    for (size_t i = 0; i < head.readPieces; ++i)
        length = tqm::AppendMoleculePiece(written, length, head.pieces[i]);
    TQM_FUZZ_CHECK(length == strlen(written) && length <= tqm::kMoleculeHeadMax);
    tqm::MoleculeHead again;
    TQM_FUZZ_CHECK(tqm::ReadMoleculeHead(written, again));
    TQM_FUZZ_CHECK(again.pieceCount == head.pieceCount && again.length == head.length);
    TQM_FUZZ_CHECK(again.readPieces == head.readPieces);
    TQM_FUZZ_CHECK(memcmp(again.pieces, head.pieces, head.readPieces * sizeof(head.pieces[0])) == 0);
}

void checkLineCut(const std::string& chunk)
{
    std::string text = chunk;
    const DWORD got = static_cast<DWORD>(chunk.size());
    const LONG move = tqm::CutFileLine(&text[0], got);
    const size_t cut = strcspn(chunk.c_str(), "\n");  // up to the line feed or the first zero byte
    TQM_FUZZ_CHECK(move == static_cast<LONG>(cut) - static_cast<LONG>(got) + 1);
    const std::string line(text.c_str());
    TQM_FUZZ_CHECK(line.size() <= cut);
    TQM_FUZZ_CHECK(line.find_first_of("\r\n") == std::string::npos);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string input(reinterpret_cast<const char*>(data), size);
    // An atom name is at most 255 characters; longer texts must be safe too.
    checkHead(std::string(input.c_str()));
    checkHead(std::string(input.c_str()).substr(0, tqm::kMoleculePieceLength));
    checkLineCut(input);
    return 0;
}

void TqmFuzzSeeds(tqmfuzz::Seeds& seeds)
{
    seeds.Add("head", "*02;0100;0000C001;0000C002;");
    seeds.Add("short", "*1;5;");
    seeds.Add("plain", "C:\\Projects\\Pump\\Main.st");
    seeds.Add("lines", "first\r\nsecond\nthird");
}

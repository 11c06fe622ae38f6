// The molecule head's format.
#include "ipc/logic/MoleculeHead.h"

#include <stdio.h>
#include <string.h>

namespace tqm {

size_t MoleculePieceCount(size_t length)
{
    size_t pieces = length / kMoleculePieceLength + 1;
    return pieces < kMoleculePieceLimit ? pieces : 0;
}

size_t FormatMoleculeHeadPrefix(char* head, size_t pieceCount, size_t length)
{
    return static_cast<size_t>(sprintf(head, "*%02X;%04X;", static_cast<unsigned>(pieceCount),
                                       static_cast<unsigned>(length)));
}

size_t AppendMoleculePiece(char* head, size_t at, unsigned atom)
{
    return at + static_cast<size_t>(sprintf(head + at, "%08lX;", static_cast<unsigned long>(atom)));
}

// Read with the scanf formats the head is written with, on purpose: the
// suite's programs read heads that way, and a name they take for a head must
// be taken for one here too.
bool ReadMoleculeHead(const char* name, MoleculeHead& head)
{
    head = MoleculeHead{};
    if (sscanf(name, "*%02X;%04X;", &head.pieceCount, &head.length) != 2)
        return false;
    const size_t nameLength = strlen(name);
    for (size_t at = 9; head.readPieces < head.pieceCount && head.readPieces < kMoleculeReadablePieces &&
                        at < nameLength;
         at += 9) {
        unsigned long atom = 0;
        if (sscanf(name + at, "%08lX;", &atom) != 1)
            break;
        head.pieces[head.readPieces++] = static_cast<unsigned>(atom);
    }
    return true;
}

}  // namespace tqm

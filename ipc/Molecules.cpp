// Molecules in the global atom table.
#include "ipc/Molecules.h"

#include "diag/TarnAssert.h"
#include "ipc/logic/MoleculeHead.h"

#include <string.h>

namespace {

// The support staff know the lost-piece report by this line of "Molecule".
constexpr int kLineLostPiece = 116;

// The atom's name, at most 255 characters; "" when the atom does not exist.
void readAtomName(ATOM nAtom, char (&name)[tqm::kMoleculePieceLength + 1])
{
    memset(name, 0, sizeof(name));
    if (!::GlobalGetAtomNameA(nAtom, name, sizeof(name)))
        name[0] = '\0';
}

}  // namespace

ATOM WINAPI GlobalAddMolecule(const char* pszString)
{
    TARN_ASSERT(pszString != nullptr);
    if (!pszString)
        return 0;
    const size_t length = strlen(pszString);
    if (length <= tqm::kMoleculePieceLength)
        return ::GlobalAddAtomA(pszString);
    const size_t pieceCount = tqm::MoleculePieceCount(length);
    if (pieceCount == 0)
        return 0;

    char head[tqm::kMoleculeHeadMax + 1];
    size_t headLength = tqm::FormatMoleculeHeadPrefix(head, pieceCount, length);
    for (size_t i = 0; i < pieceCount; ++i) {
        char piece[tqm::kMoleculePieceLength + 1] = "";
        const size_t offset = i * tqm::kMoleculePieceLength;
        const size_t count = length - offset < tqm::kMoleculePieceLength ? length - offset : tqm::kMoleculePieceLength;
        memcpy(piece, pszString + offset, count);
        piece[count] = '\0';
        // A piece the table refuses ends the molecule; the pieces added so
        // far are not taken back (deliberate: the suite never has).
        ATOM pieceAtom = ::GlobalAddAtomA(piece);
        if (!pieceAtom)
            return 0;
        headLength = tqm::AppendMoleculePiece(head, headLength, pieceAtom);
    }
    return ::GlobalAddAtomA(head);
}

CString WINAPI GlobalGetMoleculeName(ATOM nAtom)
{
    char name[tqm::kMoleculePieceLength + 1];
    readAtomName(nAtom, name);
    tqm::MoleculeHead head;
    if (!tqm::ReadMoleculeHead(name, head))
        return CString(name);

    CString strString;
    size_t read = 0;
    for (; read < head.readPieces; ++read) {
        char piece[tqm::kMoleculePieceLength + 1] = "";
        if (!::GlobalGetAtomNameA(static_cast<ATOM>(head.pieces[read]), piece, sizeof(piece)))
            break;
        strString += piece;
    }
    const bool complete = read == head.pieceCount && static_cast<unsigned>(strString.GetLength()) == head.length;
    if (!complete)
        TarnDebug("TARN_ASSERT", "nAtoms==0 && strString.GetLength()==len", "Molecule", kLineLostPiece);
    return strString;
}

int WINAPI GlobalGetMoleculeName(ATOM nAtom, char* pszBuffer, int nSize)
{
    TARN_ASSERT(pszBuffer != nullptr || nSize <= 0);
    if (!pszBuffer || nSize <= 0)
        return 0;
    CString text = GlobalGetMoleculeName(nAtom);
    int count = text.GetLength() < nSize - 1 ? text.GetLength() : nSize - 1;
    memcpy(pszBuffer, text.GetString(), static_cast<size_t>(count));
    pszBuffer[count] = '\0';
    return count;
}

ATOM WINAPI GlobalDeleteMolecule(ATOM nAtom)
{
    char name[tqm::kMoleculePieceLength + 1];
    readAtomName(nAtom, name);
    tqm::MoleculeHead head;
    if (tqm::ReadMoleculeHead(name, head)) {
        for (size_t i = 0; i < head.readPieces; ++i)
            ::GlobalDeleteAtom(static_cast<ATOM>(head.pieces[i]));
    }
    return ::GlobalDeleteAtom(nAtom);
}

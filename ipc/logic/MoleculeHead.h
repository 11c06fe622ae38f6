// MoleculeHead - the head string that stands for a long string in the global
// atom table: "*NN;LLLL;" (piece count and total length in upper-case hex)
// followed by one "%08lX;" per piece atom, in order.
#pragma once

#include <stddef.h>

namespace tqm {

// A piece holds at most this many characters (the longest atom name).
constexpr size_t kMoleculePieceLength = 255;
// Fewer pieces than this fit a head into one atom name.
constexpr size_t kMoleculePieceLimit = 27;
// The longest head: "*NN;LLLL;" and 26 handles of 9 characters.
constexpr size_t kMoleculeHeadMax = 9 + (kMoleculePieceLimit - 1) * 9;

// The pieces a string of length characters is cut into: length / 255 + 1, so
// an exact multiple of 255 ends in an empty piece. 0 when the string is too
// long for a molecule (27 pieces or more).
size_t MoleculePieceCount(size_t length);

// Writes the head's prefix "*NN;LLLL;" into head (at least kMoleculeHeadMax + 1
// characters); returns its length.
size_t FormatMoleculeHeadPrefix(char* head, size_t pieceCount, size_t length);
// Appends "%08lX;" for one piece at position at; returns the new length.
size_t AppendMoleculePiece(char* head, size_t at, unsigned atom);

// The most piece handles an atom name of 255 characters can hold (a plain
// name may state more pieces than a real head ever lists).
constexpr size_t kMoleculeReadablePieces = (kMoleculePieceLength - 9 + 8) / 9;

struct MoleculeHead
{
    unsigned pieceCount;  // as the head states it
    unsigned length;      // as the head states it
    unsigned pieces[kMoleculeReadablePieces];  // the handles that could be read, in order
    size_t readPieces;    // how many of them
};

// Reads name (an atom's name) as a head. False when it is a plain name: the
// two numbers of "*%02X;%04X;" do not both convert. The pieces are read from
// position 9 on, 9 characters apart, as long as the head states more of them
// and each converts as "%08lX". The reading is as lenient as those scanf
// formats (blanks, signs and short numbers pass), and nothing marks a head as
// such: a plain name that reads as a head is taken for one.
bool ReadMoleculeHead(const char* name, MoleculeHead& head);

}  // namespace tqm

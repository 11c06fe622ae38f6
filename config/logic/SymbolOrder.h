// The order of symbol names: case folded, embedded numbers by value, "_"
// before every other character.
#pragma once

namespace tqm {

// < 0, 0 or > 0 as a sorts before, with or after b. fold maps every byte to
// its folded form (256 entries); a byte that folds to 0 ends the text.
// Where two digit runs differ, the result is the difference of their numbers
// (each run read as an unsigned 32-bit number, wrapping), saturated to the
// range of int; elsewhere the difference of the two folded bytes.
int CompareSymbols(const char* a, const char* b, const unsigned char* fold);

}  // namespace tqm

// The order of symbol names: case folded, embedded numbers by value, "_"
// before every other character.
#pragma once

namespace tqm {

// < 0, 0 or > 0 as a sorts before, with or after b. fold maps every byte to
// its folded form (256 entries); a byte that folds to 0 ends the text.
int CompareSymbols(const char* a, const char* b, const unsigned char* fold);

}  // namespace tqm

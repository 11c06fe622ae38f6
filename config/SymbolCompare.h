// TQMToUpper, TQMSymCmp - the library's case folding and the order of symbol
// names.
//
// The folding table follows the system's upper-casing for the code page in
// force when the library was loaded. Byte 255 folds to 0, so it ends a text
// in TQMSymCmp: deliberate, and relied upon.
#pragma once

#include <windows.h>

#include "framework/Export.h"

// c folded with the library's table.
extern "C" TQM_CAPI char WINAPI TQMToUpper(unsigned char c);

// < 0, 0 or > 0: names compared without regard to case, embedded numbers by
// value (X9 before X10, a1b equal to a01b), "_" before every other
// character (A_B before AB). Numbers that differ give their difference, held
// to the range of int, so the sign always follows the numbers.
extern "C" TQM_CAPI int WINAPI TQMSymCmp(const char* a, const char* b);

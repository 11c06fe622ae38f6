// Window placement entries and the virtual screen: reading the numbers of an
// entry, and pulling a rectangle back onto the screen.
#pragma once

#include <windows.h>

namespace tqm {

// Reads up to nMax comma-separated integers from text the way "%d,%d,..."
// scans: blanks may stand before each number, none before a comma, and the
// first character that does not fit ends the scan. Numbers beyond the range
// of int are held at its limits. Returns how many numbers were read.
int ScanCommaIntegers(const char* text, int* values, int nMax);

// The rectangle pulled onto the virtual screen (origin and size as the
// system metrics give them), in the suite's order of steps.
RECT FitOntoVirtualScreen(const RECT& rect, const RECT& virtualScreen);

// The rectangle of size cx by cy with its top-left corner at x, y; the far
// edges are held at the range of int.
RECT RectAt(int x, int y, int cx, int cy);

// right - left (or bottom - top) of a saved rectangle, at least nMinimum,
// without overflowing.
int SavedExtent(int nLow, int nHigh, int nMinimum);

}  // namespace tqm

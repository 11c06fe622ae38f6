// CutFileLine - the line in a chunk of text read from a file.
#pragma once

#include <windows.h>

namespace tqm {

// text holds got bytes read from a file, terminated behind them. Cuts it at
// its first line feed (or its first zero byte) and removes every carriage
// return from what is left; returns the move of the file pointer that makes
// the next read start just behind that line feed. A chunk without one moves
// the pointer one byte on, past the byte behind the chunk: deliberate, the
// suite's readers have always lost it.
LONG CutFileLine(char* text, DWORD got);

}  // namespace tqm

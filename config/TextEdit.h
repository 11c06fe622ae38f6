// TQMSkipWhite, TQMSkipBlack, TQMTrimRight, IsCharSpace, SkipSpace, SkipChar,
// TQMInsertString - scanning and editing NUL-terminated texts in place.
//
// Blanks here are the runtime's isspace characters of the default locale
// (9 to 13 and 32); IsCharSpace and its two skippers name the same set under
// their own rule. The INI reader does not use these (it has its own rule).
#pragma once

#include <windows.h>

#include "framework/Export.h"

// The first character of p that is NUL or not blank.
extern "C" TQM_CAPI char* WINAPI TQMSkipWhite(char* p);
// The first character of p that is NUL or blank.
extern "C" TQM_CAPI char* WINAPI TQMSkipBlack(char* p);
// Cuts trailing blanks off s (overwriting them with NUL); returns the new length.
extern "C" TQM_CAPI int WINAPI TQMTrimRight(char* s);

// 1 for 32 and 9 to 13, else 0.
extern "C" TQM_CAPI int WINAPI IsCharSpace(unsigned char c);
// The first character of p for which IsCharSpace does not hold (or NUL).
extern "C" TQM_CAPI char* WINAPI SkipSpace(char* p);
// The first character of p for which IsCharSpace holds (or NUL).
extern "C" TQM_CAPI char* WINAPI SkipChar(char* p);

// Inserts ins into s before index pos (at pos == length: appends); s is
// returned unchanged when pos is beyond its end. The caller provides the room.
extern "C" TQM_CAPI char* __cdecl TQMInsertString(char* s, int pos, const char* ins);

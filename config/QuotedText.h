// TQMFindChar, TQMFindAnyChar, TQMSplitStringOnChar, TQMSplitStringOnChars,
// TQMJoinArray, TQMSplitComment - searching and splitting texts outside
// their quotes.
//
// Text inside apostrophes or double quotes is never searched or split. Inside
// a quoted run, a quote that follows "<" does not close the run. These
// functions use the caller-pops convention.
#pragma once

#include <windows.h>

#include "framework/Collections.h"
#include "framework/Export.h"

// Index (from the start of s) of the first c outside quotes at or after
// start; -1 when there is none.
extern "C" TQM_CAPI int __cdecl TQMFindChar(const char* s, char c, int start);
// The same for any character of set.
extern "C" TQM_CAPI int __cdecl TQMFindAnyChar(const char* s, const char* set, int start);

// Splits s at c outside quotes, at most maxSplits times (negative: no limit,
// 0: the whole text as one element). The last element is what follows the
// last split, even when empty; an empty s gives one empty element. Quotes
// stay in the elements; nothing is trimmed.
extern "C" TQM_CAPI void __cdecl TQMSplitStringOnChar(CStringArray& out, const char* s, char c, int maxSplits);
// The same, splitting at any character of set.
extern "C" TQM_CAPI void __cdecl TQMSplitStringOnChars(CStringArray& out, const char* s, const char* set,
                                                      int maxSplits);

// The parts in order with sep between them; "" for no parts.
extern "C" TQM_CAPI CString __cdecl TQMJoinArray(const CStringArray& parts, const char* sep);
// The same in list order.
TQM_CPPAPI CString __cdecl TQMJoinArray(const CStringList& parts, const char* sep);

// Splits a source line at its first ";" outside quotes: code before, comment
// after, the ";" in neither. Without a ";" the comment is "".
extern "C" TQM_CAPI void __cdecl TQMSplitComment(const char* line, CString& code, CString& comment);

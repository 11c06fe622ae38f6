// Quote-aware search and split: the grammar behind TQMFindChar,
// TQMSplitStringOnChar and TQMSplitComment.
//
// Text inside apostrophes or double quotes is never searched. A quote that
// follows "<" (blanks between do not count) inside a quoted run is part of
// the run's text and does not close it, so "<'>" style markers survive.
#pragma once

#include "framework/Collections.h"

namespace tqm {

// Index in s of the first character of set that stands outside quotes, from
// start on; -1 when there is none. A negative start counts as 0; a start
// beyond the end, a NULL s or an empty set find nothing.
int FindOutsideQuotes(const char* s, const char* set, int start);

// Splits s at characters of set that stand outside quotes, at most maxSplits
// times (negative: no limit). out receives the pieces; the last one is what
// is left after the last split, even when empty. Quotes stay in the pieces;
// nothing is trimmed. A NULL s leaves out empty. May throw CMemoryException.
void SplitOutsideQuotes(CStringArray& out, const char* s, const char* set, int maxSplits);

// Splits a source line at its first ";" outside quotes into the code before
// it and the comment after it (the ";" itself goes to neither). Without a
// ";" the comment is empty. May throw CMemoryException.
void SplitCodeAndComment(const char* line, CString& code, CString& comment);

}  // namespace tqm

// The two blank rules of the string utilities.
//
// The INI reader has a third rule of its own (every byte whose signed value
// is at most 32); these two are for the routines beside TQMSkipWhite.
#pragma once

namespace tqm {

// The runtime's isspace in the default locale: tab, line feed, vertical tab,
// form feed, carriage return and blank. Spelled out so that a program that
// changes its locale does not change how the library reads its texts.
inline bool IsRuntimeSpace(unsigned char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// IsCharSpace's rule: the same set, kept apart because callers name it.
inline bool IsCharSpaceRule(unsigned char c) { return c == ' ' || (c >= 9 && c <= 13); }

}  // namespace tqm

// ASCII letters compared without regard to case, as the file system and the
// suite's keywords compare them: no locale, no code page, other bytes as they
// are.
#pragma once

#include <stddef.h>

namespace tqm {

inline char AsciiUpper(char ch) { return (ch >= 'a' && ch <= 'z') ? static_cast<char>(ch - 'a' + 'A') : ch; }

// True when text begins with prefix.
inline bool StartsWithNoCase(const char* text, const char* prefix)
{
    for (; *prefix; ++text, ++prefix) {
        if (AsciiUpper(*text) != AsciiUpper(*prefix))
            return false;
    }
    return true;
}

// True when a and b are the same text.
inline bool EqualNoCase(const char* a, const char* b)
{
    for (;; ++a, ++b) {
        if (AsciiUpper(*a) != AsciiUpper(*b))
            return false;
        if (!*a)
            return true;
    }
}

}  // namespace tqm

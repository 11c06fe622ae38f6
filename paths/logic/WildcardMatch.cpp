#include "paths/logic/WildcardMatch.h"

#include <windows.h>

namespace tqm {
namespace {

// One character upper-cased by the code page's rules (a table lookup).
char upper(char ch)
{
    return static_cast<char>(reinterpret_cast<UINT_PTR>(
        CharUpperA(reinterpret_cast<LPSTR>(static_cast<UINT_PTR>(static_cast<BYTE>(ch))))));
}

}  // namespace

bool WildcardMatch(const char* pattern, const char* name)
{
    if (!pattern || !name)
        return false;
    // One back-tracking point: the last * seen. On a mismatch the * takes one
    // more character of the name and the rest of the pattern is tried again.
    const char* resumePattern = nullptr;
    const char* resumeName = nullptr;
    const char* p = pattern;
    const char* n = name;
    while (*n) {
        if (*p == '*') {
            resumePattern = ++p;
            resumeName = n;
            if (!*p)
                return true;  // a trailing * takes any rest
            continue;
        }
        if (*p && (*p == '?' || upper(*p) == upper(*n))) {
            ++p;
            ++n;
            continue;
        }
        if (!resumePattern)
            return false;
        p = resumePattern;
        n = ++resumeName;
    }
    while (*p == '*')
        ++p;
    return *p == '\0';
}

}  // namespace tqm

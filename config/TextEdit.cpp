// Blank skipping, trimming and insertion.
#include "config/TextEdit.h"

#include "config/logic/Blanks.h"

#include <string.h>

namespace {

// The first character of p that is NUL or for which blank(c) == wanted.
template <typename Rule>
char* skipWhile(char* p, Rule isBlank, bool skipBlanks)
{
    if (!p)
        return p;
    while (*p && isBlank(static_cast<unsigned char>(*p)) == skipBlanks)
        ++p;
    return p;
}

}  // namespace

char* WINAPI TQMSkipWhite(char* p) { return skipWhile(p, tqm::IsRuntimeSpace, true); }

char* WINAPI TQMSkipBlack(char* p) { return skipWhile(p, tqm::IsRuntimeSpace, false); }

int WINAPI TQMTrimRight(char* s)
{
    if (!s)
        return 0;
    size_t n = strlen(s);
    while (n > 0 && tqm::IsRuntimeSpace(static_cast<unsigned char>(s[n - 1])))
        s[--n] = '\0';
    return static_cast<int>(n);
}

int WINAPI IsCharSpace(unsigned char c) { return tqm::IsCharSpaceRule(c) ? 1 : 0; }

char* WINAPI SkipSpace(char* p) { return skipWhile(p, tqm::IsCharSpaceRule, true); }

char* WINAPI SkipChar(char* p) { return skipWhile(p, tqm::IsCharSpaceRule, false); }

char* __cdecl TQMInsertString(char* s, int pos, const char* ins)
{
    if (!s || !ins || pos < 0)
        return s;
    size_t len = strlen(s);
    if (static_cast<size_t>(pos) > len)
        return s;
    size_t n = strlen(ins);
    // The tail moves first, NUL included; at pos == len that is just the NUL.
    memmove(s + pos + n, s + pos, len - static_cast<size_t>(pos) + 1);
    memcpy(s + pos, ins, n);
    return s;
}

// Quote-aware search and split.
#include "config/logic/QuoteScan.h"

#include "config/logic/Blanks.h"

#include <string.h>

namespace tqm {
namespace {

// State of the scan: outside quotes, or inside a run opened by this quote.
struct QuoteState
{
    char quote = 0;      // 0 outside, else ' or "
    char lastSeen = 0;   // last non-blank character inside the run, 0 when none yet

    void step(char c)
    {
        if (!quote) {
            if (c == '\'' || c == '"') {
                quote = c;
                lastSeen = 0;
            }
            return;
        }
        // A quote right after "<" belongs to the run's text: deliberate, the
        // suite's sources write such markers inside quoted texts.
        if (c == quote && lastSeen != '<') {
            quote = 0;
            lastSeen = 0;
        } else if (!IsRuntimeSpace(static_cast<unsigned char>(c))) {
            lastSeen = c;
        }
    }
};

}  // namespace

int FindOutsideQuotes(const char* s, const char* set, int start)
{
    if (!s || !set || !*set)
        return -1;
    if (start < 0)
        start = 0;
    // Never step past the terminator, however large start is.
    if (static_cast<size_t>(start) > strlen(s))
        return -1;

    QuoteState state;
    for (int i = start; s[i]; ++i) {
        // The target test comes first, so a search for a quote finds the first one.
        if (!state.quote && strchr(set, s[i]))
            return i;
        state.step(s[i]);
    }
    return -1;
}

void SplitOutsideQuotes(CStringArray& out, const char* s, const char* set, int maxSplits)
{
    if (!s) {
        out.RemoveAll();
        return;
    }
    // The private copy comes first, so that s may be one of out's own elements.
    CString text(s);
    out.RemoveAll();
    const char* rest = text;
    while (*rest && maxSplits != 0) {
        if (maxSplits > 0)
            --maxSplits;
        int at = FindOutsideQuotes(rest, set, 0);
        if (at < 0)
            break;
        out.Add(CString(rest, at));
        rest += at + 1;
    }
    out.Add(CString(rest));
}

void SplitCodeAndComment(const char* line, CString& code, CString& comment)
{
    CStringArray parts;
    SplitOutsideQuotes(parts, line, ";", 1);
    if (parts.GetSize() == 2) {
        code = parts[0];
        comment = parts[1];
    } else {
        code = line;
        comment.Empty();
    }
}

}  // namespace tqm

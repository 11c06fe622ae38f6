// Quote-aware search, split and join.
//
// Nothing may unwind into the caller: when memory runs out, a split leaves
// its output empty, a join returns "" and a comment split keeps the whole
// line as code.
#include "config/QuotedText.h"

#include "config/logic/QuoteScan.h"

#include <new>

namespace {

// Runs work; false when it ran out of memory (the exception is disposed of).
template <typename Work>
bool succeeds(Work work)
{
    try {
        work();
        return true;
    } catch (CException* e) {
        e->Delete();
    } catch (const std::bad_alloc&) {
    }
    return false;
}

template <typename Walk>
CString join(const char* sep, Walk walk)
{
    CString result;
    bool ok = succeeds([&] {
        bool first = true;
        walk([&](const CString& part) {
            if (!first && sep)
                result += sep;
            result += part;
            first = false;
        });
    });
    if (!ok)
        result.Empty();
    return result;
}

}  // namespace

int __cdecl TQMFindChar(const char* s, char c, int start)
{
    const char set[2] = {c, '\0'};
    return tqm::FindOutsideQuotes(s, set, start);
}

int __cdecl TQMFindAnyChar(const char* s, const char* set, int start)
{
    return tqm::FindOutsideQuotes(s, set, start);
}

void __cdecl TQMSplitStringOnChars(CStringArray& out, const char* s, const char* set, int maxSplits)
{
    if (!succeeds([&] { tqm::SplitOutsideQuotes(out, s, set ? set : "", maxSplits); }))
        out.RemoveAll();
}

void __cdecl TQMSplitStringOnChar(CStringArray& out, const char* s, char c, int maxSplits)
{
    const char set[2] = {c, '\0'};
    TQMSplitStringOnChars(out, s, set, maxSplits);
}

CString __cdecl TQMJoinArray(const CStringArray& parts, const char* sep)
{
    return join(sep, [&](auto add) {
        for (int i = 0; i < parts.GetSize(); ++i)
            add(parts[i]);
    });
}

CString __cdecl TQMJoinArray(const CStringList& parts, const char* sep)
{
    return join(sep, [&](auto add) {
        for (POSITION pos = parts.GetHeadPosition(); pos;)
            add(parts.GetNext(pos));
    });
}

void __cdecl TQMSplitComment(const char* line, CString& code, CString& comment)
{
    if (succeeds([&] { tqm::SplitCodeAndComment(line, code, comment); }))
        return;
    comment.Empty();
    succeeds([&] { code = line; });
}

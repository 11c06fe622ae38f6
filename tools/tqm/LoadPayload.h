// LoadPayload - the texts that the load test's senders send the project
// manager's stand-in (tqm pm --check), each carrying its kind, its sender,
// its sequence number and a checksum, so that the receiving side can tell a
// whole text from a damaged, mixed or repeated one. Pure logic.
//
// A text is "<kind> <sender> <seq> <extra> <checksum>:<body>": kind one
// letter (P saved file's path, I its info, M message line, Q exchange
// request, R its reply), sender, seq and extra decimal (extra: the reply's
// size asked for by a request, else 0), checksum eight hex digits over
// everything before it and the body; the body is letters and digits that
// follow from the other fields.
#pragma once

#include <stddef.h>

#include <string>

namespace tqmtool {

struct LoadHead
{
    char kind = 0;
    unsigned long sender = 0;
    unsigned long seq = 0;
    unsigned long extra = 0;
};

// The text of exactly size characters (or the head alone when size is
// shorter than the head).
std::string MakeLoadText(const LoadHead& head, size_t size);

// True when text is a whole text of MakeLoadText: the head read into
// *pHead, the checksum and the body right for them.
bool CheckLoadText(const char* text, size_t size, LoadHead* pHead);

}  // namespace tqmtool

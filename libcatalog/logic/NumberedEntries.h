// ParseCount, ParseNumberedName, WalkNumberedEntries - counted lists of
// numbered entries ("Count=3", "File0=" ... "File2=") in description and
// project files.
//
// A count can promise far more entries than a file holds (Count=4000000000).
// Walking every number would take minutes and report millions of missing
// entries, so a walk visits the entries that are present and, of the missing
// ones, only the first kReportedMissingEntries; the caller sums up the rest
// in one line. The bound lies far beyond any real description file, whose
// every missing entry is therefore named. Present entries are found by their
// names, so the cost follows the size of the file, not the count.
#pragma once

#include "config/logic/IniNames.h"

#include <stdint.h>

#include <vector>

namespace tqm {

// How many missing entries of one list a walk reports one by one.
constexpr uint32_t kReportedMissingEntries = 10000;

// The decimal number at the start of text, up to the first non-digit: 0 when
// text is NULL or does not begin with a digit, UINT32_MAX when it overflows.
uint32_t ParseCount(const char* text);

// True when name is prefix followed by a number written as "%u" writes it
// (no sign, no leading zero), the prefix compared by fold: "file12" gives 12
// for "File", "File012" gives nothing, as a lookup of "File12" would not find it.
bool ParseNumberedName(const char* name, const char* prefix, const ini::NameFold& fold, uint32_t* number);

// Calls visit(n, true) for every n below count in present, and visit(n, false)
// for the first kReportedMissingEntries numbers below count that are not, in
// ascending order. present must be sorted and hold no number twice. Returns
// how many missing numbers were not visited.
template <typename Visit>
uint32_t WalkNumberedEntries(uint32_t count, const std::vector<uint32_t>& present, Visit visit)
{
    uint32_t reported = 0;
    uint32_t skipped = 0;
    size_t next = 0;
    for (uint32_t n = 0; n < count;) {
        if (next < present.size() && present[next] == n) {
            visit(n, true);
            ++next;
            ++n;
            continue;
        }
        const uint32_t gapEnd = (next < present.size() && present[next] < count) ? present[next] : count;
        for (; n < gapEnd && reported < kReportedMissingEntries; ++n, ++reported)
            visit(n, false);
        skipped += gapEnd - n;
        n = gapEnd;
    }
    return skipped;
}

}  // namespace tqm

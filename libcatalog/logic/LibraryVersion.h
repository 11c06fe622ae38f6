// ParseLibraryVersion - version texts of libraries as one comparable number.
//
// A version number is major * 1,000,000 + minor * 1,000 + build, each part
// 0 to 999, so versions compare as plain numbers. A text is either dotted
// ("2.1.30", "V2.1.30": leading text before the first digit is skipped) or
// the nine-digit number itself ("002001030").
#pragma once

#include <stdint.h>

namespace tqm {

// Stores the number in *value (always; 0 on the early failures) and returns
// true only for a well-formed text. A malformed text still gives the number
// of what was read before the fault, which callers that ignore the flag
// compare by:
//   "2.1"       2,001,000  true        "V2"        2,000,000  false (no "." after the major part)
//   "2.1.30b"   2,001,030  false       "2.1000.0"  2,999,000  false (a part above 999 becomes 999)
//   "2"         0          false (a text of digits without "." must have nine)
bool ParseLibraryVersion(const char* text, uint32_t* value);

}  // namespace tqm

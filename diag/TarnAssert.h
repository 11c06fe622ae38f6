// TARN_ASSERT, TARN_VERIFY - the library's checks of its callers.
//
// A failed check reports through TarnDebug (diag/ErrorReport.h) and the code
// after it still runs: only the user's Abort stops anything. TARN_VERIFY
// evaluates its expression in every build and reports the thread's last
// system error with it.
//
// Reports name the source file without folder or extension. TARN_SOURCE is
// the name given; by default the file's own. A file whose reports the suite's
// support staff know under another name sets it after the includes:
//
//     #undef TARN_SOURCE
//     #define TARN_SOURCE "Misc"
#pragma once

#include "diag/ErrorReport.h"

#define TARN_SOURCE __FILE__

#define TARN_ASSERT(expr) \
    ((expr) ? (void)0 : (void)TarnDebug("TARN_ASSERT", #expr, TARN_SOURCE, __LINE__))

#define TARN_VERIFY(expr) \
    ((expr) ? (void)0 : (void)TarnDebug("TARN_VERIFY", #expr, TARN_SOURCE, __LINE__, ::GetLastError()))

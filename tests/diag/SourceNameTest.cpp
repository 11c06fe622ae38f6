// A file that reports under a name of its own, as the library's files do.
#include "diag/TarnAssert.h"

#include "TraceReceiver.h"
#include "diag/DebugOutput.h"
#include "support/BoxRecorder.h"

#include <gtest/gtest.h>

#undef TARN_SOURCE
#define TARN_SOURCE "Registry"

namespace {

TEST(SourceName, FileMayNameItselfForItsReports)
{
    if (tqmtest::ForeignReceiverRuns(TARN_TRACE_WINDOW_CLASS))
        GTEST_SKIP() << "a trace viewer runs on this desktop";
    tqmtest::TraceReceiver viewer(TARN_TRACE_WINDOW_CLASS);
    tqmtest::BoxRecorder boxes;
    const char* lpszSection = nullptr;
    int line = __LINE__ + 1;
    TARN_ASSERT(lpszSection != NULL);
    ASSERT_EQ(1u, viewer.count());
    EXPECT_EQ("TARN_ASSERT failed at line " + std::to_string(line) + " in Registry:\n lpszSection != NULL\n",
              viewer.last().data);
}

}  // namespace

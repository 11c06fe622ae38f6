#include "diag/TarnAssert.h"

#include "SystemText.h"
#include "TraceReceiver.h"
#include "diag/DebugOutput.h"
#include "support/BoxRecorder.h"
#include "support/ChildProcess.h"

#include <gtest/gtest.h>

#include <string.h>

#include <memory>
#include <string>

namespace {

using tqmtest::BoxRecorder;
using tqmtest::TraceReceiver;

const std::string kSupport =
    "\nPlease report this error to TARN-Holmvik support.\n\n"
    "(press RETRY or IGNORE to ignore this error and continue)";

class AssertionReport : public testing::Test
{
protected:
    void SetUp() override
    {
        if (tqmtest::ForeignReceiverRuns(TARN_TRACE_WINDOW_CLASS))
            GTEST_SKIP() << "a trace viewer runs on this desktop";
    }
    TraceReceiver& viewer()
    {
        if (!m_viewer)
            m_viewer = std::make_unique<TraceReceiver>(TARN_TRACE_WINDOW_CLASS);
        return *m_viewer;
    }

private:
    std::unique_ptr<TraceReceiver> m_viewer;
};

TEST_F(AssertionReport, FailedAssertGoesToTheViewerThenAsksAndRunsOn)
{
    for (int answer : {IDRETRY, IDIGNORE}) {
        viewer().clear();
        BoxRecorder boxes(answer);
        bool ranOn = false;
        int line = __LINE__ + 1;
        TARN_ASSERT(strlen("ab") == 3);
        ranOn = true;
        TARN_ASSERT(strlen("ab") == 2);  // a check that holds reports nothing

        EXPECT_TRUE(ranOn);
        std::string report = "TARN_ASSERT failed at line " + std::to_string(line) +
                             " in AssertionReportTest:\n strlen(\"ab\") == 3\n";
        ASSERT_EQ(1u, viewer().count());
        EXPECT_EQ(report, viewer().last().data);
        EXPECT_EQ(TARN_TRACE_TAG_VIEWER, viewer().last().tag);
        ASSERT_EQ(1u, boxes.count());
        EXPECT_EQ(report + kSupport, boxes.last().text);
        EXPECT_EQ("diag_test", boxes.last().caption);
        EXPECT_EQ(static_cast<UINT>(MB_ABORTRETRYIGNORE | MB_ICONHAND | MB_TASKMODAL), boxes.last().type);
    }
}

TEST_F(AssertionReport, OnlyTheLibrarysMacrosAskAndTheResultSaysWhetherTheViewerGotIt)
{
    BoxRecorder boxes;
    EXPECT_FALSE(TarnDebug("TARN_ASSERT", "x", "Misc", 1));
    EXPECT_EQ(1u, boxes.count());  // asked even without a viewer
    EXPECT_FALSE(TarnDebug("TAR_VERIFY", "p", "App.cpp", 12, ERROR_FILE_NOT_FOUND));
    EXPECT_FALSE(TarnDebug(nullptr, nullptr, nullptr, 0));
    EXPECT_EQ(1u, boxes.count());

    viewer();
    EXPECT_TRUE(TarnDebug("ASSERT", "p != NULL", "App.cpp", 12));
    EXPECT_EQ("ASSERT failed at line 12 in App.cpp:\n p != NULL\n", viewer().last().data);
    EXPECT_EQ(1u, boxes.count());
}

// The reporter shows the source exactly as its caller names it; the macros
// name a file without folder and extension.
TEST_F(AssertionReport, ReporterKeepsTheSourceAndTheMacrosShortenIt)
{
    viewer();
    BoxRecorder boxes;
    for (const char* file : {"C:\\src\\tqmlib\\config\\Registry.cpp", "../../diag/RecFile.cpp", "Misc"}) {
        TarnDebug("TARN_ASSERT", "e", file, 7);
        EXPECT_EQ(std::string("TARN_ASSERT failed at line 7 in ") + file + ":\n e\n", viewer().last().data);
    }
    TarnDebug("TARN_ASSERT", "e", nullptr, 7);
    EXPECT_EQ("TARN_ASSERT failed at line 7 in :\n e\n", viewer().last().data);

    const int line = __LINE__ + 1;
    TARN_ASSERT(boxes.count() == 0);
    EXPECT_EQ("TARN_ASSERT failed at line " + std::to_string(line) + " in AssertionReportTest:\n boxes.count() == 0\n",
              viewer().last().data);
    EXPECT_STREQ("Registry", tqm::SourceFileName("C:\\src\\config\\Registry.cpp").text);
    EXPECT_STREQ("molecule", tqm::SourceFileName("D:molecule.h").text);
    EXPECT_STREQ("name.with.dots", tqm::SourceFileName("dir.d/name.with.dots.cpp").text);
    EXPECT_STREQ(".hidden", tqm::SourceFileName("src/.hidden").text);
    static_assert(tqm::SourceFileName("a/b.c").text[0] == 'b', "made by the compiler");
}

TEST_F(AssertionReport, SupportTextOnlyBelow640AndReportsCutAt640)
{
    viewer();
    BoxRecorder boxes;
    const std::string head = "TARN_ASSERT failed at line 1 in X:\n ";
    for (size_t length : {639 - kSupport.size(), 640 - kSupport.size(), size_t(600)}) {
        std::string expr(length - head.size() - 1, 'e');
        TarnDebug("TARN_ASSERT", expr.c_str(), "X", 1);
        std::string report = head + expr + "\n";
        EXPECT_EQ(report.size() + kSupport.size() < 640 ? report + kSupport : report, boxes.last().text) << length;
    }
    std::string expr(5000, 'x');
    TarnDebug("TARN_ASSERT", expr.c_str(), "X", 1);
    std::string cut = (head + expr).substr(0, 640);
    EXPECT_EQ(cut, viewer().last().data);
    EXPECT_EQ(cut, boxes.last().text);
}

TEST_F(AssertionReport, VerifyReportsAKnownCodeByNumberWithTheSystemTextsLength)
{
    viewer();
    BoxRecorder boxes;
    int evaluations = 0;
    int line = __LINE__ + 2;
    SetLastError(ERROR_ACCESS_DENIED);
    TARN_VERIFY(++evaluations == 0);
    TARN_VERIFY(++evaluations == 2);
    EXPECT_EQ(2, evaluations);

    std::string report = "TARN_VERIFY failed at line " + std::to_string(line) +
                         " in AssertionReportTest:\n++evaluations == 0\nCode: 5\n";
    // The trace message is as long as the system's text for the code: deliberate.
    size_t count = tqmtest::SystemText(ERROR_ACCESS_DENIED).size();
    ASSERT_GT(count, 0u);
    ASSERT_EQ(1u, viewer().count());
    EXPECT_EQ((report + std::string(640, '\0')).substr(0, count), viewer().last().data);
    ASSERT_EQ(1u, boxes.count());
    EXPECT_EQ(report + kSupport, boxes.last().text);
}

TEST_F(AssertionReport, VerifyShowsReasonWhenTheSystemHasNoTextAndCutsTheSupportText)
{
    viewer();
    BoxRecorder boxes;
    const DWORD unknown = 0x2000ABCD;
    ASSERT_EQ("", tqmtest::SystemText(unknown));
    TarnDebug("TARN_VERIFY", "Open(path)", "RecFile", 955, unknown);
    EXPECT_EQ("TARN_VERIFY failed at line 955 in RecFile:\nOpen(path)\nReason: (null)\n" + kSupport,
              boxes.last().text);
    EXPECT_EQ("", viewer().last().data);  // the system's text had no characters

    // The length test uses the system text's count, so the append must stop at the room left.
    std::string expr(590, 'v');
    TarnDebug("TARN_VERIFY", expr.c_str(), "X", 1, ERROR_FILE_NOT_FOUND);
    std::string report = "TARN_VERIFY failed at line 1 in X:\n" + expr + "\nCode: 2\n";
    EXPECT_EQ((report + kSupport).substr(0, 640), boxes.last().text);
}

TEST(AssertionReportAbort, AbortEndsTheProcessAtOnce)
{
    if (tqmtest::ChildMode() == "abort") {
        BoxRecorder boxes(IDABORT);
        TARN_ASSERT(1 + 1 == 3);
        printf("the assertion returned\n");
        fflush(stdout);
        ExitProcess(0);
    }
    tqmtest::ProgramRun child = tqmtest::RunSelfAsChild("AssertionReportAbort.AbortEndsTheProcessAtOnce", "abort");
    EXPECT_EQ(3, child.exitCode);
    EXPECT_EQ(std::string::npos, child.out.find("the assertion returned")) << child.out;
}

}  // namespace

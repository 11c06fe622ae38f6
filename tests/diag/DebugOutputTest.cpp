#include "diag/DebugOutput.h"

#include "TraceReceiver.h"
#include "framework/ModuleState.h"
#include "res/StringIds.h"
#include "support/BoxRecorder.h"

#include <gtest/gtest.h>

#include <string.h>

#include <string>

namespace {

using tqmtest::BoxRecorder;
using tqmtest::TraceReceiver;

std::string threadPrefix() { return std::to_string(GetCurrentThreadId() & 0xFFFF) + ": "; }

class DebugOutputWithoutReceiver : public testing::Test
{
protected:
    void SetUp() override
    {
        if (tqmtest::ForeignReceiverRuns(TARN_TRACE_WINDOW_CLASS) ||
            tqmtest::ForeignReceiverRuns(TARN_PROJECT_MANAGER_WINDOW_CLASS))
            GTEST_SKIP() << "a trace viewer or project manager runs on this desktop";
    }
};

TEST_F(DebugOutputWithoutReceiver, EverySendReturnsFalse)
{
    const BYTE bytes[17] = {};
    EXPECT_FALSE(TarnVerbose(TARN_VERBOSE_TO_VMX, "x"));
    EXPECT_FALSE(TarnVerbose(TARN_VERBOSE_ERROR, IDS_OUT_OF_MEMORY));
    EXPECT_FALSE(TarnHexDump(bytes, 17));
    // Nothing to send is not a failure.
    EXPECT_TRUE(TarnHexDump(bytes, 0));
    EXPECT_TRUE(TarnHexDump(bytes, -5));
}

class DebugOutputToViewer : public DebugOutputWithoutReceiver
{
protected:
    void SetUp() override
    {
        DebugOutputWithoutReceiver::SetUp();
        if (!IsSkipped())
            m_viewer = std::make_unique<TraceReceiver>(TARN_TRACE_WINDOW_CLASS);
    }
    TraceReceiver& viewer() { return *m_viewer; }

private:
    std::unique_ptr<TraceReceiver> m_viewer;
};

TEST_F(DebugOutputToViewer, VerboseLinesCarryThePrefixesOfTheirFlags)
{
    struct Case { int flags; std::string expected; } cases[] = {
        {TARN_VERBOSE_ERROR, threadPrefix() + "Error: x\n"},
        {0x30000000, threadPrefix() + "x\n"},  // other severities: no prefix
        {TARN_VERBOSE_NO_THREAD | TARN_VERBOSE_WARNING, "Warning: x\n"},
        {0x00FFFFFF, threadPrefix() + "x\n"},  // unused bits change nothing
    };
    for (const Case& c : cases) {
        viewer().clear();
        EXPECT_TRUE(TarnVerbose(c.flags, "%s", "x")) << c.flags;
        ASSERT_EQ(1u, viewer().count());
        EXPECT_EQ(c.expected, viewer().last().data) << std::hex << c.flags;
        EXPECT_EQ(TARN_TRACE_TAG_VIEWER, viewer().last().tag);
    }
}

TEST_F(DebugOutputToViewer, LineFeedIsAddedOnlyWhenMissingAndRoomRemains)
{
    struct Case { std::string text; std::string expected; } cases[] = {
        {"done\n", "done\n"},
        {std::string(638, 'a'), std::string(638, 'a') + "\n"},
        {std::string(639, 'a'), std::string(639, 'a')},        // 639 + 1 is not below 640
        {std::string(2000, 'a'), std::string(640, 'a')},       // cut at the buffer
    };
    for (const Case& c : cases) {
        viewer().clear();
        TarnVerbose(TARN_VERBOSE_NO_THREAD, "%s", c.text.c_str());
        ASSERT_EQ(1u, viewer().count());
        EXPECT_EQ(c.expected, viewer().last().data) << c.text.size();
    }
    // The prefix counts against the 640 characters.
    viewer().clear();
    TarnVerbose(TARN_VERBOSE_NO_THREAD | TARN_VERBOSE_WARNING, "%s", std::string(700, 'w').c_str());
    EXPECT_EQ("Warning: " + std::string(640 - 9, 'w'), viewer().last().data);
}

TEST_F(DebugOutputToViewer, StringIdFormsTakeTheProgramsResourcesAndAddNoLineFeed)
{
    HINSTANCE saved = AfxGetResourceHandle();
    AfxSetResourceHandle(GetModuleHandleA("Tqmlib52.dll"));  // stands in for a program's own table
    EXPECT_TRUE(TarnVerbose(TARN_VERBOSE_ERROR, IDS_CANNOT_OPEN_FILE, "x.dat"));
    ASSERT_EQ(1u, viewer().count());
    EXPECT_EQ(threadPrefix() + "Error: Cannot open file 'x.dat'.", viewer().last().data);

    BoxRecorder boxes;
    TarnMessageBox(IDS_FILE_NOT_FOUND_INVALID, "y.ini");
    AfxSetResourceHandle(saved);
    ASSERT_EQ(1u, boxes.count());
    EXPECT_EQ("File y.ini not found or invalid.", boxes.last().text);
}

TEST_F(DebugOutputToViewer, ProjectManagerGetsItsLinesTaggedTarnWithoutThreadNumber)
{
    TraceReceiver manager(TARN_PROJECT_MANAGER_WINDOW_CLASS);
    EXPECT_TRUE(TarnVerbose(TARN_VERBOSE_TO_VMX | TARN_VERBOSE_ERROR, "build failed: %d errors", 3));
    EXPECT_EQ(0u, viewer().count());
    ASSERT_EQ(1u, manager.count());
    EXPECT_EQ("Error: build failed: 3 errors\n", manager.last().data);
    EXPECT_EQ(TARN_TRACE_TAG_PROJECT_MANAGER, manager.last().tag);

    // Other destinations still go to the viewer.
    EXPECT_TRUE(TarnVerbose(0x03000000, "x"));
    EXPECT_EQ(1u, viewer().count());
    EXPECT_EQ(1u, manager.count());
}

TEST(TarnMessageBox, ShowsAtMost1024CharactersUnderTheProgramsTitle)
{
    BoxRecorder boxes;
    TarnMessageBox("%d files in %s", 3, "C:\\Projects");
    TarnMessageBox("%s", std::string(3000, 'm').c_str());
    ASSERT_EQ(2u, boxes.count());
    EXPECT_EQ("3 files in C:\\Projects", boxes.boxes()[0].text);
    EXPECT_EQ("diag_test", boxes.boxes()[0].caption);
    EXPECT_EQ(static_cast<UINT>(MB_OK), boxes.boxes()[0].type);
    EXPECT_EQ(std::string(1024, 'm'), boxes.boxes()[1].text);
}

}  // namespace

// tqm trace: a viewer in its own process receives what this process (and a
// third one, tqm trace --send) reports.
#include "diag/DebugOutput.h"
#include "support/ChildProcess.h"
#include "support/ListenerProcess.h"
#include "support/TqmProgram.h"

#include <gtest/gtest.h>

#include <stdio.h>

#include <string>
#include <vector>

namespace {

using tqmtest::RunTqm;
using tqmtest::TqmRun;

std::string hex8(HWND hWnd)
{
    char text[16];
    snprintf(text, sizeof(text), "%08lX", static_cast<unsigned long>(reinterpret_cast<ULONG_PTR>(hWnd)));
    return text;
}

// One printed message: "HH:MM:SS.mmm  WINDOW  TAG  TEXT".
struct ViewerLine { std::string time, window, tag, text; };

// The printed message lines (the viewer's own notes on stderr left out).
std::vector<ViewerLine> viewerLines(const tqmtest::ListenerProcess& viewer)
{
    std::vector<ViewerLine> result;
    for (const std::string& line : viewer.lines()) {
        if (line.size() >= 30)
            result.push_back({line.substr(0, 12), line.substr(14, 8), line.substr(24, 4), line.substr(30)});
    }
    return result;
}

class ViewerProcess : public tqmtest::ListenerProcess
{
public:
    ViewerProcess() : ListenerProcess(TARN_TRACE_WINDOW_CLASS) {}
    bool start(std::vector<std::string> args = {})
    {
        args.insert(args.begin(), "trace");
        return ListenerProcess::start(args);
    }
};

// "<thread>: rest" for a text that starts with some thread number.
std::string anyThreadNumber(const std::string& text)
{
    size_t digits = text.find_first_not_of("0123456789");
    if (digits == 0 || digits == std::string::npos || text.compare(digits, 2, ": ") != 0)
        return text;
    return "<thread>" + text.substr(digits);
}

class TraceCommand : public testing::Test
{
protected:
    void SetUp() override
    {
        if (FindWindowA(TARN_TRACE_WINDOW_CLASS, nullptr))
            GTEST_SKIP() << "a trace viewer already runs on this desktop";
    }
};

TEST_F(TraceCommand, ViewerPrintsWhatOtherProcessesSendInOrder)
{
    ViewerProcess viewer;
    ASSERT_TRUE(viewer.start());

    // A visible window makes this process's main window for the senders.
    HWND main = CreateWindowA("STATIC", "main", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100, nullptr, nullptr,
                              GetModuleHandleA(nullptr), nullptr);
    ASSERT_NE(nullptr, main);

    std::vector<bool> sent;
    sent.push_back(TarnVerbose(0, "first line %d", 1));
    sent.push_back(TarnVerbose(TARN_VERBOSE_ERROR | TARN_VERBOSE_NO_THREAD, "two\nparts"));
    const BYTE bytes[17] = {'T', 'Q', 'M', 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 0xFF};
    sent.push_back(TarnHexDump(bytes, sizeof(bytes)));
    const TqmRun fromTqm = RunTqm({"trace", "--send", "--warning", "from tqm"});
    sent.push_back(TarnVerbose(TARN_VERBOSE_NO_THREAD, "last"));
    DestroyWindow(main);
    EXPECT_EQ(std::vector<bool>(4, true), sent);
    EXPECT_EQ(0, fromTqm.exitCode) << fromTqm.err;
    ASSERT_EQ(0, viewer.close()) << viewer.output();

    std::vector<ViewerLine> lines = viewerLines(viewer);
    std::string us = hex8(main);
    std::string thread = std::to_string(GetCurrentThreadId() & 0xFFFF);
    struct Expected { std::string window, text; } expected[] = {
        {us, thread + ": first line 1"},
        {us, "Error: two\\nparts"},
        {us, "0000 54 51 4D 00 01 02 03 04 05 06 07 08 09 0A 0B 0C  TQM............."},
        {us, "0010 FF " + std::string(45, ' ') + " ."},
        {"00000000", "<thread>: Warning: from tqm"},  // tqm --send has no window
        {us, "last"},
    };
    ASSERT_EQ(sizeof(expected) / sizeof(expected[0]), lines.size()) << viewer.output();
    for (size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ("twin", lines[i].tag) << i;
        EXPECT_EQ(expected[i].window, lines[i].window) << i;
        bool anyThread = expected[i].text.compare(0, 8, "<thread>") == 0;
        EXPECT_EQ(expected[i].text, anyThread ? anyThreadNumber(lines[i].text) : lines[i].text) << i;
        EXPECT_EQ(':', lines[i].time[2]) << i;
        EXPECT_EQ('.', lines[i].time[8]) << i;
    }
}

TEST_F(TraceCommand, OnlyOneViewerRunsAndCountEndsIt)
{
    ViewerProcess viewer;
    ASSERT_TRUE(viewer.start({"--count", "2"}));

    TqmRun second = RunTqm({"trace"});
    EXPECT_EQ(1, second.exitCode);
    EXPECT_NE(std::string::npos, second.err.find("already running")) << second.err;

    EXPECT_EQ(0, RunTqm({"trace", "--send", "a"}).exitCode);
    EXPECT_EQ(0, RunTqm({"trace", "--send", "--error", "b"}).exitCode);
    ASSERT_EQ(0, viewer.wait()) << "--count 2 did not end the viewer";
    std::vector<ViewerLine> lines = viewerLines(viewer);
    ASSERT_EQ(2u, lines.size()) << viewer.output();
    EXPECT_NE(std::string::npos, lines[0].text.find(": a"));
    EXPECT_NE(std::string::npos, lines[1].text.find(": Error: b"));
}

TEST_F(TraceCommand, SendWithoutViewerAndUsageErrors)
{
    TqmRun alone = RunTqm({"trace", "--send", "hello"});
    EXPECT_EQ(1, alone.exitCode);
    EXPECT_NE(std::string::npos, alone.err.find("no trace viewer is running")) << alone.err;

    const std::vector<std::vector<std::string>> usage = {{"trace", "--send"},  {"trace", "--count", "0"},
                                                         {"trace", "--count"}, {"trace", "text"},
                                                         {"trace", "--bogus"}, {"trace", "--send", "a", "b"},
                                                         {"trace", "--error"}};
    for (const auto& args : usage)
        EXPECT_EQ(2, RunTqm(args).exitCode) << args.back();
}

}  // namespace

// tqm trace: a viewer in its own process receives what this process (and a
// third one, tqm trace --send) reports.
#include "diag/DebugOutput.h"
#include "diag/ErrorReport.h"
#include "support/BoxRecorder.h"
#include "support/ChildProcess.h"
#include "support/FileUtil.h"
#include "support/TempDir.h"
#include "support/TqmProgram.h"

#include <gtest/gtest.h>

#include <stdio.h>

#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

using tqmtest::RunTqm;
using tqmtest::TqmRun;

const DWORD kTimeoutMs = 30000;

std::string hex8(HWND hWnd)
{
    char text[16];
    snprintf(text, sizeof(text), "%08lX", static_cast<unsigned long>(reinterpret_cast<ULONG_PTR>(hWnd)));
    return text;
}

// One printed message: "HH:MM:SS.mmm  WINDOW  TAG  TEXT".
struct ViewerLine
{
    std::string time, window, tag, text;
};

// A trace viewer process, killed at the end of the test whatever happens.
class ViewerProcess
{
public:
    bool start(const std::vector<std::string>& options = {})
    {
        std::vector<std::string> args{"trace"};
        args.insert(args.end(), options.begin(), options.end());
        if (!m_process.start(tqmtest::TqmCommandLine(args), m_dir.file("viewer.txt")))
            return false;
        for (DWORD waited = 0; waited < kTimeoutMs; waited += 50) {
            m_window = FindWindowA(TARN_TRACE_WINDOW_CLASS, nullptr);
            if (m_window)
                return true;
            if (m_process.wait(50))
                return false;  // it ended instead
        }
        return false;
    }
    HWND window() const { return m_window; }
    tqmtest::RunningProgram& process() { return m_process; }
    std::string output() const { return tqmtest::ReadBytes(m_dir.file("viewer.txt")); }

    // The message lines printed so far (the viewer's own notes on stderr left out).
    std::vector<ViewerLine> lines() const
    {
        std::vector<ViewerLine> result;
        std::istringstream in(output());
        std::string line;
        while (std::getline(in, line)) {
            if (!line.empty() && line.back() == '\r')
                line.pop_back();
            if (line.size() < 30 || line.compare(0, 10, "tqm trace:") == 0)
                continue;
            result.push_back({line.substr(0, 12), line.substr(14, 8), line.substr(24, 4), line.substr(30)});
        }
        return result;
    }

private:
    tqmtest::TempDir m_dir;
    tqmtest::RunningProgram m_process;
    HWND m_window = nullptr;
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

// Runs work on a thread of its own; when it does not finish in time (a send
// to a stuck viewer), the viewer is killed, which lets every send return.
template <typename Work>
bool runWithViewerWatchdog(ViewerProcess& viewer, Work work)
{
    HANDLE done = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    std::thread worker([&] {
        work();
        SetEvent(done);
    });
    bool inTime = WaitForSingleObject(done, kTimeoutMs) == WAIT_OBJECT_0;
    if (!inTime)
        viewer.process().kill();
    worker.join();
    CloseHandle(done);
    return inTime;
}

TEST_F(TraceCommand, ViewerPrintsWhatOtherProcessesSendInOrder)
{
    ViewerProcess viewer;
    ASSERT_TRUE(viewer.start()) << viewer.output();

    // A visible window makes this process's main window for the senders.
    HWND main = CreateWindowA("STATIC", "main", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100, nullptr, nullptr,
                              GetModuleHandleA(nullptr), nullptr);
    ASSERT_NE(nullptr, main);

    tqmtest::BoxRecorder boxes(IDIGNORE);
    DWORD workerId = 0;
    TqmRun fromTqm;
    std::vector<bool> sent;
    bool inTime = runWithViewerWatchdog(viewer, [&] {
        workerId = GetCurrentThreadId();
        sent.push_back(TarnVerbose(0, "first line %d", 1));
        sent.push_back(TarnVerbose(TARN_VERBOSE_ERROR | TARN_VERBOSE_NO_THREAD, "two\nparts"));
        const BYTE bytes[17] = {'T', 'Q', 'M', 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 0xFF};
        sent.push_back(TarnHexDump(bytes, sizeof(bytes)));
        sent.push_back(TarnDebug("TARN_ASSERT", "pData != NULL", "C:\\src\\datafiles\\RecFile.cpp", 955));
        fromTqm = RunTqm({"trace", "--send", "--warning", "from tqm"});
        sent.push_back(TarnVerbose(TARN_VERBOSE_NO_THREAD, "last"));
    });
    DestroyWindow(main);
    ASSERT_TRUE(inTime) << "a send did not return; the viewer was killed";
    EXPECT_EQ(std::vector<bool>(5, true), sent);
    EXPECT_EQ(0, fromTqm.exitCode) << fromTqm.err;
    EXPECT_EQ(1u, boxes.count());

    PostMessageA(viewer.window(), WM_CLOSE, 0, 0);
    ASSERT_TRUE(viewer.process().wait(kTimeoutMs)) << viewer.output();
    EXPECT_EQ(0u, viewer.process().exitCode());

    std::vector<ViewerLine> lines = viewer.lines();
    std::string us = hex8(main);
    std::string worker = std::to_string(workerId & 0xFFFF);
    struct Expected { std::string window, text; } expected[] = {
        {us, worker + ": first line 1"},
        {us, "Error: two\\nparts"},
        {us, "0000 54 51 4D 00 01 02 03 04 05 06 07 08 09 0A 0B 0C  TQM............."},
        {us, "0010 FF " + std::string(45, ' ') + " ."},
        {us, "TARN_ASSERT failed at line 955 in RecFile:\\n pData != NULL"},
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
    ASSERT_TRUE(viewer.start({"--count", "2"})) << viewer.output();

    TqmRun second = RunTqm({"trace"});
    EXPECT_EQ(1, second.exitCode);
    EXPECT_NE(std::string::npos, second.err.find("already running")) << second.err;

    EXPECT_EQ(0, RunTqm({"trace", "--send", "a"}).exitCode);
    EXPECT_EQ(0, RunTqm({"trace", "--send", "--error", "b"}).exitCode);
    ASSERT_TRUE(viewer.process().wait(kTimeoutMs)) << "--count 2 did not end the viewer";
    EXPECT_EQ(0u, viewer.process().exitCode());
    std::vector<ViewerLine> lines = viewer.lines();
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

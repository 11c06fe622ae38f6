// ReadFileLine on files of every shape; ExecApp and IsAppRunning with a real
// program in the applications directory; the widths of the parameter blocks.
#include "ipc/AckMessages.h"
#include "ipc/DataExchange.h"
#include "ipc/Processes.h"
#include "ipc/logic/MessageLevel.h"

#include "config/QM5Profile.h"
#include "framework/Handles.h"
#include "support/FileUtil.h"
#include "support/FixtureFiles.h"
#include "support/SuiteSettingsGuard.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <stddef.h>
#include <string.h>

#include <string>
#include <vector>

namespace {

// Every line ReadFileLine gives for the file's bytes with buffers of size
// characters, until it returns FALSE; checks that nothing is written past
// the buffer.
std::vector<std::string> readLines(const std::string& bytes, UINT size)
{
    tqmtest::TempDir dir;
    const std::string path = dir.file("lines.txt");
    tqmtest::WriteBytes(path, bytes);
    tqm::UniqueFile file(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    // An old-style handle, as the suite's callers hold it (_lopen and the like).
    const HFILE hFile = static_cast<HFILE>(reinterpret_cast<INT_PTR>(file.get()));
    std::vector<std::string> lines;
    std::vector<char> buffer(size + 16);
    for (int guard = 0; guard < 100; ++guard) {
        memset(buffer.data(), '#', buffer.size());
        if (!ReadFileLine(hFile, buffer.data(), size))
            break;
        lines.push_back(buffer.data());
        EXPECT_EQ('#', buffer[size]) << "wrote past the buffer";
    }
    return lines;
}

using Lines = std::vector<std::string>;

TEST(ReadFileLine, LinesOfEveryShape)
{
    struct Case { std::string bytes; UINT size; Lines expected; } cases[] = {
        {"first\r\nsecond\r\n", 100, {"first", "second"}},
        {"unix\nlast without end", 100, {"unix", "last without end"}},
        {"", 100, {}},
        {"\n\n", 100, {"", ""}},
        // Carriage returns alone end no line: they are only removed.
        {"a\rb\rc\r", 100, {"abc"}},
        // Longer than the buffer: pieces of size - 1, one byte lost between.
        {"abcdefghij\nxy\n", 5, {"abcd", "fghi", "", "xy"}},
        // A line that fills the buffer exactly loses its line feed alone.
        {"abcd\nef\n", 5, {"abcd", "ef"}},
        // Exactly one byte fits: nothing is read, so no line.
        {"abc\n", 1, {}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.expected, readLines(c.bytes, c.size)) << c.bytes << " / " << c.size;
}

TEST(ReadFileLine, RefusesWhatItCannotFill)
{
    char buffer[4] = {'#', '#', '#', '#'};
    EXPECT_FALSE(ReadFileLine(HFILE_ERROR, buffer, sizeof(buffer)));
    EXPECT_EQ('\0', buffer[0]);
    buffer[0] = '#';
    EXPECT_FALSE(ReadFileLine(HFILE_ERROR, buffer, 0));
    EXPECT_EQ('#', buffer[0]);
    EXPECT_FALSE(ReadFileLine(HFILE_ERROR, nullptr, 10));
}

// The parameter blocks keep the shipped 32-bit layout there, and are
// pointer-sized per handle in the 64-bit build.
TEST(Widths, ParameterBlocksAndThePartnerGoneValue)
{
    constexpr size_t p = sizeof(void*);
    EXPECT_EQ(0u, offsetof(EXECAPPINFO, hInstance));
    EXPECT_EQ(p, offsetof(EXECAPPINFO, hWndMain));
    EXPECT_EQ(2 * p, offsetof(EXECAPPINFO, hProcess));
    EXPECT_EQ(3 * p, offsetof(EXECAPPINFO, hThread));
    EXPECT_EQ(4 * p, offsetof(EXECAPPINFO, dwProcessId));
    EXPECT_EQ(4 * p + 4, offsetof(EXECAPPINFO, dwThreadId));
    EXPECT_EQ(p == 4 ? 24u : 40u, sizeof(EXECAPPINFO));

    EXPECT_EQ(2 * p, offsetof(EXCHANGEDATA, pszSectionName));
    EXPECT_EQ(3 * p, offsetof(EXCHANGEDATA, dwRequestSize));
    EXPECT_EQ(p == 4 ? 28u : 56u, sizeof(EXCHANGEDATA));

    // The same numbers in both builds: not -1 widened, and a message line's
    // level word reckoned in 32 bits.
    EXPECT_EQ(0xFFFFFFFFull, static_cast<unsigned long long>(static_cast<ULONG_PTR>(TQM_ACK_PARTNER_GONE)));
    EXPECT_EQ(p == 4, TQM_ACK_PARTNER_GONE == static_cast<LRESULT>(-1));
    EXPECT_EQ(0xAAA9FFFFu, tqm::DisplayMessageWord(-1));
    EXPECT_EQ(0x0AAA0000u, tqm::DisplayMessageWord(0x60000000));
    int level = 0;
    EXPECT_TRUE(tqm::ReadDisplayMessageWord(0xAAA9FFFF, &level));
    EXPECT_EQ(-1, level);
}

// A started probe that is stopped when the test ends, however it ends.
struct StartedProbe
{
    EXECAPPINFO info = {};
    ~StartedProbe()
    {
        tqm::UniqueHandle process(OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, info.dwProcessId));
        if (process && WaitForSingleObject(process.get(), 0) == WAIT_TIMEOUT)
            TerminateProcess(process.get(), 1);
    }
    // Closes its window and waits (up to 20 s) until the process has ended.
    bool closeAndWait()
    {
        tqm::UniqueHandle process(OpenProcess(SYNCHRONIZE, FALSE, info.dwProcessId));
        PostMessageA(info.hWndMain, WM_CLOSE, 0, 0);
        return process && WaitForSingleObject(process.get(), 20000) == WAIT_OBJECT_0;
    }
};

class ExecAppTest : public testing::Test
{
protected:
    void SetUp() override
    {
        TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "AppsDir", m_apps.path().c_str());
        ASSERT_TRUE(CopyFileA(tqmtest::FixturePath("ExecProbe.exe").c_str(), m_apps.file("ExecProbe.exe").c_str(),
                              FALSE));
    }

    std::string className(HWND hWnd)
    {
        char name[256] = "";
        GetClassNameA(hWnd, name, sizeof(name));
        return name;
    }

    tqmtest::SuiteSettingsGuard m_settings;
    tqmtest::TempDir m_apps;
};

TEST_F(ExecAppTest, FindsTheMainWindowByThreadAndWatchesTheProgramEnd)
{
    StartedProbe probe;
    // The folder given is not used: the program always comes from the
    // applications directory; ".exe" is added.
    ASSERT_TRUE(ExecApp(nullptr, "C:\\nowhere\\execprobe", "", &probe.info, SW_SHOWNORMAL));
    ASSERT_NE(nullptr, probe.info.hWndMain);
    EXPECT_EQ("MainFrame", className(probe.info.hWndMain));
    DWORD processId = 0;
    EXPECT_EQ(probe.info.dwThreadId, GetWindowThreadProcessId(probe.info.hWndMain, &processId));
    EXPECT_EQ(probe.info.dwProcessId, processId);
    EXPECT_EQ(reinterpret_cast<HINSTANCE>(GetWindowLongPtrA(probe.info.hWndMain, GWLP_HINSTANCE)),
              probe.info.hInstance);
    EXPECT_NE(nullptr, probe.info.hInstance);
    EXPECT_TRUE(IsAppRunning(&probe.info));

    // Without the window, only the handle ExecApp closed is left to ask.
    EXECAPPINFO withoutWindow = probe.info;
    withoutWindow.hWndMain = nullptr;
    EXPECT_FALSE(IsAppRunning(&withoutWindow));

    ASSERT_TRUE(probe.closeAndWait());
    EXPECT_FALSE(IsAppRunning(&probe.info));
}

TEST_F(ExecAppTest, FallsBackToTheClassNameForWindowsOfOtherThreads)
{
    StartedProbe probe;
    ASSERT_TRUE(ExecApp(nullptr, "ExecProbe.exe", "worker", &probe.info, SW_SHOWNORMAL));
    ASSERT_NE(nullptr, probe.info.hWndMain);
    EXPECT_EQ("TqmExecProbeWindow", className(probe.info.hWndMain));
    EXPECT_NE(probe.info.dwThreadId, GetWindowThreadProcessId(probe.info.hWndMain, nullptr));
    EXPECT_TRUE(IsAppRunning(&probe.info));
    ASSERT_TRUE(probe.closeAndWait());
    EXPECT_FALSE(IsAppRunning(&probe.info));
}

TEST_F(ExecAppTest, MissingProgramIsNotStarted)
{
    EXECAPPINFO info = {};
    memset(&info, 0x5A, sizeof(info));
    const EXECAPPINFO untouched = info;
    // The probe is in the applications directory, but not under this name.
    EXPECT_FALSE(ExecApp(nullptr, "NoSuchProgram", "", &info, SW_HIDE));
    EXPECT_EQ(0, memcmp(&untouched, &info, sizeof(info)));
    info = EXECAPPINFO{};
    EXPECT_FALSE(IsAppRunning(&info));
}

}  // namespace

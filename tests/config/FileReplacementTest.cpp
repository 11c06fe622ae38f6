// Saving over a document that others read: the temporary files' names, the
// short wait for a reader that holds the document, and the clearing of what
// killed writers left.
#include "config/IniFile.h"
#include "config/logic/ReplacementNames.h"

#include "framework/Handles.h"
#include "support/FileUtil.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

using tqmtest::PathExists;
using tqmtest::ReadBytes;
using tqmtest::TempDir;
using tqmtest::WriteBytes;

TEST(ReplacementNames, TellTheTargetsOwnTemporaryFilesFromOthers)
{
    const std::string name = tqm::ReplacementTempName("Doc.ini", 0x1A2B, 3);
    EXPECT_EQ("Doc.ini.~1A2B-3.tmp", name);
    DWORD pid = 0;
    EXPECT_TRUE(tqm::ParseReplacementTempName(name.c_str(), "Doc.ini", &pid));
    EXPECT_EQ(0x1A2Bu, pid);
    EXPECT_TRUE(tqm::ParseReplacementTempName("DOC.INI.~ffffffff-0.TMP", "doc.ini", &pid));
    EXPECT_EQ(0xFFFFFFFFu, pid);
    // Another document's, a user's own file, and what is not quite the form.
    for (const char* other : {"Doc.ini2.~1A2B-3.tmp", "Do.ini.~1A2B-3.tmp", "Doc.ini.~1A2B-3.tmp.bak",
                              "Doc.ini.~1A2B.tmp", "Doc.ini.~-3.tmp", "Doc.ini.~1A2B-.tmp", "Doc.ini.~123456789-1.tmp",
                              "Doc.ini.~1A2G-3.tmp", "Doc.ini~1A2B-3.tmp", "Doc.ini"})
        EXPECT_FALSE(tqm::ParseReplacementTempName(other, "Doc.ini", &pid)) << other;
}

TEST(ReplacementNames, TheWaitForAHeldTargetIsShortAndEnds)
{
    DWORD total = 0;
    int attempt = 1;
    for (; tqm::ReplaceRetryDelayMs(attempt) != 0; ++attempt)
        total += tqm::ReplaceRetryDelayMs(attempt);
    EXPECT_GT(attempt, 5);
    EXPECT_LE(total, 1000u);
    EXPECT_EQ(1u, tqm::ReplaceRetryDelayMs(1));
}

// The document open for reading, without sharing its deletion, as the
// suite's readers hold it, for ms milliseconds from now on.
std::thread holdFor(const std::string& path, DWORD ms, HANDLE opened)
{
    return std::thread([path, ms, opened] {
        tqm::UniqueFile file(
            CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
        SetEvent(opened);
        Sleep(ms);
    });
}

TEST(IniWriteWhileRead, WaitsForAReaderAMomentThenGivesUpKeepingTheOldDocument)
{
    TempDir dir;
    const std::string path = dir.file("Held.ini");
    CTQMIniFile doc;
    doc.SetEntryValue("S", "k", "old");
    ASSERT_EQ(1, doc.Write(path.c_str()));
    const std::string old = ReadBytes(path);
    doc.SetEntryValue("S", "k", "new");
    tqm::UniqueHandle opened(CreateEventA(nullptr, TRUE, FALSE, nullptr));

    // A reader done within moments: the save gets through.
    std::thread shortRead = holdFor(path, 60, opened.get());
    WaitForSingleObject(opened.get(), INFINITE);
    EXPECT_EQ(1, doc.Write(path.c_str()));
    shortRead.join();
    EXPECT_NE(std::string::npos, ReadBytes(path).find("k=new"));

    // One that holds on: 0, the document as it was, no temporary file.
    ASSERT_TRUE(WriteBytes(path, old));
    ResetEvent(opened.get());
    std::thread longRead = holdFor(path, 3000, opened.get());
    WaitForSingleObject(opened.get(), INFINITE);
    const DWORD start = GetTickCount();
    const int result = doc.Write(path.c_str());
    const DWORD waited = GetTickCount() - start;
    longRead.join();
    EXPECT_EQ(0, result);
    EXPECT_LT(waited, 2000u);
    EXPECT_EQ(old, ReadBytes(path));
    WIN32_FIND_DATAA found;
    HANDLE find = FindFirstFileA(dir.file("*.tmp").c_str(), &found);
    EXPECT_EQ(INVALID_HANDLE_VALUE, find) << found.cFileName;
    if (find != INVALID_HANDLE_VALUE)
        FindClose(find);
}

// The id of a process that has ended.
DWORD endedProcessId()
{
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process = {};
    char line[] = "cmd.exe /c exit";
    if (!CreateProcessA(nullptr, line, nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr, &startup,
                        &process))
        return 0;
    WaitForSingleObject(process.hProcess, 30000);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return process.dwProcessId;
}

TEST(IniWriteAfterAKilledWriter, RemovesWhatTheKilledWriterLeftAndNothingElse)
{
    TempDir dir;
    const std::string path = dir.file("Doc.ini");
    const DWORD dead = endedProcessId();
    ASSERT_NE(0u, dead);
    const std::string killed = dir.file(tqm::ReplacementTempName("Doc.ini", dead, 7));
    const std::string ours = dir.file(tqm::ReplacementTempName("Doc.ini", GetCurrentProcessId(), 99999));
    const std::string otherDoc = dir.file(tqm::ReplacementTempName("Other.ini", dead, 7));
    for (const std::string& file : {killed, ours, otherDoc})
        ASSERT_TRUE(WriteBytes(file, "[Half"));
    CTQMIniFile doc;
    doc.SetEntryValue("S", "k", "v");
    ASSERT_EQ(1, doc.Write(path.c_str()));
    EXPECT_FALSE(PathExists(killed));
    EXPECT_TRUE(PathExists(ours));   // a replacement of this process may be on its way
    EXPECT_TRUE(PathExists(otherDoc));
    EXPECT_NE(std::string::npos, ReadBytes(path).find("k=v"));
}

}  // namespace

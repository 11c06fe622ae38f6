// The suite's path-name rules: TQMIsValidPathName, TQMIsValidFileName,
// TQMHasDir and the reasons behind a refusal.
#include "paths/PathNames.h"
#include "paths/logic/PathNameRules.h"

#include <gtest/gtest.h>

#include <string.h>

#include <string>

namespace {

using tqm::PathNameFault;

struct NameCase { const char* path; bool wildcards; bool valid; };

TEST(PathNameRules, NamesUsersType)
{
    const NameCase cases[] = {
        {"C:\\Projects\\Plant 1", false, true},
        {"\\\\server\\share\\x", false, true},
        {"C:\\", false, false},
        {"a.\\b", false, true},
        {"x*.lin", false, false},
        {"C:\\dir\\plant?.tarn5pc", true, true},
        {"..\\x", false, true},
        {"..\\..\\x", false, false},  // narrower than Windows, deliberately
        {".\\..\\x", false, false},
        {"a\\..\\b", false, false},
        {"a/b", false, false},
        {"a:b", false, true},  // drive-relative
        {"C:\\\\srv\\x", false, true},
        {"C:..\\x", false, true},
        {"plant~1 (copy) [2]-$%'_@`!^#&+,=", false, true},
    };
    for (const NameCase& c : cases) {
        EXPECT_EQ(c.valid ? 1 : 0, TQMIsValidPathName(c.path, c.wildcards))
            << '"' << c.path << "\" wildcards " << c.wildcards;
    }
}

TEST(PathNameRules, DeviceNames)
{
    // Numbered devices anywhere; the others only as a whole name without a folder.
    const NameCase cases[] = {
        {"lpt9", false, false},  {"C:\\dir\\com9.lin", false, false}, {"COM10", false, true},
        {"LPTX", false, true},   {"aUx", false, false},             {"C:AUX", false, false},
        {"\\\\AUX", false, false}, {"AUX.txt", false, true},       {"C:\\AUX", false, true},
        {"dir\\aux", false, true}, {"CON", false, true},            {"NUL", false, true},
    };
    for (const NameCase& c : cases)
        EXPECT_EQ(c.valid ? 1 : 0, TQMIsValidPathName(c.path, c.wildcards)) << '"' << c.path << '"';
}

// Every byte between two letters: letters and digits of the code page and
// exactly twenty punctuation characters pass.
TEST(PathNameRules, EveryCharacterOutsideTheAllowedSetIsRefused)
{
    const char allowed[] = " $%'-_@~`!()^#&+,=[]";
    for (int byte = 1; byte < 128; ++byte) {
        const char ch = static_cast<char>(byte);
        if (ch == '\\' || ch == '.' || ch == '?' || ch == '*')
            continue;
        const bool alphaNumeric = (ch >= 'a' && ch <= 'z') || (ch >= 'A' && ch <= 'Z') || (ch >= '0' && ch <= '9');
        const bool expected = alphaNumeric || strchr(allowed, ch) != nullptr;
        const char name[] = {'a', 'b', ch, 'c', '\0'};
        EXPECT_EQ(expected ? 1 : 0, TQMIsValidPathName(name, TRUE)) << "byte " << byte;
    }
    if (GetACP() == 1252) {
        EXPECT_EQ(1, TQMIsValidPathName("Anlage \xE9t\xFC", FALSE));  // letters of the code page
        EXPECT_EQ(0, TQMIsValidPathName("a\xA7" "b", FALSE));          // section sign
        EXPECT_EQ(0, TQMIsValidPathName("a\x80" "b", FALSE));          // euro sign
    }
}

TEST(PathNameRules, EmptyNullAndLong)
{
    EXPECT_EQ(0, TQMIsValidPathName(nullptr, TRUE));
    EXPECT_EQ(0, TQMIsValidPathName("", TRUE));
    EXPECT_FALSE(TQMIsValidFileName(nullptr, TRUE));
    EXPECT_FALSE(TQMHasDir(nullptr));
    // The rules set no length limit.
    EXPECT_EQ(1, TQMIsValidPathName(("C:\\" + std::string(300, 'n') + "\\x").c_str(), FALSE));
}

TEST(PathNameRules, ReasonsPointAtTheFault)
{
    struct ReasonCase { const char* path; bool wildcards; PathNameFault fault; int position; } cases[] = {
        {"1:x", false, PathNameFault::BadDriveLetter, 0},
        {"C:", false, PathNameFault::DriveOnly, -1},
        {"\\\\\\x", false, PathNameFault::BadUncPrefix, 2},
        {"\\\\", false, PathNameFault::BadUncPrefix, -1},     // nothing follows: no character to point at
        {"C:\\\\", false, PathNameFault::BadUncPrefix, -1},
        {".x", false, PathNameFault::BadLeadingDot, 0},
        {"a...b", false, PathNameFault::TooManyDots, 3},
        {"a\\.b", false, PathNameFault::DotAfterBackslash, 2},
        {"a\\\\b", false, PathNameFault::DoubleBackslash, 2},
        {"a|b", true, PathNameFault::BadCharacter, 1},
        {"a..", false, PathNameFault::TrailingDoubleDot, 2},
        {"dir\\", false, PathNameFault::TrailingBackslash, 3},
        {"C:\\ok.txt", false, PathNameFault::None, -1},
    };
    for (const ReasonCase& c : cases) {
        const tqm::PathNameVerdict verdict = tqm::CheckPathName(c.path, c.wildcards);
        EXPECT_EQ(c.fault, verdict.fault) << '"' << c.path << '"';
        EXPECT_EQ(c.position, verdict.position) << '"' << c.path << '"';
        EXPECT_LT(verdict.position, static_cast<int>(strlen(c.path))) << "a position names a character";
        EXPECT_NE(nullptr, tqm::DescribePathNameFault(verdict.fault));
    }
}

TEST(PathNameRules, FileNamesAndHasDir)
{
    EXPECT_FALSE(TQMIsValidFileName("plant.tarn5pc", FALSE));
    EXPECT_TRUE(TQMIsValidFileName("plant.tarn5pc", TRUE));
    EXPECT_TRUE(TQMIsValidFileName("plant", FALSE));
    EXPECT_FALSE(TQMIsValidFileName("sub\\plant", TRUE));
    EXPECT_FALSE(TQMIsValidFileName("C:plant", TRUE));
    EXPECT_FALSE(TQMIsValidFileName("plant*", TRUE));  // never wildcards
    EXPECT_FALSE(TQMIsValidFileName("COM2.x", TRUE));
    EXPECT_TRUE(TQMIsValidFileName("plant.", TRUE));
    EXPECT_FALSE(TQMIsValidFileName("plant.", FALSE));

    EXPECT_TRUE(TQMHasDir(".hidden"));
    EXPECT_TRUE(TQMHasDir("a/b"));
    EXPECT_TRUE(TQMHasDir("C:b"));
    EXPECT_FALSE(TQMHasDir("plant.tarn5pc"));
}

TEST(PathNameRules, SplitLikeTheRuntimeWithoutItsLimits)
{
    const tqm::PathParts parts = tqm::SplitPath("a/b.c.d");
    EXPECT_STREQ("a/", parts.dir);
    EXPECT_STREQ("b.c", parts.name);
    EXPECT_STREQ(".d", parts.ext);
    // No fixed buffers: a name far beyond the runtime's 256 characters.
    const std::string longName(1000, 'x');
    EXPECT_EQ(1000, tqm::SplitPath(("C:\\" + longName + ".ext").c_str()).name.GetLength());
}

}  // namespace

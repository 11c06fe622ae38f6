// CTQMIniFile: reading, the failing line, lookups and edits, writing back.
#include "config/IniFile.h"

#include "support/ExpectInvalidArg.h"
#include "support/FileUtil.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <string.h>

#include <string>
#include <vector>

namespace {

using tqmtest::ExpectInvalidArg;
using tqmtest::ReadBytes;
using tqmtest::TempDir;
using tqmtest::WriteBytes;

// A document that skips malformed lines, and access to the protected members.
class TestIni : public CTQMIniFile
{
public:
    void SetTolerant() { m_bTolerant = TRUE; }
    using CTQMIniFile::findEntry;
    using CTQMIniFile::findSection;

    // Edits of the kind a derived class makes on the documented records.
    void SwapSections(int a, int b)
    {
        void* p = m_pSections->GetAt(a);
        m_pSections->SetAt(a, m_pSections->GetAt(b));
        m_pSections->SetAt(b, p);
    }
    // Replaces the entry by a record of its own making, freeing the old one.
    void ReplaceEntryRecord(int nSection, int nEntry, const char* pszName, const char* pszValue)
    {
        ASSERT_EQ(1, findSection(nSection));
        size_t nName = strlen(pszName), nValue = strlen(pszValue);
        char* pRec = new char[2 + nName + 1 + nValue + 1];
        unsigned short nCount = static_cast<unsigned short>(nName + 1);
        memcpy(pRec, &nCount, 2);
        memcpy(pRec + 2, pszName, nName + 1);
        memcpy(pRec + 2 + nName + 1, pszValue, nValue + 1);
        delete[] static_cast<char*>(m_pCurEntries->GetAt(nEntry));
        m_pCurEntries->SetAt(nEntry, pRec);
    }
    // Removes a section the way the documented model allows.
    void DeleteSection(int nSection)
    {
        char* pRec = static_cast<char*>(m_pSections->GetAt(nSection));
        CPtrArray* pEntries = *reinterpret_cast<CPtrArray**>(pRec);
        for (int i = 0; i < pEntries->GetSize(); ++i)
            delete[] static_cast<char*>(pEntries->GetAt(i));
        delete pEntries;
        delete[] pRec;
        m_pSections->RemoveAt(nSection);
    }
};

// Reads bytes as a file; the Read result.
int readBytes(CTQMIniFile& ini, const TempDir& dir, const std::string& bytes)
{
    std::string path = dir.file("in.ini");
    EXPECT_TRUE(WriteBytes(path, bytes));
    return ini.Read(path.c_str());
}

// Every section and entry as "[S]" and "k=v" lines.
std::vector<std::string> contentsOf(CTQMIniFile& ini)
{
    std::vector<std::string> out;
    for (int s = 0; s < ini.GetNumSections(); ++s) {
        out.push_back(std::string("[") + ini.GetSectionName(s) + "]");
        for (int e = 0; e < ini.GetNumEntries(s); ++e)
            out.push_back(std::string(ini.GetEntryName(s, e)) + "=" + ini.GetEntryValue(s, e));
    }
    return out;
}

TEST(CTQMIniFile, ReadKeepsOnlyTheHeadComment)
{
    TempDir dir;
    CTQMIniFile ini;
    ASSERT_EQ(1, readBytes(ini, dir,
                           "; first\r\n  # second\r\n\r\n; lost\r\n[S]\r\n// lost too\r\nk = v\r\n# and this\r\n"));
    EXPECT_STREQ("; first\n  # second\n", ini.GetFileComment());
    EXPECT_EQ((std::vector<std::string>{"[S]", "k=v"}), contentsOf(ini));
    EXPECT_EQ(7, ini.GetErrLine());  // 8 lines read
}

// Every head comment line keeps exactly one line feed, however it ends, so
// that writing and reading again gives the same document.
TEST(CTQMIniFile, HeadCommentLinesStayWholeThroughWriteAndRead)
{
    TempDir dir;
    // A long comment line comes in pieces: here the second piece starts
    // with a comment character of its own.
    const std::string longComment = "; " + std::string(3069, 'c') + "#" + std::string(1000, 'c');
    struct Case { std::string bytes; std::string comment; int lastLine; } cases[] = {
        {"; no line feed at the end", "; no line feed at the end\n", 0},
        {std::string("; before\0after\r\n[S]\r\nk=v\r\n", 26), "; before\n", 2},
        {longComment + "\r\n# next\r\n\r\n[S]\r\nk=v\r\n", longComment + "\n# next\n", 5},
        // A last line exactly one reading buffer long: written back with a
        // line feed, it reads as a full piece and an empty line.
        {"; " + std::string(3069, 'c'), "; " + std::string(3069, 'c'), 0},
    };
    for (const Case& c : cases) {
        CTQMIniFile ini;
        ASSERT_EQ(1, readBytes(ini, dir, c.bytes));
        EXPECT_EQ(c.comment, ini.GetFileComment());
        EXPECT_EQ(c.lastLine, ini.GetErrLine()) << "a long line still counts in pieces";
        std::string path = dir.file("again.ini");
        ASSERT_EQ(1, ini.Write(path.c_str()));
        CTQMIniFile back;
        ASSERT_EQ(1, back.Read(path.c_str()));
        EXPECT_EQ(c.comment, back.GetFileComment());
        EXPECT_EQ(contentsOf(ini), contentsOf(back));
    }
}

TEST(CTQMIniFile, EachPieceOfALongLineIsReadOnItsOwn)
{
    // Lines longer than 3,071 characters arrive in pieces, and the tail of a
    // comment is whatever it looks like.
    TempDir dir;
    CTQMIniFile ini;
    EXPECT_EQ(0, readBytes(ini, dir, ";" + std::string(3100, 'x') + "\n[S]\na=1\n"));
    EXPECT_EQ(1, ini.GetErrLine()) << "the tail is an entry before the first section";
    EXPECT_EQ(";" + std::string(3070, 'x'), std::string(ini.GetFileComment()));

    ASSERT_EQ(1, readBytes(ini, dir, "[S]\n;" + std::string(3075, 'x') + "=v\n"));
    EXPECT_EQ(2, ini.GetErrLine());
    EXPECT_EQ(1, ini.GetNumEntries("S"));
    EXPECT_STREQ("v", ini.GetEntryValue("S", "xxxxx"));
}

TEST(CTQMIniFile, EmptyAndMissingFiles)
{
    TempDir dir;
    CTQMIniFile ini;
    EXPECT_EQ(1, readBytes(ini, dir, ""));
    EXPECT_EQ(0, ini.GetNumSections());
    EXPECT_EQ(-1, ini.GetErrLine());

    ini.SetEntryValue("S", "k", "v");
    EXPECT_EQ(0, ini.Read(dir.file("missing.ini").c_str()));
    EXPECT_EQ(-1, ini.GetErrLine());
    EXPECT_EQ(0, ini.GetNumSections());  // the old contents are gone
    EXPECT_EQ(0, ini.Read(dir.path().c_str()));  // a folder

    // A file somebody holds without sharing fails like a missing one.
    std::string path = dir.file("locked.ini");
    ASSERT_TRUE(WriteBytes(path, "[S]\r\nk=v\r\n"));
    HANDLE hLock = CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, hLock);
    EXPECT_EQ(0, ini.Read(path.c_str()));
    EXPECT_EQ(-1, ini.GetErrLine());
    CloseHandle(hLock);

    // One that another program is writing, sharing reading and writing, reads.
    HANDLE hWriter = CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                 nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, hWriter);
    EXPECT_EQ(1, ini.Read(path.c_str()));
    EXPECT_STREQ("v", ini.GetEntryValue("S", "k"));
    CloseHandle(hWriter);
}

TEST(CTQMIniFile, MalformedLinesStopReadingAtTheirLine)
{
    // The failing line counts from 0.
    // The tolerant reader skips only an entry before the first header and a
    // line without "=".
    const struct { const char* bytes; int line; int sectionsKept; bool tolerated; } cases[] = {
        {"[S]\r\nk=v\r\n[Broken\r\n[T]\r\n", 2, 1, false},
        {"[S]\r\n[]\r\n", 1, 1, false},
        {"[S]\r\n[ \xA0 ]\r\n", 1, 1, false},
        {"; c\r\nk=v\r\n[S]\r\n", 1, 0, true},        // an entry before the first header
        {"[S]\r\n\r\nno equals\r\n", 2, 1, true},
        {"[S]\r\n  = value\r\n", 1, 1, false},
        {"[S]\r\n\xE4\xE4=value\r\n", 1, 1, false},   // a name of high bytes only is empty
    };
    TempDir dir;
    for (const auto& c : cases) {
        CTQMIniFile ini;
        EXPECT_EQ(0, readBytes(ini, dir, c.bytes)) << c.bytes;
        EXPECT_EQ(c.line, ini.GetErrLine()) << c.bytes;
        EXPECT_EQ(c.sectionsKept, ini.GetNumSections()) << c.bytes;

        TestIni tolerant;
        tolerant.SetTolerant();
        EXPECT_EQ(c.tolerated ? 1 : 0, readBytes(tolerant, dir, c.bytes)) << c.bytes;
        if (!c.tolerated) {
            EXPECT_EQ(c.line, tolerant.GetErrLine()) << c.bytes;
        }
    }
}

TEST(CTQMIniFile, LineGrammar)
{
    TempDir dir;
    CTQMIniFile ini;
    ASSERT_EQ(1, readBytes(ini, dir,
                           "[ Main ] ignored\r\n"
                           "  name \t=  some value \t\r\n"
                           "a=b=c\r\n"
                           "empty=\r\n"
                           "key=1\r\n"
                           "KEY=2\r\n"
                           "\xC4wide\xFF=\xA0v\xE4l\xE4\r\n"
                           "[main]\r\n"
                           "other=x\r\n"
                           "[S]x]\r\n"
                           "last=no line end"));
    EXPECT_EQ((std::vector<std::string>{"[Main]", "name=some value", "a=b=c", "empty=", "key=2", "wide=v\xE4l",
                                        "[main]", "other=x", "[S]", "last=no line end"}),
              contentsOf(ini));
    // The first of two sections of a name answers lookups by name.
    EXPECT_STREQ("", ini.GetEntryValue("MAIN", "other"));
    EXPECT_EQ(0, ini.GetSectionIndex("main"));
    EXPECT_EQ(5, ini.GetNumEntries("main"));
    EXPECT_EQ(3, ini.GetEntryIndex("Main", "Key"));
}

TEST(CTQMIniFile, LongLinesAndOddBytes)
{
    TempDir dir;
    CTQMIniFile ini;
    // 5,000 characters arrive as two lines: the second has no "=".
    std::string longLine = "k=" + std::string(4998, 'x') + "\r\n";
    EXPECT_EQ(0, readBytes(ini, dir, "[S]\r\n" + longLine));
    EXPECT_EQ(2, ini.GetErrLine());
    EXPECT_EQ(3069u, strlen(ini.GetEntryValue("S", "k")));

    // A NUL ends the line's text; the line still counts once.
    ASSERT_EQ(1, readBytes(ini, dir, std::string("[S]\r\nk=va\0lue\r\nj=w\r\n", 20)));
    EXPECT_STREQ("va", ini.GetEntryValue("S", "k"));
    EXPECT_STREQ("w", ini.GetEntryValue("S", "j"));
    EXPECT_EQ(2, ini.GetErrLine());

    // A lone CR is no line end, so it stays inside the value.
    ASSERT_EQ(1, readBytes(ini, dir, "[S]\rk=v\r\n"));
    EXPECT_EQ(1, ini.GetNumSections());
    EXPECT_STREQ("S", ini.GetSectionName(0));
}

TEST(CTQMIniFile, MissesGiveTheCallersDefaultAndNegativeIndexesThrow)
{
    TestIni ini;
    ini.SetEntryValue("A", "x", "1");
    ini.SetEntryValue("B", "y", "2");
    const char* def = "default";
    EXPECT_EQ(def, ini.GetEntryValue("A", "missing", def)) << "the caller's own pointer";
    EXPECT_EQ(def, ini.GetEntryValue(2, 0, def));
    EXPECT_STREQ("2", ini.GetEntryValue(1, "Y"));
    EXPECT_STREQ("", ini.GetEntryValue(1, "x"));
    EXPECT_EQ(-1, ini.GetEntryIndex("B", "x"));

    // Checked in the caller's module, before the library is called.
    ExpectInvalidArg([&] { ini.GetEntryValue(-1, 0); }, "GetEntryValue(-1, 0)");
    ExpectInvalidArg([&] { ini.GetEntryValue(0, -1, "d"); }, "GetEntryValue(0, -1, d)");
    ExpectInvalidArg([&] { ini.GetNumEntries(-1); }, "GetNumEntries(-1)");
    ExpectInvalidArg([&] { ini.GetEntryIndex(-1, "x"); }, "GetEntryIndex(-1, name)");
    ExpectInvalidArg([&] { ini.findSection(-1); }, "findSection(-1)");
    EXPECT_EQ(1, ini.findEntry(0));
    ExpectInvalidArg([&] { ini.findEntry(-1); }, "findEntry(-1)");

    // Only an index that reaches an array throws: past the upper bound, or
    // with nothing to index, a negative one is "not found" like any other.
    EXPECT_EQ(def, ini.GetEntryValue(99, -1, def));
    EXPECT_STREQ("", ini.GetEntryName(99, -1));
    TestIni fresh;
    EXPECT_EQ(0, fresh.GetNumEntries(fresh.GetSectionIndex("X")));
    EXPECT_STREQ("", fresh.GetSectionName(-1));
    EXPECT_EQ(-1, fresh.GetEntryIndex(-1, "x"));
    EXPECT_EQ(0, fresh.findSection(-1));
    EXPECT_EQ(0, fresh.findEntry(-1));
    EXPECT_EQ(nullptr, TqmTakeDeferredException()) << "nothing left parked";
}

TEST(CTQMIniFile, SetEntryValueRules)
{
    CTQMIniFile ini;
    for (const char* badSection : {"a=b", "[a", "a]", "a\nb", "a\rb"})
        EXPECT_EQ(0, ini.SetEntryValue(badSection, "k", "v")) << badSection;
    for (const char* badEntry : {"k=", "k\n", "k\r"})
        EXPECT_EQ(0, ini.SetEntryValue("S", badEntry, "v")) << badEntry;
    EXPECT_EQ(0, ini.SetEntryValue(nullptr, "k", "v"));
    EXPECT_EQ(0, ini.GetNumSections());

    EXPECT_EQ(1, ini.SetEntryValue("S", "multi", "line1\nline2"));
    EXPECT_EQ(1, ini.SetEntryValue("S", "eq", "a=b"));
    EXPECT_EQ(1, ini.SetEntryValue("S", "null", nullptr));
    EXPECT_STREQ("", ini.GetEntryValue("S", "null", "d"));
    EXPECT_EQ(1, ini.SetEntryValue("Empty", nullptr, "ignored"));
    EXPECT_EQ(2, ini.GetNumSections());
    EXPECT_EQ(0, ini.GetNumEntries("Empty"));

    // A replacement keeps its place and the first spelling of the name.
    EXPECT_EQ(1, ini.SetEntryValue("s", "MULTI", "one"));
    EXPECT_STREQ("multi", ini.GetEntryName(0, 0));
    EXPECT_STREQ("one", ini.GetEntryValue(0, 0));

    // Too long: not stored, yet 1; the entry it would replace keeps its value.
    std::string name(1000, 'n');
    std::string value(2073, 'v');
    EXPECT_EQ(1, ini.SetEntryValue("S", name.c_str(), value.c_str()));
    EXPECT_EQ(-1, ini.GetEntryIndex("S", name.c_str()));
    value.pop_back();  // 3072 in all fits
    EXPECT_EQ(1, ini.SetEntryValue("S", name.c_str(), value.c_str()));
    EXPECT_EQ(value, ini.GetEntryValue("S", name.c_str()));
    EXPECT_EQ(1, ini.SetEntryValue("S", name.c_str(), (value + "vv").c_str()));
    EXPECT_EQ(value, ini.GetEntryValue("S", name.c_str()));

    // The new value may be the old one's own text.
    EXPECT_EQ(1, ini.SetEntryValue("S", "eq", ini.GetEntryValue("S", "eq") + 2));
    EXPECT_STREQ("b", ini.GetEntryValue("S", "eq"));
}

TEST(CTQMIniFile, SetFileCommentRules)
{
    CTQMIniFile ini;
    EXPECT_EQ(1, ini.SetFileComment("; one\n# two\n"));
    EXPECT_EQ(0, ini.SetFileComment("// three\n"));
    EXPECT_EQ(0, ini.SetFileComment("no marker\n"));
    EXPECT_EQ(0, ini.SetFileComment("; no line end"));
    EXPECT_STREQ("; one\n# two\n", ini.GetFileComment());
    EXPECT_EQ(1, ini.SetFileComment("#a\ninner lines are not checked\n"));
    EXPECT_EQ(0, ini.SetFileComment(""));  // clears, yet 0
    EXPECT_STREQ("", ini.GetFileComment());
}

TEST(CTQMIniFile, RemoveSectionsAndEntries)
{
    CTQMIniFile ini;
    ini.SetEntryValue("A", "1", "a");
    ini.SetEntryValue("B", "1", "b");
    ini.SetEntryValue("B", "2", "c");
    ini.SetEntryValue("B", "3", "d");
    EXPECT_EQ(1, ini.RemoveEntry("b", "2"));
    EXPECT_EQ(0, ini.RemoveEntry("b", "2"));
    EXPECT_EQ(1, ini.RemoveSection("a"));
    EXPECT_EQ(0, ini.RemoveSection("a"));
    EXPECT_EQ((std::vector<std::string>{"[B]", "1=b", "3=d"}), contentsOf(ini));
    ini.RemoveAll();
    EXPECT_EQ(0, ini.GetNumSections());
    EXPECT_EQ(-1, ini.GetErrLine());
}

TEST(CTQMIniFile, WriteAndReadBackGiveTheSameDocument)
{
    TempDir dir;
    std::string path = dir.file("out.ini");
    CTQMIniFile ini;
    ini.SetFileComment("; head\n# comment\n");
    ini.SetEntryValue("Library", "Name", "Motion");
    ini.SetEntryValue("Library", "Formula", "a=b+c");
    ini.SetEntryValue("Files", "File0", "");
    ASSERT_EQ(1, ini.Write(path.c_str()));
    EXPECT_EQ("; head\r\n# comment\r\n\r\n[Library]\r\nName=Motion\r\nFormula=a=b+c\r\n\r\n[Files]\r\nFile0=\r\n\r\n",
              ReadBytes(path));

    CTQMIniFile back;
    ASSERT_EQ(1, back.Read(path.c_str()));
    EXPECT_STREQ(ini.GetFileComment(), back.GetFileComment());
    EXPECT_EQ(contentsOf(ini), contentsOf(back));

    // A document that never had a section writes its comment alone.
    CTQMIniFile fresh;
    ASSERT_EQ(1, fresh.Write(path.c_str()));
    EXPECT_EQ("", ReadBytes(path));
    fresh.SetFileComment("; only\n");
    ASSERT_EQ(1, fresh.Write(path.c_str()));
    EXPECT_EQ("; only\r\n\r\n", ReadBytes(path));
}

TEST(CTQMIniFile, WriteCutsLinesAt1024Characters)
{
    TempDir dir;
    std::string path = dir.file("long.ini");
    CTQMIniFile ini;
    ini.SetEntryValue("S", "k", std::string(2000, 'v').c_str());
    ini.SetEntryValue("S", "next", "x");
    ASSERT_EQ(1, ini.Write(path.c_str()));
    // "k=" and 1021 v's: 1023 characters and no line end, then the next line.
    EXPECT_EQ("[S]\r\nk=" + std::string(1021, 'v') + "next=x\r\n\r\n", ReadBytes(path));
}

TEST(CTQMIniFile, WriteReplacesTheFileOnlyWhenItSucceeds)
{
    TempDir dir;
    std::string path = dir.file("keep.ini");
    ASSERT_TRUE(WriteBytes(path, "[Old]\r\nk=v\r\n"));
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY);
    CTQMIniFile ini;
    ini.SetEntryValue("New", "k", "v");
    EXPECT_EQ(0, ini.Write(path.c_str()));
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ("[Old]\r\nk=v\r\n", ReadBytes(path));

    EXPECT_EQ(0, ini.Write(dir.file("no\\such\\folder\\x.ini").c_str()));
    EXPECT_EQ(0, ini.Write(dir.path().c_str()));

    // Neither the failures nor a success leave a temporary file behind, and
    // a hidden file stays hidden.
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_HIDDEN);
    ASSERT_EQ(1, ini.Write(path.c_str()));
    EXPECT_TRUE(GetFileAttributesA(path.c_str()) & FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ("[New]\r\nk=v\r\n\r\n", ReadBytes(path));
    EXPECT_EQ(1u, tqmtest::SnapshotTree(dir.path()).count("keep.ini"));
    EXPECT_EQ(1u, tqmtest::SnapshotTree(dir.path()).size());
}

TEST(CTQMIniFile, CopiesAreDeep)
{
    CTQMIniFile original;
    original.SetFileComment("; c\n");
    original.SetEntryValue("S", "k", "v");
    CTQMIniFile assigned;
    assigned.SetEntryValue("Gone", "x", "y");
    assigned = original;
    {
        CTQMIniFile copy(original);
        copy.SetEntryValue("S", "k", "changed");
        EXPECT_STREQ("; c\n", copy.GetFileComment());
    }
    EXPECT_STREQ("v", original.GetEntryValue("S", "k"));
    original.RemoveAll();
    EXPECT_EQ((std::vector<std::string>{"[S]", "k=v"}), contentsOf(assigned));
    assigned = assigned;
    EXPECT_EQ(1, assigned.GetNumSections());
}

TEST(CTQMIniFile, BigSectionsAndManySectionsStayConsistent)
{
    // Enough names for the hash lookups, with edits that move positions.
    CTQMIniFile ini;
    for (int i = 0; i < 3000; ++i)
        ini.SetEntryValue("Big", ("Key" + std::to_string(i)).c_str(), std::to_string(i).c_str());
    for (int i = 0; i < 200; ++i)
        ini.SetEntryValue(("Sec" + std::to_string(i % 100)).c_str(), "n", std::to_string(i).c_str());
    EXPECT_EQ(101, ini.GetNumSections());
    EXPECT_STREQ("119", ini.GetEntryValue("SEC19", "n"));

    EXPECT_EQ(1, ini.SetEntryValue("big", "KEY1500", "replaced"));
    EXPECT_EQ(1, ini.RemoveEntry("Big", "Key10"));
    EXPECT_EQ(1499, ini.GetEntryIndex("Big", "key1500"));
    EXPECT_STREQ("replaced", ini.GetEntryValue("Big", "Key1500"));
    EXPECT_EQ(-1, ini.GetEntryIndex("Big", "Key10"));

    EXPECT_EQ(1, ini.RemoveSection("Sec5"));
    EXPECT_EQ(6, ini.GetSectionIndex("Sec6"));  // "Big" comes first

    // Repeated headers: the first section of the name answers. A big section
    // read from a file is looked up as well as one built by calls.
    TempDir dir;
    std::string text;
    for (int i = 0; i < 200; ++i)
        text += "[S" + std::to_string(i % 70) + "]\r\nv=" + std::to_string(i) + "\r\n";
    text += "[Wide]\r\n";
    for (int i = 0; i < 500; ++i)
        text += "k" + std::to_string(i % 400) + "=" + std::to_string(i) + "\r\n";
    CTQMIniFile repeated;
    ASSERT_EQ(1, readBytes(repeated, dir, text));
    EXPECT_STREQ("7", repeated.GetEntryValue("s7", "v"));
    EXPECT_EQ(1, repeated.RemoveSection("S7"));
    EXPECT_STREQ("77", repeated.GetEntryValue("s7", "v"));
    EXPECT_EQ(400, repeated.GetNumEntries("wide"));
    EXPECT_STREQ("499", repeated.GetEntryValue("Wide", "K99"));

    // Read again into the same document: nothing of the old contents remains.
    ASSERT_EQ(1, readBytes(repeated, dir, "[Wide]\r\nk1=one\r\n"));
    EXPECT_EQ(1, repeated.GetNumEntries("Wide"));
    EXPECT_STREQ("one", repeated.GetEntryValue("Wide", "K1"));
}

TEST(CTQMIniFile, DerivedClassesMayChangeTheRecordsAndArrays)
{
    TestIni ini;
    for (int i = 0; i < 70; ++i)
        ini.SetEntryValue(("S" + std::to_string(i)).c_str(), "k", std::to_string(i).c_str());
    for (int i = 0; i < 100; ++i)
        ini.SetEntryValue("S0", ("e" + std::to_string(i)).c_str(), "v");
    EXPECT_EQ(67, ini.GetSectionIndex("S67"));

    ini.SwapSections(3, 67);
    EXPECT_EQ(3, ini.GetSectionIndex("s67"));
    EXPECT_EQ(67, ini.GetSectionIndex("s3"));
    EXPECT_STREQ("3", ini.GetEntryValue("S3", "k"));

    ini.ReplaceEntryRecord(0, 51, "Mine", "own record");  // e50, behind k and e0..e49
    EXPECT_STREQ("own record", ini.GetEntryValue("S0", "MINE"));
    EXPECT_EQ(-1, ini.GetEntryIndex("S0", "e50")) << "the replaced name is gone";
    EXPECT_EQ(52, ini.GetEntryIndex("S0", "e51"));
    EXPECT_EQ(1, ini.SetEntryValue("S0", "mine", "changed"));
    EXPECT_EQ(51, ini.GetEntryIndex("S0", "Mine"));

    ini.DeleteSection(10);
    EXPECT_EQ(-1, ini.GetSectionIndex("S10"));
    EXPECT_EQ(10, ini.GetSectionIndex("S11"));
    EXPECT_EQ(1, ini.RemoveSection("S12"));
    EXPECT_EQ(68, ini.GetNumSections());
    // The destructor frees the records made here as its own.
}

TEST(CTQMIniFile, NamesFoldWithTheSystemCodePage)
{
    if (GetACP() != 1252)
        GTEST_SKIP() << "code page " << GetACP();
    CTQMIniFile ini;
    ini.SetEntryValue("\xDC" "bersicht", "Gr\xD6\xDF" "e", "1");
    EXPECT_STREQ("1", ini.GetEntryValue("\xFC" "bersicht", "gr\xF6\xDF" "e"));
}

}  // namespace

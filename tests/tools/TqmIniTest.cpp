// tqm ini: the subcommands on real files, run as a child process.
#include "support/FileUtil.h"
#include "support/TempDir.h"
#include "support/TqmProgram.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using tqmtest::ReadBytes;
using tqmtest::TempDir;
using tqmtest::WriteBytes;

using ProgramResult = tqmtest::TqmRun;

ProgramResult tqm(const std::vector<std::string>& args, const std::string& input = std::string())
{
    return tqmtest::RunTqm(args, input);
}

class TqmIni : public testing::Test
{
protected:
    std::string file(const std::string& name, const std::string& bytes)
    {
        std::string path = m_dir.file(name);
        EXPECT_TRUE(WriteBytes(path, bytes));
        return path;
    }
    TempDir m_dir;
};

TEST_F(TqmIni, HelpListsTheSubcommands)
{
    ProgramResult help = tqm({"ini", "--help"});
    EXPECT_EQ(0, help.exitCode);
    for (const char* sub : {"check", "get", "set", "dump"})
        EXPECT_NE(std::string::npos, help.out.find(std::string("tqm ini ") + sub)) << sub;
}

TEST_F(TqmIni, CheckReportsTheOffendingLine)
{
    std::string good = file("good.ini", "; c\r\n[S]\r\na=1\r\nb=2\r\n[T]\r\n");
    ProgramResult ok = tqm({"ini", "check", good});
    EXPECT_EQ(0, ok.exitCode);
    EXPECT_NE(std::string::npos, ok.out.find("2 sections, 2 entries")) << ok.out;

    std::string bad = file("bad.ini", "[S]\r\na=1\r\n\r\n  just text\r\n[T]\r\n");
    ProgramResult failed = tqm({"ini", "check", bad});
    EXPECT_EQ(1, failed.exitCode);
    EXPECT_EQ("tqm: " + bad + ":4: entry line without \"=\":   just text\n", failed.err);

    ProgramResult orphan = tqm({"ini", "check", "-"}, "k=v\n");
    EXPECT_EQ(1, orphan.exitCode);
    EXPECT_EQ("tqm: <stdin>:1: entry before the first section header: k=v\n", orphan.err);

    ProgramResult missing = tqm({"ini", "check", m_dir.file("missing.ini")});
    EXPECT_EQ(1, missing.exitCode);
    EXPECT_NE(std::string::npos, missing.err.find("cannot read")) << missing.err;
}

TEST_F(TqmIni, CheckShowsABinaryLineEscapedAndCut)
{
    std::string binary = "[S]\r\n\x04\x7F";
    for (int i = 0; i < 2000; ++i)
        binary += static_cast<char>(i % 200 == 0 ? '\x01' : 'x');
    binary += "\r\n";
    ProgramResult failed = tqm({"ini", "check", file("bin.ini", binary)});
    EXPECT_EQ(1, failed.exitCode);
    EXPECT_EQ(std::string::npos, failed.err.find_first_of(std::string("\x01\x04\x7F", 3))) << "raw bytes escaped";
    EXPECT_NE(std::string::npos, failed.err.find(":2: entry line without \"=\": \\x04\\x7F\\x01xxx")) << failed.err;
    EXPECT_NE(std::string::npos, failed.err.find("characters more")) << failed.err;
    EXPECT_LT(failed.err.size(), 300u) << failed.err;
}

TEST_F(TqmIni, GetUsesTheProfileLookup)
{
    std::string path = file("p.ini", "[S]\r\nkey = first \r\nkey=second\r\nempty=\r\n");
    EXPECT_EQ("first\n", tqm({"ini", "get", path, "s", "KEY"}).out);
    EXPECT_EQ("\n", tqm({"ini", "get", path, "S", "empty"}).out) << "an empty value is found";
    ProgramResult missing = tqm({"ini", "get", path, "S", "nope"});
    EXPECT_EQ(1, missing.exitCode);
    EXPECT_EQ("", missing.out);
    EXPECT_EQ("v\n", tqm({"ini", "get", "-", "S", "k"}, "[S]\nk=v\n").out);
}

TEST_F(TqmIni, SetEditsAndDumpShowsTheDocument)
{
    std::string path = m_dir.file("new.ini");
    EXPECT_EQ(0, tqm({"ini", "set", path, "Library", "Name", "Motion control"}).exitCode);
    EXPECT_EQ(0, tqm({"ini", "set", path, "library", "ID", "M1"}).exitCode);
    EXPECT_EQ(0, tqm({"ini", "set", path, "LIBRARY", "name", "Motion"}).exitCode);
    EXPECT_EQ("[Library]\r\nName=Motion\r\nID=M1\r\n\r\n", ReadBytes(path));

    // A damaged file is reported and left alone.
    std::string bad = file("bad.ini", "[S]\r\nbroken\r\n");
    ProgramResult refused = tqm({"ini", "set", bad, "S", "k", "v"});
    EXPECT_EQ(1, refused.exitCode);
    EXPECT_NE(std::string::npos, refused.err.find(":2:")) << refused.err;
    EXPECT_EQ("[S]\r\nbroken\r\n", ReadBytes(bad));

    // dump shows the document as it would be written back.
    std::string dumped = file("d.ini", "; head\r\n[ S ]\r\n  k =  v \r\n; dropped\r\nK=w\r\n");
    EXPECT_EQ("; head\n\n[S]\nk=w\n\n", tqm({"ini", "dump", dumped}).out);
}

TEST_F(TqmIni, BadArgumentsAreUsageErrors)
{
    const std::vector<std::vector<std::string>> cases = {
        {"ini"},
        {"ini", "frob"},
        {"ini", "check"},
        {"ini", "get", "f", "s"},
        {"ini", "set", "f", "s", "k"},
        {"ini", "set", "-", "s", "k", "v"},
        {"ini", "set", "f", "s", "k=", "v"},
    };
    for (const auto& args : cases) {
        ProgramResult r = tqm(args);
        EXPECT_EQ(2, r.exitCode) << args.back();
        EXPECT_NE(std::string::npos, r.err.find("tqm ini --help")) << r.err;
    }
}

}  // namespace

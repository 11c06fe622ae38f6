// tqm version, tqm path and tqm file, run as a user runs them.
#include "support/ChildProcess.h"
#include "support/FileUtil.h"
#include "support/FixtureFiles.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace {

using tqmtest::FixturePath;
using tqmtest::TempDir;
using tqmtest::WriteBytes;

struct Result
{
    int exitCode;
    std::string out;
    std::string err;
};

std::string withoutCarriageReturns(const std::string& text)
{
    std::string lines;
    for (char ch : text) {
        if (ch != '\r')
            lines += ch;
    }
    return lines;
}

Result tqm(std::initializer_list<std::string> args)
{
    std::string commandLine = tqmtest::QuoteArgument(tqmtest::ProgramDir() + "\\tqm.exe");
    for (const std::string& arg : args)
        commandLine += " " + tqmtest::QuoteArgument(arg);
    const tqmtest::ProgramRun run = tqmtest::RunProgram(commandLine);
    return Result{run.exitCode, withoutCarriageReturns(run.out), withoutCarriageReturns(run.err)};
}

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

TEST(TqmVersion, ShowsTheVersionResource)
{
    Result r = tqm({"version", FixturePath("verfix_5_10_2.dll")});
    EXPECT_EQ(0, r.exitCode) << r.err;
    EXPECT_TRUE(contains(r.out, "File version:     5.10.2.0\n")) << r.out;
    EXPECT_TRUE(contains(r.out, "Version code:     60002\n")) << r.out;
    EXPECT_TRUE(contains(r.out, "(0409, code page 1200)")) << r.out;
    EXPECT_TRUE(contains(r.out, "  FileVersion       5.10.2.0\n")) << r.out;
    EXPECT_TRUE(contains(r.out, "  ProductVersion    5.10\n")) << r.out;

    r = tqm({"version", FixturePath("verfix_2_0_110.dll")});
    EXPECT_EQ(0, r.exitCode);
    EXPECT_TRUE(contains(r.out, "Version code:     20110\n")) << r.out;
    EXPECT_TRUE(contains(r.out, "(0407, code page 1252)")) << r.out;

    // A bare name is searched for like a module: the library beside tqm.
    r = tqm({"version", "Tqmlib52.dll"});
    EXPECT_EQ(0, r.exitCode);
    EXPECT_TRUE(contains(r.out, "  ProductVersion    2.0\n")) << r.out;
}

TEST(TqmVersion, NegativeAnswersAndUsage)
{
    Result r = tqm({"version", FixturePath("verfix_none.dll")});
    EXPECT_EQ(1, r.exitCode);
    EXPECT_TRUE(contains(r.err, "no version resource")) << r.err;
    EXPECT_EQ("", r.out);

    r = tqm({"version", FixturePath("missing.dll")});
    EXPECT_EQ(1, r.exitCode);
    EXPECT_TRUE(contains(r.err, "not found")) << r.err;

    EXPECT_EQ(2, tqm({"version"}).exitCode);
    EXPECT_EQ(2, tqm({"version", "a", "b"}).exitCode);
    r = tqm({"version", "--help"});
    EXPECT_EQ(0, r.exitCode);
    EXPECT_TRUE(contains(r.out, "usage: tqm version FILE"));
}

TEST(TqmPath, CheckGivesTheVerdictAndTheReason)
{
    Result r = tqm({"path", "check", "C:\\Projects\\Plant 1", "AUX.txt"});
    EXPECT_EQ(0, r.exitCode);
    EXPECT_EQ("C:\\Projects\\Plant 1: valid\nAUX.txt: valid\n", r.out);

    r = tqm({"path", "check", "ok", "a..b", "..\\..\\x", "LPT1", "x*"});
    EXPECT_EQ(1, r.exitCode);
    EXPECT_EQ("ok: valid\n"
              "a..b: invalid: two dots inside a name (character 4, 'b')\n"
              "..\\..\\x: invalid: a dot right after a backslash (character 4, '.')\n"
              "LPT1: invalid: reserved device name\n"
              "x*: invalid: wildcards are not allowed (character 2, '*')\n",
              r.out);

    EXPECT_EQ(0, tqm({"path", "check", "--wildcards", "x*.lin"}).exitCode);
    EXPECT_EQ(0, tqm({"path", "check", "--file", "plant.tarn5pc"}).exitCode);
    r = tqm({"path", "check", "--file-no-ext", "plant.tarn5pc"});
    EXPECT_EQ(1, r.exitCode);
    EXPECT_EQ("plant.tarn5pc: invalid: a dot is not allowed here\n", r.out);
    r = tqm({"path", "check", "--file", "sub\\plant"});
    EXPECT_EQ(1, r.exitCode);
    EXPECT_TRUE(contains(r.out, "not a bare file name")) << r.out;
    r = tqm({"path", "check", "--", "-name-"});
    EXPECT_EQ(0, r.exitCode);
    EXPECT_EQ("-name-: valid\n", r.out);
}

TEST(TqmPath, FullAndRelative)
{
    Result r = tqm({"path", "full", "C:\\base\\sub", "..\\x"});
    EXPECT_EQ(0, r.exitCode);
    EXPECT_EQ("C:\\base\\x\n", r.out);
    r = tqm({"path", "rel", "C:\\base\\sub", "C:\\base\\sub\\deep\\a.x"});
    EXPECT_EQ(0, r.exitCode);
    EXPECT_EQ(".\\deep\\a.x\n", r.out);
    r = tqm({"path", "rel", "C:\\a\\b\\c", "C:\\x.txt"});
    EXPECT_EQ("\\x.txt\n", r.out);
}

TEST(TqmPath, Usage)
{
    EXPECT_EQ(2, tqm({"path"}).exitCode);
    EXPECT_EQ(2, tqm({"path", "check"}).exitCode);
    EXPECT_EQ(2, tqm({"path", "check", "--bogus", "x"}).exitCode);
    EXPECT_EQ(2, tqm({"path", "check", "--file", "--wildcards", "x"}).exitCode);
    EXPECT_EQ(2, tqm({"path", "full", "C:\\base"}).exitCode);
    EXPECT_EQ(2, tqm({"path", "turn", "a", "b"}).exitCode);
}

TEST(TqmFile, Compare)
{
    TempDir dir;
    ASSERT_TRUE(WriteBytes(dir.file("a"), std::string(1024, 'z')));
    ASSERT_TRUE(WriteBytes(dir.file("b"), std::string(1024, 'z')));
    ASSERT_TRUE(WriteBytes(dir.file("c"), std::string(1023, 'z') + "y"));
    Result r = tqm({"file", "compare", dir.file("a"), dir.file("b")});
    EXPECT_EQ(0, r.exitCode);
    EXPECT_EQ("identical\n", r.out);
    r = tqm({"file", "compare", dir.file("a"), dir.file("c")});
    EXPECT_EQ(1, r.exitCode);
    EXPECT_EQ("different\n", r.out);
    r = tqm({"file", "compare", dir.file("a"), dir.file("missing")});
    EXPECT_EQ(1, r.exitCode);
    EXPECT_TRUE(contains(r.err, "not found")) << r.err;
    EXPECT_EQ(1, tqm({"file", "compare", dir.file("a"), dir.path()}).exitCode);
    EXPECT_EQ(2, tqm({"file", "compare", dir.file("a")}).exitCode);
}

TEST(TqmFile, Match)
{
    Result r = tqm({"file", "match", "a*b?c", "AXXBYC", "ab"});
    EXPECT_EQ(1, r.exitCode);
    EXPECT_EQ("match    AXXBYC\nno match ab\n", r.out);
    EXPECT_EQ(0, tqm({"file", "match", "*.lin", "Motion.LIN", "x.lin"}).exitCode);
    EXPECT_EQ(0, tqm({"file", "match", "*", ""}).exitCode);
    EXPECT_EQ(2, tqm({"file", "match", "*"}).exitCode);
    EXPECT_EQ(2, tqm({"file"}).exitCode);
}

TEST(TqmDemo, VersionsAndPathsStep)
{
    TempDir dir;
    const Result r = tqm({"demo", dir.path()});
    // Only this step's part of the tour: other areas have steps of their own.
    const size_t start = r.out.find("== Versions and paths ==");
    ASSERT_NE(std::string::npos, start) << r.out << r.err;
    const std::string step = r.out.substr(start, r.out.find("\n== ", start + 1) - start);
    EXPECT_FALSE(contains(step, "(this step failed)")) << step;
    EXPECT_TRUE(contains(step, "Windows family: 4 (Windows NT family)")) << step;
    EXPECT_TRUE(contains(step, "compare: identical")) << step;
    EXPECT_TRUE(contains(step, "a..b                               invalid: two dots inside a name")) << step;
}

}  // namespace

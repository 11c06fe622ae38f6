// tqm version, tqm path and tqm file, run as a user runs them.
#include "support/FileUtil.h"
#include "support/FixtureFiles.h"
#include "support/TempDir.h"
#include "support/TqmProgram.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using tqmtest::FixturePath;
using tqmtest::TempDir;
using tqmtest::WriteBytes;
using tqmtest::Contains;
using Result = tqmtest::TqmRun;

Result tqm(const std::vector<std::string>& args) { return tqmtest::RunTqm(args); }

TEST(TqmVersion, ShowsTheVersionResource)
{
    Result r = tqm({"version", FixturePath("verfix_5_10_2.dll")});
    EXPECT_EQ(0, r.exitCode) << r.err;
    EXPECT_TRUE(Contains(r.out, "File version:     5.10.2.0\n")) << r.out;
    EXPECT_TRUE(Contains(r.out, "Version code:     60002\n")) << r.out;
    EXPECT_TRUE(Contains(r.out, "  FileVersion       5.10.2.0\n")) << r.out;
    EXPECT_TRUE(Contains(r.out, "  ProductVersion    5.10\n")) << r.out;

    // A bare name is searched for like a module: the library beside tqm.
    r = tqm({"version", "Tqmlib52.dll"});
    EXPECT_EQ(0, r.exitCode);
    EXPECT_TRUE(Contains(r.out, "  ProductVersion    2.0\n")) << r.out;
}

TEST(TqmVersion, NegativeAnswersAndUsage)
{
    Result r = tqm({"version", FixturePath("verfix_none.dll")});
    EXPECT_EQ(1, r.exitCode);
    EXPECT_TRUE(Contains(r.err, "no version resource")) << r.err;
    EXPECT_EQ("", r.out);

    EXPECT_TRUE(Contains(tqm({"version", FixturePath("missing.dll")}).err, "not found"));
    EXPECT_EQ(2, tqm({"version"}).exitCode);
    EXPECT_EQ(2, tqm({"version", "a", "b"}).exitCode);
    EXPECT_TRUE(Contains(tqm({"version", "--help"}).out, "usage: tqm version FILE"));
}

TEST(TqmPath, CheckGivesTheVerdictAndTheReason)
{
    Result r = tqm({"path", "check", "C:\\Projects\\Plant 1"});
    EXPECT_EQ(0, r.exitCode);
    EXPECT_EQ("C:\\Projects\\Plant 1: valid\n", r.out);

    r = tqm({"path", "check", "ok", "a..b", "LPT1", "x*"});
    EXPECT_EQ(1, r.exitCode);
    EXPECT_EQ("ok: valid\n"
              "a..b: invalid: two dots inside a name (character 4, 'b')\n"
              "LPT1: invalid: reserved device name\n"
              "x*: invalid: wildcards are not allowed (character 2, '*')\n",
              r.out);

    EXPECT_EQ(0, tqm({"path", "check", "--wildcards", "x*.lin"}).exitCode);
    EXPECT_EQ(0, tqm({"path", "check", "--file", "plant.tarn5pc"}).exitCode);
    EXPECT_EQ("plant.tarn5pc: invalid: a dot is not allowed here\n",
              tqm({"path", "check", "--file-no-ext", "plant.tarn5pc"}).out);
    EXPECT_TRUE(Contains(tqm({"path", "check", "--file", "sub\\plant"}).out, "not a bare file name"));
    EXPECT_EQ("-name-: valid\n", tqm({"path", "check", "--", "-name-"}).out);
}

TEST(TqmPath, FullRelativeAndUsage)
{
    EXPECT_EQ("C:\\base\\x\n", tqm({"path", "full", "C:\\base\\sub", "..\\x"}).out);
    EXPECT_EQ(".\\deep\\a.x\n", tqm({"path", "rel", "C:\\base\\sub", "C:\\base\\sub\\deep\\a.x"}).out);
    EXPECT_EQ(2, tqm({"path"}).exitCode);
    EXPECT_EQ(2, tqm({"path", "check"}).exitCode);
    EXPECT_EQ(2, tqm({"path", "check", "--file", "--wildcards", "x"}).exitCode);
    EXPECT_EQ(2, tqm({"path", "full", "C:\\base"}).exitCode);
    EXPECT_EQ(2, tqm({"path", "turn", "a", "b"}).exitCode);
}

TEST(TqmFile, CompareAndMatch)
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
    EXPECT_TRUE(Contains(r.err, "not found")) << r.err;
    EXPECT_EQ(2, tqm({"file", "compare", dir.file("a")}).exitCode);

    r = tqm({"file", "match", "a*b?c", "AXXBYC", "ab"});
    EXPECT_EQ(1, r.exitCode);
    EXPECT_EQ("match    AXXBYC\nno match ab\n", r.out);
    EXPECT_EQ(0, tqm({"file", "match", "*.lin", "Motion.LIN", "x.lin"}).exitCode);
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
    EXPECT_FALSE(Contains(step, "(this step failed)")) << step;
    EXPECT_TRUE(Contains(step, "Windows family: 4 (Windows NT family)")) << step;
    EXPECT_TRUE(Contains(step, "compare: identical")) << step;
    EXPECT_TRUE(Contains(step, "a..b                               invalid: two dots inside a name")) << step;
}

}  // namespace

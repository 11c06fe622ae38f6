// tqm crc32, tqm crc16 and tqm rec, run as a user runs them.
#include "datafiles/Crc.h"
#include "datafiles/RecFileSamples.h"
#include "support/FileUtil.h"
#include "support/TempDir.h"
#include "support/TqmProgram.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using tqmtest::Contains;
using tqmtest::RunTqm;
using tqmtest::TqmRun;

class DataFileCommandsTest : public ::testing::Test
{
protected:
    tqmtest::TempDir dir;
};

TEST_F(DataFileCommandsTest, CrcOfFilesAndStandardInput)
{
    // Larger than one piece of reading, so that the pieces must add up.
    std::string big(200000, '\0');
    for (size_t i = 0; i < big.size(); ++i)
        big[i] = static_cast<char>(i * 13 + (i >> 7));
    std::string bigFile = dir.file("big.bin");
    std::string digits = dir.file("digits.txt");
    ASSERT_TRUE(tqmtest::WriteBytes(bigFile, big));
    ASSERT_TRUE(tqmtest::WriteBytes(digits, "123456789"));
    char bigCrc[16];
    snprintf(bigCrc, sizeof(bigCrc), "%08lx", static_cast<unsigned long>(TQMCrc32(big.data(), UINT(big.size()))));

    TqmRun r = RunTqm({"crc32", digits, bigFile});
    EXPECT_EQ(0, r.exitCode) << r.err;
    EXPECT_EQ("cbf43926  " + digits + "\n" + bigCrc + "  " + bigFile + "\n", r.out);
    EXPECT_EQ("cbf43926  -\n", RunTqm({"crc32"}, "123456789").out);
    EXPECT_EQ("31c3  -\n", RunTqm({"crc16", "-"}, "123456789").out);

    // The head of a text file: up to the first zero byte.
    std::string text = dir.file("text.txt");
    ASSERT_TRUE(tqmtest::WriteBytes(text, std::string("123456789\0tail", 14)));
    EXPECT_EQ("31c3  " + text + "\n", RunTqm({"crc16", "--head", text}).out);

    // A missing file fails, the others are still checksummed.
    std::string missing = dir.file("missing.bin");
    r = RunTqm({"crc32", missing, digits});
    EXPECT_EQ(1, r.exitCode);
    EXPECT_EQ("cbf43926  " + digits + "\n", r.out);
    EXPECT_TRUE(Contains(r.err, missing)) << r.err;
    EXPECT_EQ(1, RunTqm({"crc16", "--head", missing}).exitCode);
    EXPECT_EQ(2, RunTqm({"crc32", "--bogus"}).exitCode);
}

TEST_F(DataFileCommandsTest, CreateAddListDumpVerify)
{
    std::string file = dir.file("a.rec");
    std::string source = dir.file("source.bin");
    ASSERT_TRUE(tqmtest::WriteBytes(source, std::string(100000, 'S')));

    ASSERT_EQ(0, RunTqm({"rec", "create", file, "7", "0x10", "Tool test"}).exitCode);
    const TqmRun added = RunTqm({"rec", "add", file, "5", "100", "--text", "hello"});
    EXPECT_TRUE(Contains(added.out, "type 5, param 100, 5 bytes")) << added.out << added.err;
    ASSERT_EQ(0, RunTqm({"rec", "add", file, "6", "0xFFFFFFFF", "--hex", "00 01 fe FF"}).exitCode);
    ASSERT_EQ(0, RunTqm({"rec", "add", file, "8", "2", "--file", source}).exitCode);
    ASSERT_EQ(0, RunTqm({"rec", "add", file, "9", "3", "--file", "-"}, "piped").exitCode);

    TqmRun r = RunTqm({"rec", "list", file});
    EXPECT_EQ(0, r.exitCode) << r.err;
    EXPECT_TRUE(Contains(r.out, "type:        7\nversion:     16\n")) << r.out;
    EXPECT_TRUE(Contains(r.out, "4294967295          4  ok")) << r.out;
    EXPECT_TRUE(Contains(r.out, "100000  ok")) << r.out;

    r = RunTqm({"rec", "dump", file});
    EXPECT_EQ(0, r.exitCode) << r.err;
    EXPECT_TRUE(Contains(r.out, "  00000000  00 01 fe ff  ")) << r.out.substr(0, 2000);
    EXPECT_TRUE(Contains(r.out, "|piped|")) << r.out.substr(0, 2000);

    EXPECT_EQ(file + ": descriptor and 4 records, all checksums correct\n", RunTqm({"rec", "verify", file}).out);
    // The same file through standard input.
    r = RunTqm({"rec", "verify", "-"}, tqmtest::ReadBytes(file));
    EXPECT_EQ("-: descriptor and 4 records, all checksums correct\n", r.out);
}

TEST_F(DataFileCommandsTest, VerifyNamesTheFirstDamage)
{
    std::string file = dir.file("b.rec");
    ASSERT_EQ(0, RunTqm({"rec", "create", file, "2", "1", "Damage"}).exitCode);
    ASSERT_EQ(0, RunTqm({"rec", "add", file, "1", "1", "--text", "first record"}).exitCode);
    ASSERT_EQ(0, RunTqm({"rec", "add", file, "1", "2", "--text", "second record"}).exitCode);
    std::string good = tqmtest::ReadBytes(file);
    size_t second = good.rfind("****");
    std::string damaged = dir.file("damaged.rec");

    struct Case { const char* what; std::string bytes; std::string verdict; } cases[] = {
        {"flipped data", good.substr(0, good.size() - 1) + "X",
         "damaged at offset " + std::to_string(second) + ": the data does not match its checksum"},
        {"cut inside the data", good.substr(0, good.size() - 4),
         "damaged at offset " + std::to_string(second) + ": bad record header"},
        {"cut inside a header", good.substr(0, second + 7),
         "damaged at offset " + std::to_string(second) + ": 7 bytes after the last record"},
        {"no record file", "plain text", "damaged at offset 0: not a record file"},
    };
    for (const Case& c : cases) {
        ASSERT_TRUE(tqmtest::WriteBytes(damaged, c.bytes));
        TqmRun r = RunTqm({"rec", "verify", damaged});
        EXPECT_EQ(1, r.exitCode) << c.what;
        EXPECT_TRUE(Contains(r.out, damaged + ": " + c.verdict)) << c.what << ": " << r.out;
        r = RunTqm({"rec", "list", damaged});
        EXPECT_EQ(1, r.exitCode) << c.what;
        EXPECT_TRUE(Contains(r.err, c.verdict)) << c.what << ": " << r.err;
    }

    EXPECT_TRUE(Contains(RunTqm({"rec", "verify", dir.file("missing.rec")}).err, "cannot open"));
}

TEST_F(DataFileCommandsTest, ListsAnOldFile)
{
    std::string bytes =
        rectest::RawFile(1, "1\n2\n01/02/1999 03:04:05\nOld one\n", {{3, 1, "data"}}, rectest::LegacyHead(false));
    std::string file = dir.file("old.rec");
    ASSERT_TRUE(tqmtest::WriteBytes(file, bytes));
    TqmRun r = RunTqm({"rec", "list", file});
    EXPECT_EQ(0, r.exitCode) << r.err;
    EXPECT_TRUE(Contains(r.out, "old text line, records from offset 42")) << r.out;
    EXPECT_TRUE(Contains(r.out, "rotate and exclusive-or")) << r.out;
    EXPECT_TRUE(Contains(r.out, "        42          0          1")) << r.out;
}

TEST_F(DataFileCommandsTest, UsageErrors)
{
    std::string file = dir.file("u.rec");
    const std::vector<std::vector<std::string>> bad = {
        {"rec"},
        {"rec", "frobnicate", file},
        {"rec", "create", file, "7", "1"},
        {"rec", "create", file, "0x100000000", "1", "x"},
        {"rec", "add", file, "1", "1", "--hex", "abc"},
        {"rec", "add", file, "1", "1", "--base64", "AA=="},
        {"rec", "list"},
    };
    for (const auto& args : bad) {
        TqmRun r = RunTqm(args);
        EXPECT_EQ(2, r.exitCode) << args.size() << " " << r.err;
    }
    EXPECT_FALSE(tqmtest::PathExists(file));
    // A description too long for the library is refused by it.
    TqmRun r = RunTqm({"rec", "create", file, "1", "1", std::string(1025, 'd')});
    EXPECT_EQ(1, r.exitCode);
    EXPECT_FALSE(tqmtest::PathExists(file));
}

}  // namespace

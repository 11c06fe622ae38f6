// The record file's format without any file: descriptor text, headers,
// checksum schemes and the old file head.
#include "datafiles/logic/RecordChecksum.h"
#include "datafiles/logic/RecordDescriptor.h"
#include "datafiles/logic/RecordHeader.h"

#include <gtest/gtest.h>

#include <string.h>

#include <string>

namespace {

using tqm::RecordDescriptor;

RecordDescriptor sample()
{
    RecordDescriptor d;
    d.fileType = 7;
    d.version = 42;
    d.day = 3;
    d.month = 9;
    d.year = 2024;
    d.hour = 8;
    d.minute = 5;
    d.second = 1;
    d.description = "Project symbols";
    return d;
}

bool parse(const std::string& text, RecordDescriptor& d)
{
    return tqm::ParseRecordDescriptor(text.c_str(), text.size() + 1, d);
}

TEST(RecordDescriptor, FormatsAndReadsBack)
{
    std::string text = tqm::FormatRecordDescriptor(sample());
    EXPECT_EQ("7\n42\n03/09/2024 08:05:01\nProject symbols\n", text);
    RecordDescriptor d;
    ASSERT_TRUE(parse(text, d));
    EXPECT_EQ(text, tqm::FormatRecordDescriptor(d));

    // The year is not padded; large numbers pass unchanged.
    RecordDescriptor wide = sample();
    wide.year = 7;
    wide.fileType = 0xFFFFFFFE;
    EXPECT_EQ("4294967294\n42\n03/09/7 08:05:01\nProject symbols\n", tqm::FormatRecordDescriptor(wide));
}

TEST(RecordDescriptor, DescriptionRules)
{
    struct Case { const char* text; const char* description; } cases[] = {
        {"1\n2\n01/02/2003 04:05:06\ntrailing blanks \t \r\n", "trailing blanks"},
        {"1\n2\n01/02/2003 04:05:06\n  leading kept\n", "  leading kept"},
        // A colon in the description: what follows three characters behind it.
        {"1\n2\n01/02/2003 04:05:06\nTime: 10:30 sharp\n", "sharp"},
        {"1\n2\n01/02/2003 04:05:06\nratio a:b\n", ""},
        // Seconds of one digit leave no room for a description.
        {"1\n2\n01/02/2003 04:05:6\n", ""},
        // The text ends at a zero byte.
        {"1\n2\n01/02/2003 04:05:06\nshown\0hidden\n", "shown"},
    };
    for (const auto& c : cases) {
        RecordDescriptor d;
        ASSERT_TRUE(tqm::ParseRecordDescriptor(c.text, strlen(c.text) + 1, d)) << c.text;
        EXPECT_EQ(c.description, d.description) << c.text;
    }
}

TEST(RecordDescriptor, NumbersFollowScanfRules)
{
    RecordDescriptor d;
    // Blanks anywhere a number begins, none needed where the format has a line feed.
    ASSERT_TRUE(parse("  5 \t 6  1/ 2/99   7: 8:9\ndesc", d));
    EXPECT_EQ(6u, d.version);
    EXPECT_EQ(2099u, d.year);  // two digits count from 2000
    EXPECT_EQ(9u, d.second);
    ASSERT_TRUE(parse("5 6 1/2/100 7:8:9", d));
    EXPECT_EQ(100u, d.year);
    // Signs are taken as scanf takes them for an unsigned number.
    ASSERT_TRUE(parse("+5\n-1\n1/2/2000 7:8:9\n", d));
    EXPECT_EQ(5u, d.fileType);
    EXPECT_EQ(0xFFFFFFFFu, d.version);

    const char* bad[] = {
        "1\n2\n3/4/2005 6:7",
        "1\n2\n3 /4/2005 6:7:8\n",   // the slash must follow the number at once
        "1\n2\n3/4/2005 6 :7:8\n",   // nor may a blank stand before a colon
        "1\n2\n3-4-2005 6:7:8\n",
        "1\n+\n3/4/2005 6:7:8\n",
    };
    for (const char* text : bad) {
        RecordDescriptor untouched = sample();
        EXPECT_FALSE(parse(text, untouched)) << text;
        EXPECT_EQ(7u, untouched.fileType) << "a failed parse leaves the result alone";
    }
}

TEST(RecordHeader, EncodesLittleEndianFieldsInOrder)
{
    tqm::RecordHeader h{tqm::kRecordMagic, 0x01020304, 0xA0B0C0D0, 20, 0xCBF43926};
    uint8_t raw[tqm::kRecordHeaderSize];
    memset(raw, 0xEE, sizeof(raw));
    tqm::EncodeRecordHeader(h, raw);
    const uint8_t expected[] = {'*', '*', '*', '*', 4, 3, 2, 1, 0xD0, 0xC0, 0xB0, 0xA0,
                                20,  0,   0,   0,   0x26, 0x39, 0xF4, 0xCB};
    EXPECT_EQ(0, memcmp(expected, raw, sizeof(raw)));
    tqm::RecordHeader back = tqm::DecodeRecordHeader(raw);
    EXPECT_EQ(h.magic, back.magic);
    EXPECT_EQ(h.type, back.type);
    EXPECT_EQ(h.param, back.param);
    EXPECT_EQ(h.length, back.length);
    EXPECT_EQ(h.checksum, back.checksum);
}

TEST(RecordChecksum, SchemesByFileType)
{
    const char digits[] = "123456789";
    // Every type but 1 uses the CRC-32.
    for (uint32_t type : {0u, 2u, 0xFFFFFFFFu})
        EXPECT_EQ(0xCBF43926u, tqm::RecordChecksum(type, digits, 9)) << type;

    // Type 1: exclusive-or, then rotate left by one, from 0, no final step.
    EXPECT_EQ(0u, tqm::RecordChecksum(1, digits, 0));
    EXPECT_EQ((((0x31u << 1) ^ 0x32u) << 1), tqm::RecordChecksum(1, "12", 2));
    const uint8_t zero = 0;
    EXPECT_EQ(1u, tqm::RotateXorUpdate(0x80000000u, &zero, 1)) << "the top bit comes round to bit 0";

    // Running in pieces gives the same as at once, in both schemes.
    for (uint32_t type : {1u, 3u}) {
        uint32_t s = tqm::RecordChecksumStart(type);
        s = tqm::RecordChecksumUpdate(type, s, digits, 4);
        s = tqm::RecordChecksumUpdate(type, s, digits + 4, 5);
        EXPECT_EQ(tqm::RecordChecksum(type, digits, 9), tqm::RecordChecksumFinish(type, s)) << type;
    }
}

}  // namespace

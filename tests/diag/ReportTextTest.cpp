#include "diag/logic/ReportText.h"

#include <gtest/gtest.h>

#include <string.h>

#include <string>

namespace {

TEST(ReportText, SourceNameOfFitsItsBuffer)
{
    char guarded[8];
    memset(guarded, '#', sizeof(guarded));
    tqm::SourceNameOf("C:\\src\\LongSourceName.cpp", guarded, 5);
    EXPECT_STREQ("Long", guarded);
    EXPECT_EQ(std::string(3, '#'), std::string(guarded + 5, 3));
}

TEST(ReportText, HexDumpOffsetsGrowPastFourDigits)
{
    const unsigned char bytes[3] = {'a', 0, 0xFF};
    tqm::HexDumpLine line;
    tqm::FormatHexDumpLine(line, bytes, 3, 0x12340);
    EXPECT_EQ("12340 61 00 FF " + std::string(13 * 3, ' ') + " a..\n", std::string(line.c_str()));
}

}  // namespace

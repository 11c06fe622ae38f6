// TQMCrc32Partial, TQMCrc32, CrcInit, CrcCalc, CrcFileCalc.
#include "datafiles/Crc.h"
#include "datafiles/logic/CrcUpdate.h"
#include "res/StringIds.h"
#include "support/BoxRecorder.h"
#include "support/FileUtil.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const char kDigits[] = "123456789";

TEST(Crc32, CheckValues)
{
    EXPECT_EQ(0xCBF43926u, TQMCrc32(kDigits, 9));
    EXPECT_EQ(0u, TQMCrc32(kDigits, 0));
    // Published values of the zlib CRC.
    EXPECT_EQ(0x414FA339u, TQMCrc32("The quick brown fox jumps over the lazy dog", 43));
    // The partial form is the running value: no start or final inversion.
    EXPECT_EQ(0x12345678u, TQMCrc32Partial(0x12345678, kDigits, 0));
    const DWORD first = TQMCrc32Partial(0xFFFFFFFF, kDigits, 4);
    EXPECT_EQ(TQMCrc32(kDigits, 9), ~TQMCrc32Partial(first, kDigits + 4, 5));
}

TEST(Crc16, CheckValueAndStartValue)
{
    WORD before = CrcCalc(0, const_cast<char*>(kDigits), 9);
    CrcInit();
    EXPECT_EQ(0x31C3, before);
    EXPECT_EQ(0x31C3, CrcCalc(0, const_cast<char*>(kDigits), 9));
    // CRC-16/CCITT-FALSE is the same update from 0xFFFF.
    EXPECT_EQ(0x29B1, CrcCalc(0xFFFF, const_cast<char*>(kDigits), 9));
    // A running value carries over between pieces.
    char digits[10];
    memcpy(digits, kDigits, sizeof(digits));
    EXPECT_EQ(0x31C3, CrcCalc(CrcCalc(0, digits, 4), digits + 4, 5));
}

TEST(CrcFileCalc, ChecksumsTheTextHeadOnly)
{
    tqmtest::TempDir dir;
    std::string text(2000, 'x');
    for (size_t i = 0; i < text.size(); ++i)
        text[i] = static_cast<char>('a' + i % 26);
    // counted: the leading bytes the checksum covers.
    struct Case { const char* name; std::string bytes; size_t counted; } cases[] = {
        {"long.txt", text, 1024},
        {"short.txt", text.substr(0, 10), 10},
        {"zero-inside.txt", text.substr(0, 5) + std::string(1, '\0') + text.substr(0, 100), 5},
        {"zero-first.txt", std::string(1, '\0') + text, 0},
    };
    tqmtest::BoxRecorder boxes;
    for (const Case& c : cases) {
        std::string path = dir.file(c.name);
        ASSERT_TRUE(tqmtest::WriteBytes(path, c.bytes));
        WORD expected = tqm::Crc16Update(0, c.bytes.data(), c.counted);
        EXPECT_EQ(expected, CrcFileCalc(nullptr, path.c_str())) << c.name;
    }
    EXPECT_EQ(0u, boxes.count());
}

TEST(CrcFileCalc, FileThatCannotBeOpenedGivesZeroAndABox)
{
    tqmtest::TempDir dir;
    std::string missing = dir.file("missing.txt");
    tqmtest::BoxRecorder boxes;
    EXPECT_EQ(0, CrcFileCalc(reinterpret_cast<HWND>(0), missing.c_str()));
    ASSERT_EQ(1u, boxes.count());
    EXPECT_EQ("Cannot open file '" + missing + "'.", boxes.last().text);
    EXPECT_EQ("System Error", boxes.last().caption);

    // Somebody writing the file keeps it from being checksummed.
    std::string busy = dir.file("busy.txt");
    ASSERT_TRUE(tqmtest::WriteBytes(busy, "text"));
    HANDLE hWriter = CreateFileA(busy.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                 OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, hWriter);
    EXPECT_EQ(0, CrcFileCalc(nullptr, busy.c_str()));
    CloseHandle(hWriter);
    EXPECT_EQ(2u, boxes.count());
}

}  // namespace

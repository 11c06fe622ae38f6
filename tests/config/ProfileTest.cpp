// TQMGetProfileString / TQMGetProfileInt and the integer writers.
#include "config/Profile.h"

#include "support/FileUtil.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using tqmtest::TempDir;
using tqmtest::WriteBytes;

const char kFile[] =
    "; comment\r\n"
    "Orphan=before any section\r\n"
    "[Library]\r\n"
    "  Name  =  Motion Control \t\r\n"
    "Names=plural\r\n"
    "Dup=first\r\n"
    "dup=second\r\n"
    "# Hidden=comment\r\n"
    "//Slash=not a comment here\r\n"
    "Empty=\r\n"
    "Number = -5 \r\n"
    "Hex=0x10\r\n"
    "Trailing=12abc\r\n"
    "Huge=99999999999\r\n"
    "Plus=+7\r\n"
    "\xE4" "Edge\xE4=\xA0value\xFF\r\n"
    "[ Lib ] tail\r\n"
    "Short=yes\r\n"
    "[Library]\r\n"
    "Second=only in the second section\r\n"
    "[Last]\r\n"
    "End=no line feed";

class Profile : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(WriteBytes(m_path, kFile)); }
    std::string get(const char* section, const char* key, const char* def = "<def>")
    {
        return TQMGetProfileString(section, key, def, m_path.c_str()).GetString();
    }
    int getInt(const char* key, int def = 42) { return TQMGetProfileInt("Library", key, def, m_path.c_str()); }

    TempDir m_dir;
    std::string m_path = m_dir.file("profile.ini");
};

TEST_F(Profile, FindsValuesByTheScannerRules)
{
    struct { const char* section; const char* key; const char* expected; } const cases[] = {
        {"Library", "Name", "Motion Control"},
        {"Library", "Names", "plural"},
        {"Library", "Nam", "<def>"},
        {"Library", "Dup", "first"},         // the first duplicate wins
        {"Library", "//Slash", "not a comment here"},
        {"Library", "Empty", ""},            // empty is a value, not a miss
        {"Library", "Edge", "value"},        // high bytes at the edges are blanks
        {"Library", "Second", "<def>"},      // only the first section of a name
        {"Library", "Orphan", "<def>"},
        {"Lib", "Short", "yes"},             // [ Lib ] matches, text after "]" ignored
        {"Lib", "Name", "<def>"},            // the section ended: [Library] is not [Lib]
        {"Last", "End", "no line feed"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.expected, get(c.section, c.key)) << "[" << c.section << "] " << c.key;
}

TEST_F(Profile, DefaultsWithoutAFileOrArguments)
{
    EXPECT_EQ("fallback", std::string(TQMGetProfileString("Library", "Name", "fallback",
                                                          m_dir.file("missing.ini").c_str())));
    EXPECT_EQ("", std::string(TQMGetProfileString("Library", "Name", nullptr, m_dir.file("missing.ini").c_str())));
    EXPECT_EQ("d", std::string(TQMGetProfileString(nullptr, "Name", "d", m_path.c_str())));
    EXPECT_EQ("d", std::string(TQMGetProfileString("Library", "Name", "d", m_dir.path().c_str())));
    EXPECT_EQ(7, TQMGetProfileInt("Library", "Number", 7, m_dir.file("missing.ini").c_str()));
}

TEST_F(Profile, IntegersAreStrictDecimal)
{
    EXPECT_EQ(-5, getInt("Number"));
    EXPECT_EQ(7, getInt("Plus"));
    EXPECT_EQ(42, getInt("Hex"));
    EXPECT_EQ(42, getInt("Trailing"));
    EXPECT_EQ(42, getInt("Huge"));
    EXPECT_EQ(42, getInt("Empty"));
}

TEST_F(Profile, NulAndLongLines)
{
    std::string bytes("[S]\r\nk=a\0b\r\n", 12);
    bytes += "long=" + std::string(5000, 'x') + "=tail\r\n";
    bytes += "after=1\r\n";
    ASSERT_TRUE(WriteBytes(m_path, bytes));
    EXPECT_EQ("a", get("S", "k"));
    // The long line arrives in pieces: the first holds 3066 characters of value.
    EXPECT_EQ(std::string(3066, 'x'), get("S", "long"));
    EXPECT_EQ("1", get("S", "after"));
}

TEST_F(Profile, WritersGoThroughTheSystem)
{
    std::string path = m_dir.file("written.ini");
    EXPECT_TRUE(WritePrivateProfileInt("S", "a", -12, path.c_str()));
    EXPECT_TRUE(TQMWritePrivateProfileInt("S", "b", 2147483647, path.c_str()));
    EXPECT_EQ(-12, static_cast<int>(GetPrivateProfileIntA("S", "a", 0, path.c_str())));
    EXPECT_EQ(2147483647, TQMGetProfileInt("S", "b", 0, path.c_str()));
}

}  // namespace

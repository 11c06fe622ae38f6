// CVersionInfo on modules with chosen version resources (tests/fixtures).
#include "ui/VersionInfo.h"

#include "support/FixtureFiles.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using tqmtest::FixturePath;

TEST(VersionInfo, ReadsTheFixedVersionAndTheStringTable)
{
    CVersionInfo info;
    ASSERT_TRUE(info.Init(FixturePath("verfix_5_10_2.dll").c_str()));
    EXPECT_EQ(0x040904b0u, info.GetLangCodePage());
    const VS_FIXEDFILEINFO* pFixed = info.GetFixedFileInfo();
    ASSERT_TRUE(info.IsOk());
    ASSERT_NE(nullptr, pFixed);
    EXPECT_EQ(static_cast<DWORD>(MAKELONG(10, 5)), pFixed->dwFileVersionMS);
    EXPECT_EQ(static_cast<DWORD>(MAKELONG(0, 2)), pFixed->dwFileVersionLS);
    EXPECT_STREQ("5.10.2.0", info.StringFileInfo("FileVersion"));
    EXPECT_STREQ("Tarn-Holmvik", info.StringFileInfo("CompanyName"));
}

TEST(VersionInfo, FirstLanguageAndItsCodePage)
{
    CVersionInfo info;
    ASSERT_TRUE(info.Init(FixturePath("verfix_2_0_110.dll").c_str()));
    EXPECT_EQ(0x040704e4u, info.GetLangCodePage());
    EXPECT_STREQ("2.0.110.7", info.StringFileInfo("FileVersion"));
    // The system names the language in its own user language; on English
    // systems (and Wine) that begins "German".
    EXPECT_EQ(0, info.Language().Find("German")) << info.Language().GetString();
}

// A file without a version resource, a missing file and a failed lookup all
// leave an empty object: later lookups come back empty.
TEST(VersionInfo, FailuresEmptyTheObject)
{
    for (const char* name : {"verfix_none.dll", "no such file.dll", "verfix_5_10_2.dll"}) {
        CVersionInfo info;
        if (info.Init(FixturePath(name).c_str())) {
            EXPECT_STREQ("", info.StringFileInfo("Comments"));  // a failed lookup
        }
        EXPECT_FALSE(info.IsOk()) << name;
        EXPECT_EQ(nullptr, info.GetFixedFileInfo());
        EXPECT_STREQ("", info.StringFileInfo("FileVersion"));
        EXPECT_STREQ("", info.Language());
    }
    CVersionInfo nameless;
    ASSERT_TRUE(nameless.Init(FixturePath("verfix_5_10_2.dll").c_str()));
    EXPECT_STREQ("", nameless.StringFileInfo(nullptr));
    EXPECT_FALSE(nameless.IsOk());
}

TEST(VersionInfo, InitAgainStartsAfresh)
{
    CVersionInfo info;
    ASSERT_TRUE(info.Init(FixturePath("verfix_5_10_2.dll").c_str()));
    EXPECT_STREQ("", info.StringFileInfo("Comments"));  // not ok any more
    ASSERT_TRUE(info.Init(FixturePath("verfix_2_0_110.dll").c_str()));
    EXPECT_STREQ("2.0.110.7", info.StringFileInfo("FileVersion"));
    EXPECT_FALSE(info.Init(FixturePath("verfix_none.dll").c_str()));
    EXPECT_EQ(nullptr, info.GetFixedFileInfo());
    for (int i = 0; i < 100; ++i)
        ASSERT_TRUE(info.Init(FixturePath("verfix_5_10_2.dll").c_str()));
}

}  // namespace

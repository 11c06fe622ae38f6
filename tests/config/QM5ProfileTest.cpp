// The suite's settings: both hives, the machine-wide mirror file, and what
// bad arguments, wrong value types and a damaged mirror give.
#include "config/QM5Profile.h"

#include "config/Registry.h"
#include "framework/Handles.h"

#include "support/BoxRecorder.h"
#include "support/FileUtil.h"
#include "support/SuiteSettingsGuard.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using tqmtest::BoxRecorder;
using tqmtest::MirrorEntry;
using tqmtest::MirrorFile;
using tqmtest::OpenSuiteView;
using tqmtest::PathExists;
using tqmtest::SuiteKeyPath;

struct RawValue { bool present; DWORD type; std::string data; };

RawValue rawValue(HKEY hive, const char* section, const char* entry)
{
    RawValue raw{false, REG_NONE, std::string()};
    HKEY key = OpenSuiteView(hive, SuiteKeyPath() + "\\" + section);
    if (!key)
        return raw;
    char data[1024];
    DWORD size = sizeof(data);
    if (RegQueryValueExA(key, entry, nullptr, &raw.type, reinterpret_cast<BYTE*>(data), &size) == ERROR_SUCCESS) {
        raw.present = true;
        raw.data.assign(data, size);
    }
    RegCloseKey(key);
    return raw;
}

void putRaw(HKEY hive, const char* section, const char* entry, DWORD type, const std::string& data)
{
    HKEY key = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExA(hive, (SuiteKeyPath() + "\\" + section).c_str(), 0, nullptr, 0,
                                             KEY_ALL_ACCESS | KEY_WOW64_32KEY, nullptr, &key, nullptr));
    RegSetValueExA(key, entry, 0, type, reinterpret_cast<const BYTE*>(data.data()), static_cast<DWORD>(data.size()));
    RegCloseKey(key);
}

bool keyExists(HKEY hive, const std::string& path)
{
    HKEY key = OpenSuiteView(hive, path);
    if (key)
        RegCloseKey(key);
    return key != nullptr;
}

std::string dword(DWORD value) { return std::string(reinterpret_cast<const char*>(&value), sizeof(value)); }

// True if one of the boxes is an assertion report of expr from tarnqm4.
bool reported(const BoxRecorder& boxes, const std::string& expr) { return boxes.reported(expr, "tarnqm4"); }

class QM5Profile : public testing::Test
{
protected:
    tqmtest::SuiteSettingsGuard guard;
};

TEST_F(QM5Profile, UserHiveStoresNumbersAndTextUnderTheVersionKey)
{
    EXPECT_TRUE(TQMSetQM5ProfileInt(HKEY_CURRENT_USER, "Editor", "Tabs", 0xFFFFFFFEu));
    EXPECT_TRUE(TQMSetQM5ProfileString(HKEY_CURRENT_USER, "Editor", "Font", "Courier New"));
    const RawValue tabs = rawValue(HKEY_CURRENT_USER, "Editor", "Tabs");
    EXPECT_EQ(static_cast<DWORD>(REG_DWORD), tabs.type);
    EXPECT_EQ(dword(0xFFFFFFFEu), tabs.data);
    const RawValue font = rawValue(HKEY_CURRENT_USER, "Editor", "Font");
    EXPECT_EQ(static_cast<DWORD>(REG_SZ), font.type);
    EXPECT_EQ(std::string("Courier New", 12), font.data);  // the NUL counted in the size

    EXPECT_EQ(0xFFFFFFFEu, TQMGetQM5ProfileInt(HKEY_CURRENT_USER, "Editor", "Tabs", 4));
    EXPECT_STREQ("Courier New", TQMGetQM5ProfileString(HKEY_CURRENT_USER, "Editor", "Font", "x"));
    EXPECT_FALSE(PathExists(MirrorFile())) << "the user's settings are not mirrored";

    // Reading what was never written makes the section's key and gives the default.
    EXPECT_EQ(7u, TQMGetQM5ProfileInt(HKEY_CURRENT_USER, "Fresh", "Count", 7));
    EXPECT_TRUE(keyExists(HKEY_CURRENT_USER, SuiteKeyPath() + "\\Fresh"));
    EXPECT_STREQ("", TQMGetQM5ProfileString(HKEY_CURRENT_USER, "Fresh", "Name", nullptr));
}

TEST_F(QM5Profile, MachineHiveWritesMirrorAndRegistryAndReadsTheMirror)
{
    EXPECT_TRUE(TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "LibsDir", "D:\\Libs"));
    EXPECT_TRUE(TQMSetQM5ProfileInt(HKEY_LOCAL_MACHINE, "Global", "Level", static_cast<UINT>(-3)));
    EXPECT_EQ("D:\\Libs", MirrorEntry("Global", "LibsDir"));
    EXPECT_EQ("-3", MirrorEntry("Global", "Level"));
    EXPECT_EQ(std::string("D:\\Libs", 8), rawValue(HKEY_LOCAL_MACHINE, "Global", "LibsDir").data);
    EXPECT_EQ(dword(static_cast<DWORD>(-3)), rawValue(HKEY_LOCAL_MACHINE, "Global", "Level").data);

    // With the mirror there, it alone answers for the machine.
    WritePrivateProfileStringA("Global", "Level", "12", MirrorFile().c_str());
    WritePrivateProfileStringA("Global", "LibsDir", "E:\\Mirror", MirrorFile().c_str());
    EXPECT_EQ(12u, TQMGetQM5ProfileInt(HKEY_LOCAL_MACHINE, "Global", "Level", 0));
    EXPECT_STREQ("E:\\Mirror", TQMGetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "LibsDir", ""));

    // Without it, text falls back to the registry but numbers do not.
    ASSERT_TRUE(DeleteFileA(MirrorFile().c_str()));
    EXPECT_EQ(99u, TQMGetQM5ProfileInt(HKEY_LOCAL_MACHINE, "Global", "Level", 99));
    EXPECT_STREQ("D:\\Libs", TQMGetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "LibsDir", ""));
}

TEST_F(QM5Profile, NullEntriesAndValuesRemove)
{
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Tools", "Foo", "1");
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Tools", "Bar", "2");

    EXPECT_TRUE(TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Tools", "Foo", nullptr));
    EXPECT_EQ("<none>", MirrorEntry("Tools", "Foo"));
    EXPECT_FALSE(rawValue(HKEY_LOCAL_MACHINE, "Tools", "Foo").present);
    EXPECT_EQ("2", MirrorEntry("Tools", "Bar"));

    EXPECT_TRUE(TQMSetQM5ProfileInt(HKEY_LOCAL_MACHINE, "Tools", nullptr, 0));
    EXPECT_EQ("<none>", MirrorEntry("Tools", "Bar"));
    EXPECT_FALSE(keyExists(HKEY_LOCAL_MACHINE, SuiteKeyPath() + "\\Tools"));

    // Without a mirror, removing makes none (it would hide the registry).
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Tools", "Foo", "1");
    ASSERT_TRUE(DeleteFileA(MirrorFile().c_str()));
    EXPECT_TRUE(TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Tools", "Foo", nullptr));
    EXPECT_FALSE(PathExists(MirrorFile()));

}

TEST_F(QM5Profile, ValuesOfTheWrongTypeAreReportedAndReadAsTheyStand)
{
    putRaw(HKEY_CURRENT_USER, "Typed", "Short", REG_SZ, std::string("ab", 3));
    putRaw(HKEY_CURRENT_USER, "Typed", "Long", REG_BINARY, std::string(8, '\x11'));
    putRaw(HKEY_CURRENT_USER, "Typed", "Number", REG_DWORD, dword(0x41));
    putRaw(HKEY_CURRENT_USER, "Typed", "Unterminated", REG_SZ, "xyz");

    {
        BoxRecorder boxes;
        EXPECT_EQ(0x6261u, TQMGetQM5ProfileInt(HKEY_CURRENT_USER, "Typed", "Short", 5));
        EXPECT_TRUE(reported(boxes, "dwType == REG_DWORD"));
        EXPECT_TRUE(reported(boxes, "dwCount == sizeof(dwValue)"));
    }
    EXPECT_EQ(5u, TQMGetQM5ProfileInt(HKEY_CURRENT_USER, "Typed", "Long", 5)) << "too long for a number";
    {
        BoxRecorder boxes;
        EXPECT_STREQ("A", TQMGetQM5ProfileString(HKEY_CURRENT_USER, "Typed", "Number", "d"));
        EXPECT_EQ(2u, boxes.count()) << "checked before and after reading the data";
        EXPECT_TRUE(reported(boxes, "dwType == REG_SZ"));
    }
    BoxRecorder boxes;
    EXPECT_STREQ("xyz", TQMGetQM5ProfileString(HKEY_CURRENT_USER, "Typed", "Unterminated", "d"));
    EXPECT_EQ(0u, boxes.count());
}

TEST_F(QM5Profile, BadArgumentsAreReportedAndTheCallGoesOn)
{
    BoxRecorder boxes;
    EXPECT_EQ(5u, TQMGetQM5ProfileInt(HKEY_CURRENT_USER, nullptr, "e", 5));
    EXPECT_TRUE(reported(boxes, "lpszSection != NULL"));
    EXPECT_STREQ("d", TQMGetQM5ProfileString(HKEY_LOCAL_MACHINE, "S", nullptr, "d"));
    EXPECT_TRUE(reported(boxes, "lpszEntry != NULL"));
    EXPECT_FALSE(TQMSetQM5ProfileInt(HKEY_LOCAL_MACHINE, nullptr, "e", 1));
    EXPECT_FALSE(PathExists(MirrorFile())) << "a failed write leaves the mirror alone";

    boxes.clear();
    EXPECT_STREQ("d", TQMGetQM5ProfileString(HKEY_CLASSES_ROOT, "S", "e", "d"));
    EXPECT_EQ(3u, TQMGetQM5ProfileInt(HKEY_USERS, "S", "e", 3));
    EXPECT_FALSE(TQMSetQM5ProfileString(HKEY_CLASSES_ROOT, "S", "e", "v"));
    EXPECT_EQ(3u, boxes.count());
    EXPECT_TRUE(reported(boxes, "hBaseKey == HKEY_CURRENT_USER"));
    EXPECT_FALSE(keyExists(HKEY_CLASSES_ROOT, "Software\\Tarn-Holmvik"));
}

TEST_F(QM5Profile, AKeyThatCannotBeMadeLeavesTheMirrorUntouched)
{
    // Registry key names end at 255 characters; a profile file takes longer
    // section names.
    const std::string section(300, 's');
    EXPECT_FALSE(TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, section.c_str(), "e", "v"));
    EXPECT_FALSE(TQMSetQM5ProfileInt(HKEY_LOCAL_MACHINE, section.c_str(), "e", 1));
    EXPECT_FALSE(PathExists(MirrorFile()));
}

TEST_F(QM5Profile, AMirrorThatCannotBeWrittenKeepsItsValueAndStillAnswers)
{
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "E", "old");
    // Read-only, and held open for reading only: an administrator (and Wine's
    // root) may write a read-only file, but nobody writes one another
    // program holds like this.
    ASSERT_TRUE(SetFileAttributesA(MirrorFile().c_str(), FILE_ATTRIBUTE_READONLY));
    tqm::UniqueFile lock(
        CreateFileA(MirrorFile().c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(lock.valid());
    EXPECT_TRUE(TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "E", "new")) << "the registry's result";
    EXPECT_EQ(std::string("new", 4), rawValue(HKEY_LOCAL_MACHINE, "Global", "E").data);
    EXPECT_EQ("old", MirrorEntry("Global", "E"));
    EXPECT_STREQ("old", TQMGetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "E", ""));
}

TEST_F(QM5Profile, AMalformedMirrorGivesDefaultsAndTakesNewValues)
{
    const std::string mirror = MirrorFile();
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "E", "v");  // makes the folder
    ASSERT_TRUE(tqmtest::WriteBytes(mirror, std::string("\xff\xfe\0\x01[Glob\r\nal]\n=\n[[]]\nE\n", 24)));
    EXPECT_STREQ("d", TQMGetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "E", "d"));
    EXPECT_EQ(4u, TQMGetQM5ProfileInt(HKEY_LOCAL_MACHINE, "Global", "N", 4));
    EXPECT_TRUE(TQMSetQM5ProfileInt(HKEY_LOCAL_MACHINE, "Global", "N", 17));
    EXPECT_EQ(17u, TQMGetQM5ProfileInt(HKEY_LOCAL_MACHINE, "Global", "N", 4));
}

TEST_F(QM5Profile, ReadRegistryStringReadsOneStringValueAndMakesNothing)
{
    putRaw(HKEY_CURRENT_USER, "Raw", "Text", REG_SZ, std::string("hello", 6));
    putRaw(HKEY_CURRENT_USER, "Raw", "Expand", REG_EXPAND_SZ, std::string("%TEMP%", 7));
    putRaw(HKEY_CURRENT_USER, "Raw", "Huge", REG_SZ, std::string(700, 'h'));
    // The plain open sees the caller's view; the user's Software key is one
    // view for both builds.
    const std::string key = SuiteKeyPath() + "\\Raw";

    char out[600];
    memset(out, '#', sizeof(out));
    EXPECT_TRUE(TQMReadRegistryString(HKEY_CURRENT_USER, key.c_str(), "Text", out));
    EXPECT_STREQ("hello", out);
    EXPECT_FALSE(TQMReadRegistryString(HKEY_CURRENT_USER, key.c_str(), "Expand", out));
    EXPECT_STREQ("%TEMP%", out) << "the data are there even when the type is not REG_SZ";
    memset(out, '#', sizeof(out));
    EXPECT_FALSE(TQMReadRegistryString(HKEY_CURRENT_USER, key.c_str(), "Huge", out));
    EXPECT_STREQ("", out);
    EXPECT_EQ('#', out[1]) << "nothing beyond the cleared first byte";
    EXPECT_FALSE(TQMReadRegistryString(HKEY_CURRENT_USER, (key + "\\Nowhere").c_str(), "Text", out));
    EXPECT_FALSE(keyExists(HKEY_CURRENT_USER, key + "\\Nowhere"));
}

}  // namespace

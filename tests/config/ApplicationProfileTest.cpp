// CRegistry over the program's application profile: the registry form, the
// INI form, and no choice at all.
#include "config/Registry.h"
#include "framework/WinApp.h"

#include "support/BoxRecorder.h"
#include "support/FileUtil.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace {

using tqmtest::BoxRecorder;

const char kCompany[] = "Tqmlib52 Tests";

// Removes the test company's key before and after each test.
class ApplicationProfile : public testing::Test
{
protected:
    ApplicationProfile() { clear(); }
    ~ApplicationProfile() override { clear(); }
    static void clear() { RegDeleteTreeA(HKEY_CURRENT_USER, (std::string("Software\\") + kCompany).c_str()); }

    static bool sectionKeyExists(const char* section)
    {
        const std::string path = std::string("Software\\") + kCompany + "\\Profile Test\\" + section;
        HKEY key = nullptr;
        if (RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
            return false;
        RegCloseKey(key);
        return true;
    }
};

// Every value of the section through EnumValue, until ERROR_NO_MORE_ITEMS.
std::map<std::string, std::string> enumerate(CRegistry& registry, const char* section)
{
    std::map<std::string, std::string> values;
    for (DWORD index = 0;; ++index) {
        CString name("stale");
        CString value("stale");
        const LONG result = registry.EnumValue(section, index, name, value);
        if (result != ERROR_SUCCESS) {
            EXPECT_EQ(ERROR_NO_MORE_ITEMS, result);
            EXPECT_STREQ("", name);
            break;
        }
        values[name.GetString()] = std::string(value.GetString(), value.GetLength());
    }
    return values;
}

TEST_F(ApplicationProfile, RegistryFormRoundTrips)
{
    CWinApp app("Profile Test");
    app.SetRegistryKey(kCompany);
    ASSERT_EQ(&app, AfxGetApp());
    CRegistry registry;

    EXPECT_STREQ("d", registry.GetString("Window", "Title", "d"));
    EXPECT_FALSE(sectionKeyExists("Window")) << "reading makes no keys";
    EXPECT_TRUE(registry.WriteString("Window", "Title", "Main"));
    EXPECT_TRUE(registry.WriteInt("Window", "Left", -20));
    EXPECT_TRUE(registry.WriteString("Window", "Empty", ""));
    EXPECT_STREQ("Main", registry.GetString("Window", "Title", "d"));
    EXPECT_EQ(5u, registry.GetInt("Window", "Title", 5)) << "text is not a number";
    EXPECT_STREQ("d", registry.GetString("Window", "Left", "d")) << "a number is not text";

    const auto values = enumerate(registry, "Window");
    ASSERT_EQ(3u, values.size());
    EXPECT_EQ("Main", values.at("Title"));
    EXPECT_EQ("", values.at("Empty"));
    const DWORD left = static_cast<DWORD>(-20);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(&left), 4), values.at("Left")) << "raw data of a number";

    EXPECT_TRUE(registry.RemoveEntry("Window", "Title"));
    EXPECT_TRUE(registry.RemoveEntry("Window", "Title")) << "removing what is not there";
    EXPECT_FALSE(registry.RemoveEntry("Window", nullptr)) << "never the whole section";
    EXPECT_TRUE(sectionKeyExists("Window"));
    EXPECT_TRUE(app.WriteProfileString("Window", nullptr, nullptr));
    EXPECT_FALSE(sectionKeyExists("Window"));
}

TEST_F(ApplicationProfile, IniFormUsesTheFileAndHasNoKeys)
{
    tqmtest::TempDir dir;
    const std::string file = dir.file("app.ini");
    CWinApp app("Profile Test");
    app.SetProfileFile(file.c_str());
    CRegistry registry;

    EXPECT_TRUE(registry.WriteString("Recent", "File1", "C:\\a.tarn5pj"));
    EXPECT_TRUE(registry.WriteInt("Recent", "Count", 1));
    EXPECT_EQ("[Recent]\r\nFile1=C:\\a.tarn5pj\r\nCount=1\r\n", tqmtest::ReadBytes(file));
    EXPECT_EQ(1u, registry.GetInt("Recent", "Count", 0));
    const std::string longValue(2000, 'v');
    EXPECT_TRUE(registry.WriteString("Recent", "Long", longValue.c_str()));
    EXPECT_EQ(longValue, registry.GetString("Recent", "Long", "").GetString());

    EXPECT_EQ(nullptr, app.GetSectionKey("Recent"));
    BoxRecorder boxes;
    CString name, value;
    EXPECT_EQ(ERROR_INVALID_HANDLE, registry.EnumValue("Recent", 0, name, value));
    ASSERT_EQ(1u, boxes.count());
    EXPECT_TRUE(boxes.reported("hSecKey != NULL", "Registry"));
}

TEST_F(ApplicationProfile, WithoutAChoiceNothingIsReadOrWritten)
{
    CRegistry copied;
    {
        CWinApp app;
        EXPECT_STREQ("config_test", app.GetAppName()) << "named after the program by default";
        CRegistry registry;
        copied = registry;
        EXPECT_EQ(3u, registry.GetInt("S", "E", 3));
        EXPECT_FALSE(registry.WriteString("S", "E", "v"));
        EXPECT_EQ(nullptr, app.GetAppRegistryKey());
    }
    ASSERT_EQ(nullptr, AfxGetApp());
    EXPECT_FALSE(copied.WriteString("S", "E", "v")) << "a copy outlives the application object";
    BoxRecorder boxes;
    CString name, value;
    EXPECT_NE(ERROR_SUCCESS, copied.EnumValue("S", 0, name, value));
    EXPECT_EQ(1u, boxes.count());
}

}  // namespace

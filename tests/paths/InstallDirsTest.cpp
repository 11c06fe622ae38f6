// The installation directories: shell folders with the suite's subfolder,
// the derived paths, and the configurable four with their defaults written
// back to the machine-wide settings.
#include "paths/InstallDirs.h"
#include "paths/PathNames.h"

#include "config/QM5Profile.h"

#include "support/BoxRecorder.h"
#include "support/FileUtil.h"
#include "support/FixtureFiles.h"
#include "support/SuiteSettingsGuard.h"

#include <gtest/gtest.h>

#include <shlobj.h>
#include <string.h>

#include <string>

namespace {

using tqmtest::MirrorFile;

const std::string kSubfolder = "\\Tarn-Holmvik\\QM5_20";

std::string shellFolder(int csidl)
{
    char folder[MAX_PATH] = "";
    SHGetFolderPathA(nullptr, csidl, nullptr, 0, folder);
    return folder;
}

std::string parentOf(const std::string& path) { return path.substr(0, path.rfind('\\')); }

std::string mirrorEntry(const char* entry) { return tqmtest::MirrorEntry("Global", entry); }

// Calls a buffer form on a sentinel-filled buffer; checks that it wrote a
// terminated string of the length it returned and nothing after it.
std::string viaBuffer(int(WINAPI* bufferForm)(char*))
{
    char buffer[MAX_PATH + 64];
    memset(buffer, '#', sizeof(buffer));
    const int length = bufferForm(buffer);
    EXPECT_EQ(static_cast<int>(strlen(buffer)), length);
    EXPECT_EQ('#', buffer[length + 1]);
    return buffer;
}

TEST(InstallDirs, ShellFoldersGetTheSuitesSubfolder)
{
    struct Case { int(WINAPI* bufferForm)(char*); std::string expected; } cases[] = {
        {TQMGetUserDir, shellFolder(CSIDL_LOCAL_APPDATA) + kSubfolder},
        {TQMGetUserAppDataDir, shellFolder(CSIDL_APPDATA) + kSubfolder},
        {TQMGetCommonAppDataDir, shellFolder(CSIDL_COMMON_APPDATA) + kSubfolder},
        // Beside the documents folders, not in them.
        {TQMGetUserDocumentsDir, parentOf(shellFolder(CSIDL_PERSONAL)) + kSubfolder},
        {TQMGetCommonDocumentsDir, parentOf(shellFolder(CSIDL_COMMON_DOCUMENTS)) + kSubfolder},
        {TQMGetLocalDir, parentOf(shellFolder(CSIDL_COMMON_DOCUMENTS)) + kSubfolder + "\\LocalDir"},
        {TQMGetVMXOptionsFilePath, shellFolder(CSIDL_LOCAL_APPDATA) + kSubfolder + "\\VMXOptions.ini"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.expected, viaBuffer(c.bufferForm));
        EXPECT_EQ(':', c.expected[1]) << c.expected;  // every shell folder is known here
    }
    EXPECT_EQ(cases[0].expected, TQMGetUserDir().GetString());
    EXPECT_EQ("Tarn-Holmvik\\QM5\\2.0", viaBuffer(TQMGetQM5BaseRegistryKey));

    char temp[MAX_PATH] = "";
    GetTempPathA(MAX_PATH, temp);
    GetLongPathNameA(temp, temp, MAX_PATH);
    char buffer[MAX_PATH];
    EXPECT_EQ(buffer, TQMGetTempDir(buffer));
    EXPECT_EQ(std::string(temp) + "Tarn-Holmvik", buffer);
}

class ConfigurableDirs : public testing::Test
{
protected:
    tqmtest::SuiteSettingsGuard guard;
};

TEST_F(ConfigurableDirs, AMissingSettingGivesTheDefaultAndWritesItBack)
{
    const std::string common = TQMGetCommonDocumentsDir().GetString();
    struct Case { const char* entry; int(WINAPI* bufferForm)(char*); std::string expected; } cases[] = {
        {"ProjectsDir", TQMGetProjectsDir, common + "\\Projects"},
        {"LibsDir", TQMGetLibsDir, common + "\\Libs"},
        {"TemplatesDir", TQMGetTemplatesDir, common + "\\Templates"},
        {"AppsDir", TQMGetAppsDir, tqmtest::ProgramDir()},  // the folder of the library
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.expected, viaBuffer(c.bufferForm)) << c.entry;
        EXPECT_EQ(c.expected, mirrorEntry(c.entry));
        EXPECT_STREQ(c.expected.c_str(), TQMGetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", c.entry, ""));
    }
    char qm4[MAX_PATH];
    EXPECT_EQ(qm4, GetQM4ProjectsDir(qm4));
    EXPECT_EQ(common + "\\Projects\\", qm4) << "the old forms end in a backslash";
}

TEST_F(ConfigurableDirs, TrailingBackslashesAreTrimmedAndBackslashesAloneCountAsEmpty)
{
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "ProjectsDir", "D:\\Work\\\\");
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "TemplatesDir", "\\\\\\");
    EXPECT_STREQ("D:\\Work", TQMGetProjectsDir());
    EXPECT_EQ("D:\\Work\\\\", mirrorEntry("ProjectsDir")) << "a setting in use is not rewritten";
    const std::string templates = std::string(TQMGetCommonDocumentsDir().GetString()) + "\\Templates";
    EXPECT_EQ(templates, TQMGetTemplatesDir().GetString());
    EXPECT_EQ(templates, mirrorEntry("TemplatesDir"));
}

TEST_F(ConfigurableDirs, ADirectoryTooLongForMaxPathIsReportedAndCopiedWhole)
{
    const std::string longDir = "D:\\" + std::string(296, 'x');
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "ProjectsDir", longDir.c_str());
    EXPECT_EQ(longDir, TQMGetProjectsDir().GetString());

    tqmtest::BoxRecorder boxes;
    char buffer[400];
    EXPECT_EQ(299, TQMGetProjectsDir(buffer));
    EXPECT_EQ(longDir, buffer);
    ASSERT_EQ(1u, boxes.count());
    EXPECT_TRUE(boxes.reported("strDir.GetLength() < MAX_PATH", "Misc"));
}

TEST_F(ConfigurableDirs, VmxOptionsComeFromTheUsersOptionsFile)
{
    char value[64];
    memset(value, '#', sizeof(value));
    EXPECT_EQ(0u, TQMGetVMXOption("Language", value, sizeof(value)));
    EXPECT_STREQ("", value);

    const std::string file = TQMGetVMXOptionsFilePath().GetString();
    TQMCreateDir(TQMGetUserDir());
    ASSERT_TRUE(tqmtest::WriteBytes(file, "[VMX]\r\nLanguage=de\r\nTitle=Project manager\r\n"));
    EXPECT_EQ(2u, TQMGetVMXOption("Language", value, sizeof(value)));
    EXPECT_STREQ("de", value);
    EXPECT_EQ(4u, TQMGetVMXOption("Title", value, 5)) << "cut to the buffer";
    EXPECT_STREQ("Proj", value);
    DeleteFileA(file.c_str());
}

}  // namespace

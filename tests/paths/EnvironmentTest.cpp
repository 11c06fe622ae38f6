// The user's environment: the installation's folders made on first start,
// and settings files copied into place from their installed defaults.
#include "paths/Environment.h"

#include "config/QM5Profile.h"
#include "paths/InstallDirs.h"

#include "support/FileUtil.h"
#include "support/SuiteSettingsGuard.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <string.h>

#include <string>

namespace {

using tqmtest::PathExists;
using tqmtest::ReadBytes;
using tqmtest::WriteBytes;

void setDir(const char* entry, const std::string& path)
{
    ASSERT_TRUE(TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", entry, path.c_str()));
}

bool isReadOnly(const std::string& path) { return (GetFileAttributesA(path.c_str()) & FILE_ATTRIBUTE_READONLY) != 0; }

// Deletes a file of the test in a folder the test did not make.
struct FileRemover
{
    std::string path;
    ~FileRemover()
    {
        SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
        DeleteFileA(path.c_str());
    }
};

class Environment : public testing::Test
{
protected:
    tqmtest::SuiteSettingsGuard guard;
    tqmtest::TempDir temp;
};

TEST_F(Environment, CreateMakesEveryMissingFolderAndSkipsInvalidNames)
{
    setDir("AppsDir", temp.file("Install\\Bin"));
    setDir("ProjectsDir", temp.file("Data\\Projects"));
    setDir("LibsDir", temp.file("Data\\Libs"));
    setDir("TemplatesDir", temp.file("Data\\Temp|lates"));  // not a valid path name

    TQMCreateEnvironment();
    for (const CString& dir : {TQMGetAppsDir(), TQMGetProjectsDir(), TQMGetLibsDir(), TQMGetLocalDir(),
                               TQMGetUserDir()})
        EXPECT_TRUE(PathExists(dir.GetString())) << dir.GetString();
    EXPECT_FALSE(PathExists(temp.file("Data\\Temp|lates")));

    // Once everything is there, a second start changes nothing.
    WriteBytes(temp.file("Data\\Projects\\keep.txt"), "kept");
    TQMCreateEnvironment();
    EXPECT_EQ("kept", ReadBytes(temp.file("Data\\Projects\\keep.txt")));
}

TEST_F(Environment, CopySettingsFileTakesTheInstalledDefaultOnce)
{
    setDir("AppsDir", temp.path());
    const std::string userCopy = std::string(TQMGetUserDir().GetString()) + "\\Tools.ini";
    const std::string machineCopy = std::string(TQMGetLocalDir().GetString()) + "\\Tools.ini";
    FileRemover removeUserCopy{userCopy};
    FileRemover removeMachineCopy{machineCopy};

    // Neither a copy nor a default: the path to use, and no file.
    char result[MAX_PATH];
    TQMCopySettingsFile("Tools.ini", FALSE, result);
    EXPECT_EQ(userCopy, result);
    EXPECT_FALSE(PathExists(userCopy));

    // The installed default, read-only as installers leave it, is copied and
    // the copy made writable.
    ASSERT_TRUE(WriteBytes(temp.file("Tools.ini"), "[Tools]\r\nCount=1\r\n"));
    SetFileAttributesA(temp.file("Tools.ini").c_str(), FILE_ATTRIBUTE_READONLY);
    TQMCopySettingsFile("Tools.ini", FALSE, result);
    EXPECT_EQ(userCopy, result);
    EXPECT_EQ("[Tools]\r\nCount=1\r\n", ReadBytes(userCopy));
    EXPECT_FALSE(isReadOnly(userCopy));

    // An existing copy keeps its contents and is only made writable.
    WriteBytes(userCopy, "[Tools]\r\nCount=7\r\n");
    SetFileAttributesA(userCopy.c_str(), FILE_ATTRIBUTE_READONLY);
    TQMCopySettingsFile("Tools.ini", FALSE, result);
    EXPECT_EQ("[Tools]\r\nCount=7\r\n", ReadBytes(userCopy));
    EXPECT_FALSE(isReadOnly(userCopy));

    TQMCopySettingsFile("Tools.ini", TRUE, result);
    EXPECT_EQ(machineCopy, result);

    // A name too long for the buffer: handed back cut, nothing copied.
    const std::string longName(300, 'n');
    TQMCopySettingsFile(longName.c_str(), FALSE, result);
    EXPECT_EQ(static_cast<size_t>(MAX_PATH - 1), strlen(result));
}

}  // namespace

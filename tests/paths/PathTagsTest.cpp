// Path tags against the real directories: the round trip for every directory
// substitution knows, the buffer forms, and settings that change between calls.
#include "paths/PathTags.h"

#include "config/QM5Profile.h"
#include "config/Registry.h"
#include "paths/InstallDirs.h"
#include "paths/PathNames.h"
#include "paths/logic/PathTagRules.h"

#include "support/SuiteSettingsGuard.h"

#include <gtest/gtest.h>

#include <string.h>

#include <string>

namespace {

class PathTags : public testing::Test
{
protected:
    tqmtest::SuiteSettingsGuard guard;
};

TEST_F(PathTags, SubstThenUnSubstGivesBackEveryDirectoryOfTheList)
{
    for (const tqm::PathTag& tag : tqm::kSubstTags) {
        const CString dir = TQMUnSubstAppPathTags(tag.name);
        ASSERT_EQ(':', dir[1]) << tag.name << " expands to " << dir.GetString();
        const CString path = dir + "\\Sub\\a.x";
        CString shouted = path;
        shouted.MakeUpper();
        const CString stored = TQMSubstAppPathTags(shouted);
        EXPECT_STREQ(CString(tag.name) + "\\SUB\\A.X", stored) << path.GetString();
        EXPECT_STREQ(dir + "\\SUB\\A.X", TQMUnSubstAppPathTags(stored)) << "with the directory's own letter case";
        EXPECT_STREQ(path, TQMUnSubstAppPathTags(TQMSubstAppPathTags(path)));
    }
    const CString libs = TQMGetLibsDir();
    EXPECT_STREQ(libs + "\\Std\\a.x", TQMUnSubstAppPathTags("<$StdLibDir>\\a.x"));
    // A tagged path is expanded by the full-path conversion too.
    EXPECT_STREQ(libs + "\\x.lin", TQMGetFullPath("C:\\base", "<$LibsDir>\\x.lin"));
}

TEST_F(PathTags, EveryCallReadsTheDirectoriesAfresh)
{
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "ProjectsDir", "D:\\A");
    EXPECT_STREQ("D:\\A\\p", TQMUnSubstAppPathTags("<$ProjectsDir>\\p"));
    EXPECT_STREQ("D:\\A\\p", TQMUnSubstAppPathTags("<$ProjDir>\\p", nullptr, nullptr));
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "ProjectsDir", "D:\\B\\");
    EXPECT_STREQ("D:\\B\\p", TQMUnSubstAppPathTags("<$ProjectsDir>\\p"));
    EXPECT_STREQ("<$ProjectsDir>\\p", TQMSubstAppPathTags("d:\\b\\p"));
    EXPECT_STREQ("<$ProjDir>\\p", TQMSubstAppPathTags("d:\\b\\p", nullptr, nullptr));
}

TEST_F(PathTags, BufferFormsLeaveTheBufferAloneWhenTheResultIsTooLong)
{
    const std::string longDir = "D:\\" + std::string(240, 'p');
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "ProjectsDir", longDir.c_str());

    char dst[MAX_PATH + 16];
    memset(dst, '#', sizeof(dst));
    EXPECT_EQ(static_cast<int>(longDir.size()) + 2, TQMUnSubstAppPathTags("<$ProjectsDir>\\a", dst));
    EXPECT_EQ(longDir + "\\a", dst);
    EXPECT_EQ('#', dst[longDir.size() + 3]);

    memset(dst, '#', sizeof(dst));
    const std::string tail(20, 't');
    EXPECT_EQ(static_cast<int>(longDir.size() + 1 + tail.size()),
              TQMUnSubstAppPathTags(("<$ProjectsDir>\\" + tail).c_str(), dst));
    EXPECT_EQ('#', dst[0]);

    const std::string longPath = "E:\\" + std::string(300, 'q');
    EXPECT_EQ(303, TQMSubstAppPathTagsEx(longPath.c_str(), "F:\\", "G:\\", dst));
    EXPECT_EQ('#', dst[0]);
    EXPECT_EQ(17, TQMSubstAppPathTagsEx("G:\\Dev\\main.st", "F:\\", "G:\\Dev", dst));
    EXPECT_STREQ("<$DevDir>\\main.st", dst);
    EXPECT_EQ('#', dst[18]);
}

}  // namespace

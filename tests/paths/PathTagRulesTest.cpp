// The rules of path tags on made-up directories: orders, case, prefixes
// without separators, the project and device forms. And the text rules of
// the suite's shell-folder directories.
#include "paths/logic/PathTagRules.h"
#include "paths/logic/SuiteFolders.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace {

using tqm::PathTagDir;

// A lookup over fixed directories that records what it was asked.
struct FakeDirs
{
    std::map<PathTagDir, CString> dirs = {
        {PathTagDir::Programs, "C:\\Program Files"},
        {PathTagDir::Templates, "C:\\Data\\Templates"},
        {PathTagDir::Libs, "C:\\Data\\Libs"},
        {PathTagDir::Projects, "C:\\Projects"},
        {PathTagDir::User, "C:\\Users\\joe\\AppData\\Local\\Tarn-Holmvik\\QM5_20"},
        {PathTagDir::Local, "C:\\Data\\LocalDir"},
        {PathTagDir::Apps, "C:\\Program Files\\Tarn\\Bin"},
        {PathTagDir::AppsParent, "C:\\Program Files\\Tarn"},
        {PathTagDir::Docs, "C:\\Data"},
    };
    std::vector<PathTagDir> asked;

    tqm::PathTagDirLookup lookup()
    {
        return [this](PathTagDir dir) {
            asked.push_back(dir);
            return dirs[dir];
        };
    }
};

TEST(PathTagRules, SubstTriesTheDirectoriesInTheirOrder)
{
    FakeDirs fake;
    const char* cases[][2] = {
        // Program Files before the programs inside it.
        {"C:\\PROGRAM FILES\\Tarn\\Bin\\x.exe", "<$ProgramsDir>\\Tarn\\Bin\\x.exe"},
        {"c:\\data\\libs\\Std\\a.x", "<$LibsDir>\\Std\\a.x"},      // never <$StdLibDir>
        {"C:\\Data\\LocalDir\\g.ini", "<$LocalDir>\\g.ini"},
        {"C:\\Data\\other\\d.x", "<$DocsDir>\\other\\d.x"},       // documents last
        {"C:\\Projects2\\a", "<$ProjectsDir>2\\a"},               // no separator needed
        {"C:\\Projects", "<$ProjectsDir>"},
        {"D:\\Elsewhere\\a", "D:\\Elsewhere\\a"},
        {"relative\\a", "relative\\a"},
    };
    for (auto& c : cases)
        EXPECT_STREQ(c[1], tqm::SubstPathTags(c[0], fake.lookup())) << c[0];
    EXPECT_STREQ("", tqm::SubstPathTags(nullptr, fake.lookup()));

    // The directories are asked for in order and only up to the first match.
    fake.asked.clear();
    tqm::SubstPathTags("C:\\Projects\\p", fake.lookup());
    EXPECT_EQ((std::vector<PathTagDir>{PathTagDir::Programs, PathTagDir::Templates, PathTagDir::Libs,
                                       PathTagDir::Projects}),
              fake.asked);

    // An empty directory (the Program Files folder unknown) matches nothing.
    fake.dirs[PathTagDir::Programs] = "";
    EXPECT_STREQ("<$AppsDir>\\x.exe", tqm::SubstPathTags("C:\\Program Files\\Tarn\\Bin\\x.exe", fake.lookup()));
    EXPECT_STREQ("<$AppsDirParent>\\y", tqm::SubstPathTags("C:\\Program Files\\Tarn\\y", fake.lookup()));
}

TEST(PathTagRules, UnSubstExpandsKnownTagsOnly)
{
    FakeDirs fake;
    const char* cases[][2] = {
        {"<$libsdir>\\x.lib", "C:\\Data\\Libs\\x.lib"},          // tags ignore case
        {"<$StdLibDir>\\a.x", "C:\\Data\\Libs\\Std\\a.x"},
        {"<$HpLibDir>\\a.x", "C:\\Data\\Libs\\HP\\a.x"},
        {"<$AppsDirParent>\\x", "C:\\Program Files\\Tarn\\x"},
        {"<$AppsDir>\\x", "C:\\Program Files\\Tarn\\Bin\\x"},
        {"<$ProjectsDir>2\\a", "C:\\Projects2\\a"},
        {"<$UserDir>\\VMXOptions.ini", "C:\\Users\\joe\\AppData\\Local\\Tarn-Holmvik\\QM5_20\\VMXOptions.ini"},
        {"<$DocsDir>x", "C:\\Datax"},
        {"<$Unknown>\\a", "<$Unknown>\\a"},
        {"<$ProjDir>\\p.x", "<$ProjDir>\\p.x"},                  // only the project form knows these
        {"<$LibsDir", "<$LibsDir"},                              // "<" without a whole tag
        {" <$LibsDir>\\a", " <$LibsDir>\\a"},                   // a tag only at the very start
    };
    for (auto& c : cases)
        EXPECT_STREQ(c[1], tqm::UnSubstPathTags(c[0], fake.lookup())) << c[0];
    EXPECT_STREQ("", tqm::UnSubstPathTags(nullptr, fake.lookup()));

    fake.asked.clear();
    tqm::UnSubstPathTags("plain\\path", fake.lookup());
    tqm::UnSubstPathTags("<$Unknown>", fake.lookup());
    EXPECT_TRUE(fake.asked.empty()) << "no directory is needed for these";
}

TEST(PathTagRules, ProjectAndDeviceForms)
{
    FakeDirs fake;
    const char* dev = "C:\\Projects\\Plant\\Cpu1";
    const char* proj = "C:\\Projects\\Plant";
    EXPECT_STREQ("<$DevDir>\\main.st", tqm::SubstPathTags("c:\\projects\\plant\\cpu1\\main.st", proj, dev,
                                                          fake.lookup()));
    EXPECT_STREQ("<$ProjDir>\\plc.cfg", tqm::SubstPathTags("C:\\Projects\\Plant\\plc.cfg", proj, dev, fake.lookup()));
    EXPECT_STREQ("<$ProjDir>\\Other\\x", tqm::SubstPathTags("C:\\Projects\\Other\\x", nullptr, nullptr,
                                                            fake.lookup()))
        << "without projDir the projects directory is the project";
    EXPECT_STREQ("<$ProjDir>D:\\x", tqm::SubstPathTags("D:\\x", "", nullptr, fake.lookup()))
        << "an empty projDir matches every path";
    EXPECT_STREQ("<$LibsDir>\\x", tqm::SubstPathTags("C:\\Data\\Libs\\x", proj, "", fake.lookup()));

    EXPECT_STREQ("D:\\Dev\\a", tqm::UnSubstPathTags("<$DevDir>\\a", proj, "D:\\Dev", fake.lookup()));
    EXPECT_STREQ("D:\\Dev\\a", tqm::UnSubstPathTags("<$cpudir>\\a", proj, "D:\\Dev", fake.lookup()));
    EXPECT_STREQ("<$DevDir>\\a", tqm::UnSubstPathTags("<$DevDir>\\a", proj, "", fake.lookup()));
    EXPECT_STREQ("C:\\Projects\\Plant\\p.x", tqm::UnSubstPathTags("<$ProjDir>\\p.x", proj, nullptr, fake.lookup()));
    EXPECT_STREQ("C:\\Projects\\p.x", tqm::UnSubstPathTags("<$ProjDir>\\p.x", nullptr, nullptr, fake.lookup()));
    EXPECT_STREQ("\\p.x", tqm::UnSubstPathTags("<$ProjDir>\\p.x", "", nullptr, fake.lookup()));
    EXPECT_STREQ("C:\\Data\\Templates\\t", tqm::UnSubstPathTags("<$TmplDir>\\t", proj, "D:\\Dev", fake.lookup()));
}

TEST(SuiteFolders, ShellFoldersBecomeTheSuitesFolders)
{
    struct Case { const char* shellFolder; bool beside; const char* result; } cases[] = {
        {"C:\\Users\\joe\\AppData\\Roaming", false, "C:\\Users\\joe\\AppData\\Roaming\\Tarn-Holmvik\\QM5_20"},
        {"C:\\Users\\joe\\Documents", true, "C:\\Users\\joe\\Tarn-Holmvik\\QM5_20"},
        {"C:/Users/Public/Documents/", true, "C:\\Users\\Public\\Tarn-Holmvik\\QM5_20"},
        {"C:\\", true, "C:\\Tarn-Holmvik\\QM5_20"},  // a drive has no folder to drop
        {"", true, "\\Tarn-Holmvik\\QM5_20"},  // unknown: the bare subfolder
    };
    for (const Case& c : cases)
        EXPECT_STREQ(c.result, tqm::SuiteFolderBeside(c.shellFolder, c.beside)) << (c.shellFolder ? c.shellFolder : "");
    EXPECT_STREQ("C:\\Temp\\Tarn-Holmvik", tqm::SuiteTempDir("C:\\Temp\\"));
}

}  // namespace

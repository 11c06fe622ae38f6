// Parent folders, full and relative paths, extensions, file names, trailing
// backslashes, untitled names and folder creation.
#include "paths/PathNames.h"

#include "support/FileUtil.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <string.h>

#include <string>

namespace {

using tqmtest::PathExists;
using tqmtest::TempDir;
using tqmtest::WriteBytes;

TEST(PathConversion, ParentDir)
{
    const char* cases[][2] = {
        {"C:\\a\\b\\", "C:\\a"}, {"C:\\a", "C:"}, {"C:\\", "C:"},       {"name", ""},
        {"\\x", ""},            {"a\\b\\\\\\", "a"}, {"\\\\srv\\share", "\\\\srv"},
    };
    for (auto& c : cases)
        EXPECT_STREQ(c[1], TQMGetParentDir(c[0])) << c[0];
    EXPECT_STREQ("", TQMGetParentDir(nullptr));
}

TEST(PathConversion, FullPath)
{
    const char* cases[][3] = {
        // base, path, result
        {"C:\\base\\sub", "..\\x", "C:\\base\\x"},
        {"C:\\base\\sub", "\\x", "C:\\x"},
        {"\\\\srv\\d", "x", "x"},  // a base without a drive relates nothing
        {"C:\\base\\sub", ".\\..\\.\\..\\x", "C:\\x"},
        {"C:\\base\\sub", "..\\..\\..\\..\\x", "C:\\x"},  // the drive is as high as it goes
        {"C:\\base", "D:x", "D:x"},
        {"C:\\base", "\\\\srv\\share\\x", "C:\\\\srv\\share\\x"},  // kept as callers know it
        {"C:\\base", "sub\\..\\x", "C:\\base\\sub\\..\\x"},  // only leading steps are resolved
        {"C:", "..\\x", "C:\\x"},
        {"C:\\base", "", ""},
        // A tagged path is the path tags' business, not the base's; a tag
        // nobody knows stays as it is (known tags: PathTagsTest).
        {"C:\\base", "<$Unknown>\\x.lin", "<$Unknown>\\x.lin"},
    };
    for (auto& c : cases) {
        EXPECT_STREQ(c[2], TQMGetFullPath(c[0], c[1])) << c[0] << " + " << c[1];
        CString result("previous");
        TQMGetFullPath(result, c[0], c[1]);
        EXPECT_STREQ(c[2], result) << c[0] << " + " << c[1];
    }
    EXPECT_STREQ("", TQMGetFullPath("C:\\base", nullptr));
}

TEST(PathConversion, RelativePath)
{
    const char* cases[][3] = {
        {"C:\\base\\sub", "C:\\base\\sub\\a.x", "a.x"},           // bare name directly in the base
        {"C:\\base\\sub", "C:\\base\\sub\\deep\\a.x", ".\\deep\\a.x"},  // deliberately keeps .\ deeper down
        {"C:\\base\\sub", "C:\\base\\a.x", "..\\a.x"},
        {"C:\\base\\sub", "..\\a.x", "..\\a.x"},
        {"C:\\a\\b\\c", "C:\\x.txt", "\\x.txt"},                 // climbs to the drive: drive-relative
        {"C:\\a\\b\\c\\d", "C:\\a\\x.txt", "\\a\\x.txt"},
        {"C:\\a\\b\\c\\d", "C:\\a\\b\\x.txt", "..\\..\\x.txt"},
        {"C:\\base", "D:\\other\\a.x", "D:\\other\\a.x"},         // another drive: full
    };
    for (auto& c : cases) {
        EXPECT_STREQ(c[2], TQMGetRelativePath(c[0], c[1])) << c[0] << " + " << c[1];
        CString result;
        TQMGetRelativePath(result, c[0], c[1]);
        EXPECT_STREQ(c[2], result) << c[0] << " + " << c[1];
    }
    // Too long for the shell's helper: they come back full.
    const std::string deep = "C:\\" + std::string(300, 'd');
    EXPECT_STREQ((deep + "\\a.x").c_str(), TQMGetRelativePath(deep.c_str(), "a.x"));
}

TEST(PathConversion, ChangeFileExt)
{
    const char* cases[][3] = {
        {"a\\b.txt", ".lin", "a\\b.lin"},
        {".cfg", ".lin", ".cfg.lin"},       // a dot in the first position is no extension
        {"a.b\\c", ".lin", "a.b\\c.lin"},
        {"C:", ".lin", "C:.lin"},
        {"b.tar.gz", ".zip", "b.tar.zip"},
        {"b.txt", "lin", "b.in"},           // without its dot, ext loses a character, as it always has
        {"b.txt", "", "b"},                 // an empty ext takes the extension off
    };
    for (auto& c : cases)
        EXPECT_STREQ(c[2], TQMChangeFileExt(c[0], c[1])) << c[0] << " " << c[1];
    EXPECT_STREQ("b", TQMChangeFileExt("b.txt", nullptr));
}

TEST(PathConversion, ChangeFileExtCutsLongPathsToMaxPath)
{
    const std::string longPath = "C:\\" + std::string(300, 'p') + ".txt";
    const CString result = TQMChangeFileExt(longPath.c_str(), ".lin");
    EXPECT_EQ(MAX_PATH + 4, result.GetLength());
    EXPECT_EQ(0, strncmp(result, longPath.c_str(), MAX_PATH));
}

TEST(PathConversion, FileName)
{
    EXPECT_STREQ("b.txt", TQMGetFileName("C:\\a\\b.txt"));
    EXPECT_STREQ("b", TQMGetFileName("C:b"));
    EXPECT_STREQ("c.d.e", TQMGetFileName("a/b\\c.d.e"));
    EXPECT_STREQ("", TQMGetFileName("C:\\a\\"));
}

// The buffer form writes nothing past the string's own terminator.
TEST(PathConversion, StripTrailingBackslash)
{
    const char* cases[][2] = {
        {"C:\\a\\", "C:\\a"}, {"C:\\", "C:"}, {"a\\\\\\", "a"}, {"\\", ""}, {"a", "a"}, {"", ""}, {"\\a", "\\a"},
    };
    for (auto& c : cases) {
        char buffer[MAX_PATH + 8];
        memset(buffer, 0x5A, sizeof(buffer));
        const size_t length = strlen(c[0]);
        memcpy(buffer, c[0], length + 1);
        TQMStripTrailingBackslash(buffer);
        EXPECT_STREQ(c[1], buffer);
        for (size_t i = length + 1; i < sizeof(buffer); ++i)
            ASSERT_EQ(0x5A, static_cast<unsigned char>(buffer[i])) << c[0] << " at " << i;
    }
    TQMStripTrailingBackslash(static_cast<char*>(nullptr));

    char full[MAX_PATH + 1];
    memset(full, '\\', MAX_PATH);
    full[MAX_PATH] = '\0';
    TQMStripTrailingBackslash(full);
    EXPECT_STREQ("", full);

    CString path("C:\\");
    TQMStripTrailingBackslash(path);
    EXPECT_STREQ("C:", path);
}

TEST(PathConversion, NextUntitledName)
{
    TempDir dir;
    EXPECT_STREQ("Untitled1", TQMGetNextUntitledFileName(dir.path().c_str(), "Untitled"));
    ASSERT_TRUE(WriteBytes(dir.file("Untitled1.x"), "x"));
    ASSERT_TRUE(WriteBytes(dir.file("Untitled2.y"), "y"));
    ASSERT_TRUE(WriteBytes(dir.file("Untitled4.z"), "z"));
    EXPECT_STREQ("Untitled3", TQMGetNextUntitledFileName(dir.path().c_str(), "Untitled"));
    ASSERT_TRUE(WriteBytes(dir.file("untitled3"), ""));  // no extension, other case: taken too
    EXPECT_STREQ("Untitled5", TQMGetNextUntitledFileName(dir.path().c_str(), "Untitled"));
    EXPECT_STREQ("Plant1", TQMGetNextUntitledFileName((dir.path() + "\\missing").c_str(), "Plant"));
}

TEST(PathConversion, CreateDir)
{
    TempDir root;
    const std::string a = root.file("a");
    const std::string deep = a + "\\b\\c";
    EXPECT_TRUE(TQMCreateDir(deep.c_str()));
    EXPECT_TRUE(PathExists(a + "\\b"));
    EXPECT_TRUE(PathExists(deep));
    EXPECT_FALSE(TQMCreateDir(deep.c_str()));  // already there
    EXPECT_TRUE(TQMCreateDir((deep + "\\d\\").c_str()));
    EXPECT_FALSE(TQMCreateDir(""));

    // A file where a folder should be stops the creation.
    ASSERT_TRUE(WriteBytes(root.file("file"), "x"));
    EXPECT_FALSE(TQMCreateDir(root.file("file\\sub\\x").c_str()));
    EXPECT_FALSE(PathExists(root.file("file\\sub")));

    // Far too long for a folder name.
    const std::string tooLong = root.path() + "\\" + std::string(300, 'l');
    EXPECT_FALSE(TQMCreateDir(tooLong.c_str()));
}

}  // namespace

// Delete, rename, move and copy through the shell, folder copies, read-only
// state, comparison and wildcard matching - on real trees in a fresh folder.
#include "paths/FileOperations.h"

#include "support/FileUtil.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <string>

namespace {

using tqmtest::PathExists;
using tqmtest::ReadBytes;
using tqmtest::TempDir;
using tqmtest::WriteBytes;

DWORD Attributes(const std::string& path) { return GetFileAttributesA(path.c_str()); }

using Snapshot = std::map<std::string, std::string>;

class FileOperations : public testing::Test
{
protected:
    // src\a.txt, src\b.bak, src\sub\c.txt, dst\old.txt
    void SetUp() override
    {
        CreateDirectoryA(path("src").c_str(), nullptr);
        CreateDirectoryA(path("src\\sub").c_str(), nullptr);
        CreateDirectoryA(path("dst").c_str(), nullptr);
        ASSERT_TRUE(WriteBytes(path("src\\a.txt"), "alpha"));
        ASSERT_TRUE(WriteBytes(path("src\\b.bak"), "bravo"));
        ASSERT_TRUE(WriteBytes(path("src\\sub\\c.txt"), "charlie"));
        ASSERT_TRUE(WriteBytes(path("dst\\old.txt"), "old"));
    }

    std::string path(const std::string& relative) const { return m_root.file(relative); }
    // path() for calls that take a const char*; the string lives as long as the test.
    const char* p(const std::string& relative)
    {
        m_held.push_back(path(relative));
        return m_held.back().c_str();
    }
    Snapshot snapshot() const { return tqmtest::SnapshotTree(m_root.path()); }

    TempDir m_root;
    std::deque<std::string> m_held;
};

TEST_F(FileOperations, DeleteFilesPatternsAndFolders)
{
    EXPECT_TRUE(TQMDelete(p("src\\*.bak"), FALSE));
    EXPECT_FALSE(PathExists(path("src\\b.bak")));
    EXPECT_TRUE(TQMDelete(p("src"), FALSE));
    EXPECT_FALSE(PathExists(path("src")));
    EXPECT_EQ("old", ReadBytes(path("dst\\old.txt")));
}

// Nothing named, nothing there, relative, overlong, wildcard targets, no
// target, a failure in the shell: refused (or nothing to do) and the tree is
// as it was.
TEST_F(FileOperations, RefusalsAndFailuresLeaveEverythingAsItWas)
{
    const Snapshot before = snapshot();
    const std::string overlong = path("src\\") + std::string(300, 'x');

    EXPECT_TRUE(TQMDelete(p("missing.txt"), FALSE));  // nothing to delete
    EXPECT_TRUE(TQMDelete(nullptr, FALSE));
    TQMDelete(p("src\\*.none"), FALSE);  // goes to the shell, which finds nothing

    EXPECT_FALSE(TQMDelete(p("src\\sub\\..\\a.txt"), FALSE));  // names src\a.txt, but relatively
    EXPECT_FALSE(TQMCopy("..\\a.x", p("dst\\a.x")));
    EXPECT_FALSE(TQMMove(p("src\\.\\a.txt"), p("dst\\a.txt")));
    EXPECT_FALSE(TQMRename(p("src\\sub\\..\\a.txt"), p("dst\\old.txt")));
    EXPECT_FALSE(TQMCopy(overlong.c_str(), p("dst\\x")));
    EXPECT_FALSE(TQMCopy(p("src\\a.txt"), p("dst\\*.txt")));
    EXPECT_FALSE(TQMMove(p("src\\a.txt"), p("dst\\a?.txt")));
    // Without a target the shell would copy into the current folder.
    EXPECT_FALSE(TQMCopy(p("src\\a.txt"), nullptr));
    EXPECT_FALSE(TQMMove(p("src\\a.txt"), ""));

    EXPECT_FALSE(TQMMove(p("src\\missing.txt"), p("dst\\old.txt")));
    EXPECT_FALSE(TQMCopy(p("src\\a.txt"), p("src\\a.txt")));  // onto itself
    // Below a file: Wine's shell reports success without doing anything,
    // Windows' reports the failure. Either way nothing may change.
    TQMMove(p("src\\a.txt"), p("dst\\old.txt\\a.txt"));
    // The source passes the checks but cannot be read when the shell comes
    // to it (locked, as one about to vanish would be).
    HANDLE hLocked = CreateFileA(p("src\\a.txt"), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                 FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, hLocked);
    EXPECT_FALSE(TQMCopy(p("src\\a.txt"), p("dst\\old.txt")));
    CloseHandle(hLocked);
    EXPECT_EQ(before, snapshot());
}

TEST_F(FileOperations, CopyAndMove)
{
    EXPECT_TRUE(TQMCopy(p("src\\a.txt"), p("dst\\old.txt")));  // overwrites
    EXPECT_EQ("alpha", ReadBytes(path("dst\\old.txt")));
    EXPECT_TRUE(TQMCopy(p("src\\a.txt"), p("dst\\new\\deeper\\a.txt")));  // folders on the way are made
    EXPECT_EQ("alpha", ReadBytes(path("dst\\new\\deeper\\a.txt")));
    EXPECT_TRUE(TQMCopy(p("src\\sub"), p("dst\\sub")));
    EXPECT_EQ("charlie", ReadBytes(path("dst\\sub\\c.txt")));
    EXPECT_EQ("alpha", ReadBytes(path("src\\a.txt")));

    EXPECT_TRUE(TQMMove(p("src\\sub"), p("dst\\moved")));
    EXPECT_FALSE(PathExists(path("src\\sub")));
    EXPECT_EQ("charlie", ReadBytes(path("dst\\moved\\c.txt")));
}

TEST_F(FileOperations, Rename)
{
    EXPECT_TRUE(TQMRename(p("src\\a.txt"), p("src\\b.bak")));  // replaces an existing file
    EXPECT_FALSE(PathExists(path("src\\a.txt")));
    EXPECT_EQ("alpha", ReadBytes(path("src\\b.bak")));

    // Never deleted first: a folder of the new name, the file itself under a
    // change of case (Windows' shell renames, Wine's refuses) or under
    // another spelling.
    TQMRename(p("src\\b.bak"), p("src\\sub"));
    TQMRename(p("src\\b.bak"), p("src\\B.BAK"));
    TQMRename(p("src\\b.bak"), (m_root.path() + "/src//b.bak").c_str());
    EXPECT_EQ("alpha", ReadBytes(path("src\\b.bak")));
    EXPECT_EQ("charlie", ReadBytes(path("src\\sub\\c.txt")));

    // A rename that cannot happen keeps the existing target.
    EXPECT_FALSE(TQMRename(p("src\\missing.txt"), p("dst\\old.txt")));
    EXPECT_EQ("old", ReadBytes(path("dst\\old.txt")));
}

TEST_F(FileOperations, CopyDir)
{
    ASSERT_TRUE(SetFileAttributesA(p("src\\sub\\c.txt"), FILE_ATTRIBUTE_READONLY));
    EXPECT_TRUE(TQMCopyDir(p("src"), p("dst\\copy\\of\\src")));
    EXPECT_EQ("charlie", ReadBytes(path("dst\\copy\\of\\src\\sub\\c.txt")));

    ASSERT_TRUE(WriteBytes(path("dst\\a.txt"), "stale"));
    EXPECT_TRUE(TQMCopyDir(p("src\\"), p("dst")));  // into an existing folder, overwriting
    EXPECT_EQ("alpha", ReadBytes(path("dst\\a.txt")));
    EXPECT_EQ("old", ReadBytes(path("dst\\old.txt")));

    // A folder where a file's copy should go stops the copy.
    ASSERT_TRUE(CreateDirectoryA(p("dst\\again"), nullptr));
    ASSERT_TRUE(CreateDirectoryA(p("dst\\again\\a.txt"), nullptr));
    EXPECT_FALSE(TQMCopyDir(p("src"), p("dst\\again")));
}

TEST_F(FileOperations, CopyDirRefusals)
{
    const Snapshot before = snapshot();
    EXPECT_FALSE(TQMCopyDir(p("missing"), p("dst\\made")));  // makes no target
    EXPECT_FALSE(TQMCopyDir(p("src\\a.txt"), p("dst\\made")));
    EXPECT_FALSE(TQMCopyDir(p("src"), p("src\\sub\\inner")));  // into itself
    EXPECT_FALSE(TQMCopyDir(p("src"), p("SRC")));
    EXPECT_EQ(before, snapshot());
}

TEST_F(FileOperations, ReadOnly)
{
    EXPECT_TRUE(TQMSetReadOnly(p("src\\a.txt"), TRUE));
    EXPECT_TRUE(TQMIsReadOnly(p("src\\a.txt")));
    EXPECT_TRUE(TQMSetReadOnly(p("src\\a.txt"), FALSE));
    EXPECT_TRUE(TQMSetReadOnly(p("missing"), TRUE));  // nothing to do

    EXPECT_FALSE(TQMIsReadOnly(p("src")));
    EXPECT_TRUE(TQMSetDirReadOnly(p("src"), TRUE, FALSE));
    EXPECT_TRUE(TQMIsReadOnly(p("src\\a.txt")));
    EXPECT_FALSE(TQMIsReadOnly(p("src\\sub")));  // not recursive
    EXPECT_TRUE(TQMSetDirReadOnly(p("src"), FALSE, FALSE));

    // One read-only file deep down makes the folders above it read-only.
    EXPECT_TRUE(TQMSetDirReadOnly(p("src\\sub"), TRUE, TRUE));
    EXPECT_TRUE(TQMIsReadOnly(p("src")));
    EXPECT_FALSE(TQMIsReadOnly(p("src\\a.txt")));  // a plain file is only itself
    EXPECT_TRUE(TQMSetDirReadOnly(p("src"), FALSE, TRUE));
    EXPECT_FALSE(TQMIsReadOnly(p("src")));

    EXPECT_FALSE(TQMSetDirReadOnly(p("src\\a.txt"), TRUE, TRUE));  // not a folder
}

TEST_F(FileOperations, SetReadOnlyClearsTheArchiveAttributeOnlyOnAChange)
{
    const std::string file = path("src\\a.txt");
    // Wine keeps the archive attribute only where the file system stores DOS
    // attributes; elsewhere every file reports it, and there is nothing to see.
    ASSERT_TRUE(SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_NORMAL));
    if (Attributes(file) & FILE_ATTRIBUTE_ARCHIVE)
        GTEST_SKIP() << "the file system does not keep the archive attribute";
    ASSERT_TRUE(SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_ARCHIVE));
    EXPECT_TRUE(TQMSetReadOnly(file.c_str(), TRUE));
    EXPECT_EQ(DWORD(FILE_ATTRIBUTE_READONLY), Attributes(file) & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE));
    ASSERT_TRUE(SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE));
    EXPECT_TRUE(TQMSetReadOnly(file.c_str(), TRUE));
    EXPECT_TRUE(Attributes(file) & FILE_ATTRIBUTE_ARCHIVE);  // no change, nothing written
}

TEST_F(FileOperations, FileExists)
{
    EXPECT_TRUE(TQMFileExists(p("src\\a.txt")));
    EXPECT_TRUE(TQMFileExists(p("src\\")));
    EXPECT_FALSE(TQMFileExists(p("src\\*.txt")));
    EXPECT_FALSE(TQMFileExists(nullptr));
}

TEST(FileCompare, BlocksSizesAndWhatCannotBeRead)
{
    TempDir dir;
    const std::string one = dir.file("one"), two = dir.file("two");
    for (size_t size : {0u, 512u, 513u}) {
        std::string bytes(size, 'q');
        ASSERT_TRUE(WriteBytes(one, bytes) && WriteBytes(two, bytes));
        EXPECT_TRUE(TQMCompareFiles(one.c_str(), two.c_str())) << size;
        if (size) {
            bytes.back() = 'r';
            ASSERT_TRUE(WriteBytes(two, bytes));
            EXPECT_FALSE(TQMCompareFiles(one.c_str(), two.c_str())) << size;
        }
    }
    ASSERT_TRUE(WriteBytes(two, std::string(1025, 'q')));
    EXPECT_FALSE(TQMCompareFiles(one.c_str(), two.c_str()));
    EXPECT_FALSE(TQMCompareFiles(dir.path().c_str(), dir.path().c_str()));
    EXPECT_FALSE(TQMCompareFiles("CON", "CON"));  // a device is never read
}

TEST(WildcardCompare, Patterns)
{
    struct { const char* pattern; const char* name; bool match; } cases[] = {
        {"a*b?c", "AXXBYC", true}, {"*", "", true},          {"?", "", false},
        {"*.*", "noext", false},   {"a*a*a", "aa", false},   {"*ab", "aaab", true},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.match ? TRUE : FALSE, TQMWildcardCompare(c.pattern, c.name)) << c.pattern << " / " << c.name;
    if (GetACP() == 1252) {
        EXPECT_TRUE(TQMWildcardCompare("\xE9t*", "\xC9TUDE"));  // case in the code page
    }
}

}  // namespace

// Delete, rename, move and copy through the shell, folder copies, read-only
// state, comparison and wildcard matching - on real trees in a fresh folder.
#include "paths/FileOperations.h"

#include "support/FileUtil.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>

namespace {

using tqmtest::PathExists;
using tqmtest::ReadBytes;
using tqmtest::TempDir;
using tqmtest::WriteBytes;

// Every file and folder below a root with its attributes and bytes, to show
// that a refused or failed operation changed nothing.
using Snapshot = std::map<std::string, std::string>;

void snapshotInto(const std::string& dir, const std::string& prefix, Snapshot& snapshot)
{
    WIN32_FIND_DATAA entry;
    HANDLE hFind = FindFirstFileA((dir + "\\*").c_str(), &entry);
    if (hFind == INVALID_HANDLE_VALUE)
        return;
    do {
        const std::string name = entry.cFileName;
        if (name == "." || name == "..")
            continue;
        const std::string path = dir + "\\" + name;
        const bool isDir = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        const bool readOnly = (entry.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
        snapshot[prefix + name] = std::string(isDir ? "dir" : "file") + (readOnly ? " ro " : " rw ") +
                                  (isDir ? std::string() : ReadBytes(path));
        if (isDir)
            snapshotInto(path, prefix + name + "\\", snapshot);
    } while (FindNextFileA(hFind, &entry));
    FindClose(hFind);
}

Snapshot TakeSnapshot(const std::string& root)
{
    Snapshot snapshot;
    snapshotInto(root, "", snapshot);
    return snapshot;
}

DWORD Attributes(const std::string& path) { return GetFileAttributesA(path.c_str()); }

class FileOperations : public testing::Test
{
protected:
    // root\src\a.txt "alpha", root\src\b.bak, root\src\sub\c.txt, root\dst\old.txt
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
    Snapshot snapshot() const { return TakeSnapshot(m_root.path()); }

    TempDir m_root;
};

TEST_F(FileOperations, DeleteFilesFoldersAndPatterns)
{
    EXPECT_TRUE(TQMDelete(path("src\\a.txt").c_str(), FALSE));
    EXPECT_FALSE(PathExists(path("src\\a.txt")));

    EXPECT_TRUE(TQMDelete(path("src\\*.bak").c_str(), FALSE));
    EXPECT_FALSE(PathExists(path("src\\b.bak")));
    EXPECT_TRUE(PathExists(path("src\\sub\\c.txt")));

    EXPECT_TRUE(TQMDelete(path("src").c_str(), FALSE));
    EXPECT_FALSE(PathExists(path("src")));
    EXPECT_TRUE(PathExists(path("dst\\old.txt")));
}

TEST_F(FileOperations, DeleteOfNothing)
{
    const Snapshot before = snapshot();
    EXPECT_TRUE(TQMDelete(path("missing.txt").c_str(), FALSE));  // nothing to delete
    EXPECT_TRUE(TQMDelete("", FALSE));
    EXPECT_TRUE(TQMDelete(nullptr, FALSE));
    // A pattern that matches nothing still goes to the shell; whatever it
    // answers, nothing else goes.
    TQMDelete(path("src\\*.none").c_str(), FALSE);
    EXPECT_EQ(before, snapshot());
}

TEST_F(FileOperations, RelativeAndOverlongPathsAreRefusedWithoutTouchingTheDisk)
{
    const Snapshot before = snapshot();
    const std::string dotted = path("src\\sub\\..\\a.txt");  // names src\a.txt
    const std::string current = path("src\\.\\a.txt");
    const std::string overlong = path("src\\") + std::string(300, 'x');
    EXPECT_FALSE(TQMDelete(dotted.c_str(), FALSE));
    EXPECT_FALSE(TQMDelete(current.c_str(), FALSE));
    EXPECT_FALSE(TQMDelete((path("src\\sub\\..\\*.txt")).c_str(), FALSE));
    EXPECT_FALSE(TQMCopy(dotted.c_str(), path("dst\\a.txt").c_str()));
    EXPECT_FALSE(TQMCopy(path("src\\a.txt").c_str(), path("dst\\..\\a.txt").c_str()));
    EXPECT_FALSE(TQMCopy("..\\a.x", path("dst\\a.x").c_str()));
    EXPECT_FALSE(TQMMove(current.c_str(), path("dst\\a.txt").c_str()));
    EXPECT_FALSE(TQMRename(dotted.c_str(), path("dst\\old.txt").c_str()));
    EXPECT_FALSE(TQMRename(path("src\\a.txt").c_str(), path("src\\sub\\..\\b.bak").c_str()));
    EXPECT_FALSE(TQMCopy(overlong.c_str(), path("dst\\x").c_str()));
    EXPECT_FALSE(TQMCopy(path("src\\a.txt").c_str(), overlong.c_str()));
    EXPECT_FALSE(TQMCopy(path("src\\a.txt").c_str(), path("dst\\*.txt").c_str()));
    EXPECT_FALSE(TQMMove(path("src\\a.txt").c_str(), path("dst\\a?.txt").c_str()));
    EXPECT_FALSE(TQMCopy("", path("dst\\x").c_str()));
    EXPECT_FALSE(TQMCopy(nullptr, path("dst\\x").c_str()));
    EXPECT_EQ(before, snapshot());
}

TEST_F(FileOperations, CopyAndOverwrite)
{
    EXPECT_TRUE(TQMCopy(path("src\\a.txt").c_str(), path("dst\\old.txt").c_str()));
    EXPECT_EQ("alpha", ReadBytes(path("dst\\old.txt")));
    EXPECT_EQ("alpha", ReadBytes(path("src\\a.txt")));

    // Folders on the way are made.
    EXPECT_TRUE(TQMCopy(path("src\\a.txt").c_str(), path("dst\\new\\deeper\\a.txt").c_str()));
    EXPECT_EQ("alpha", ReadBytes(path("dst\\new\\deeper\\a.txt")));

    // A whole folder.
    EXPECT_TRUE(TQMCopy(path("src\\sub").c_str(), path("dst\\sub").c_str()));
    EXPECT_EQ("charlie", ReadBytes(path("dst\\sub\\c.txt")));
}

TEST_F(FileOperations, FailedCopyLeavesSourceAndTargetAsTheyWere)
{
    const Snapshot before = snapshot();
    // The source is missing: the existing target stays.
    EXPECT_FALSE(TQMCopy(path("src\\missing.txt").c_str(), path("dst\\old.txt").c_str()));
    // A file onto itself.
    EXPECT_FALSE(TQMCopy(path("src\\a.txt").c_str(), path("src\\a.txt").c_str()));
    // No target: the shell would copy into the current folder.
    EXPECT_FALSE(TQMCopy(path("src\\a.txt").c_str(), nullptr));
    EXPECT_FALSE(TQMCopy(path("src\\a.txt").c_str(), ""));
    EXPECT_FALSE(TQMMove(path("src\\a.txt").c_str(), nullptr));
    // A target below a file cannot be made. (Some shells answer success
    // here; what matters is that nothing changed.)
    TQMCopy(path("src\\a.txt").c_str(), path("dst\\old.txt\\a.txt").c_str());
    EXPECT_EQ(before, snapshot());
}

TEST_F(FileOperations, MoveFilesAndFolders)
{
    EXPECT_TRUE(TQMMove(path("src\\a.txt").c_str(), path("dst\\a.txt").c_str()));
    EXPECT_FALSE(PathExists(path("src\\a.txt")));
    EXPECT_EQ("alpha", ReadBytes(path("dst\\a.txt")));

    EXPECT_TRUE(TQMMove(path("src\\sub").c_str(), path("dst\\moved").c_str()));
    EXPECT_FALSE(PathExists(path("src\\sub")));
    EXPECT_EQ("charlie", ReadBytes(path("dst\\moved\\c.txt")));
}

TEST_F(FileOperations, FailedMoveLeavesSourceAndTargetAsTheyWere)
{
    const Snapshot before = snapshot();
    EXPECT_FALSE(TQMMove(path("src\\missing.txt").c_str(), path("dst\\old.txt").c_str()));
    EXPECT_FALSE(TQMMove(path("src\\a.txt").c_str(), path("dst\\..\\a.txt").c_str()));
    // Below a file: Wine's shell reports success without moving anything,
    // Windows' reports the failure; either way nothing may change.
    TQMMove(path("src\\a.txt").c_str(), path("dst\\old.txt\\a.txt").c_str());
    EXPECT_EQ(before, snapshot());
}

TEST_F(FileOperations, RenameReplacesAnExistingFile)
{
    EXPECT_TRUE(TQMRename(path("src\\a.txt").c_str(), path("src\\b.bak").c_str()));
    EXPECT_FALSE(PathExists(path("src\\a.txt")));
    EXPECT_EQ("alpha", ReadBytes(path("src\\b.bak")));
}

TEST_F(FileOperations, RenameNeverDeletesAFolderOrTheFileItself)
{
    // Onto an existing folder: the folder is not deleted first.
    TQMRename(path("src\\a.txt").c_str(), path("src\\sub").c_str());
    EXPECT_EQ("charlie", ReadBytes(path("src\\sub\\c.txt")));
    EXPECT_EQ("alpha", ReadBytes(path("src\\a.txt")));

    // A change of case only deletes nothing. (Windows' shell renames; Wine's
    // refuses because the name exists. Either way the file stays.)
    TQMRename(path("src\\a.txt").c_str(), path("src\\A.TXT").c_str());
    EXPECT_EQ("alpha", ReadBytes(path("src\\a.txt")));

    // Another spelling of the same name is not "an existing target".
    const std::string otherSpelling = m_root.path() + "/src//a.txt";
    TQMRename(path("src\\a.txt").c_str(), otherSpelling.c_str());
    EXPECT_EQ("alpha", ReadBytes(path("src\\a.txt")));
}

TEST_F(FileOperations, RenameThatCannotHappenKeepsTheTarget)
{
    const Snapshot before = snapshot();
    EXPECT_FALSE(TQMRename(path("src\\missing.txt").c_str(), path("dst\\old.txt").c_str()));
    EXPECT_FALSE(TQMRename(path("src\\a.txt").c_str(), ""));
    EXPECT_EQ(before, snapshot());
}

TEST_F(FileOperations, LongestPathsThatFit)
{
    // A source of 259 characters, the longest a file name can have.
    std::string dir = path("long");
    CreateDirectoryA(dir.c_str(), nullptr);
    while (dir.size() < 200) {
        dir += "\\" + std::string(std::min<size_t>(40, 200 - dir.size()), 'd');
        ASSERT_TRUE(CreateDirectoryA(dir.c_str(), nullptr)) << dir;
    }
    const std::string file = dir + "\\" + std::string(259 - dir.size() - 1, 'f');
    ASSERT_EQ(259u, file.size());
    ASSERT_TRUE(WriteBytes(file, "long"));
    EXPECT_TRUE(TQMCopy(file.c_str(), path("dst\\long.txt").c_str()));
    EXPECT_EQ("long", ReadBytes(path("dst\\long.txt")));
    EXPECT_TRUE(TQMDelete(file.c_str(), FALSE));
    EXPECT_FALSE(PathExists(file));

    // 260 and 300 characters name nothing that can exist.
    EXPECT_FALSE(TQMCopy((file + "x").c_str(), path("dst\\x").c_str()));
    EXPECT_TRUE(TQMDelete((file + std::string(41, 'x')).c_str(), FALSE));  // nothing to delete
}

TEST_F(FileOperations, CopyDirCopiesTheWholeTree)
{
    ASSERT_TRUE(SetFileAttributesA(path("src\\sub\\c.txt").c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_TRUE(TQMCopyDir(path("src").c_str(), path("dst\\copy\\of\\src").c_str()));
    EXPECT_EQ("alpha", ReadBytes(path("dst\\copy\\of\\src\\a.txt")));
    EXPECT_EQ("charlie", ReadBytes(path("dst\\copy\\of\\src\\sub\\c.txt")));

    // Into an existing folder, overwriting what is there.
    ASSERT_TRUE(WriteBytes(path("dst\\a.txt"), "stale"));
    EXPECT_TRUE(TQMCopyDir(path("src\\").c_str(), path("dst").c_str()));
    EXPECT_EQ("alpha", ReadBytes(path("dst\\a.txt")));
    EXPECT_EQ("old", ReadBytes(path("dst\\old.txt")));
}

TEST_F(FileOperations, CopyDirRefusals)
{
    const Snapshot before = snapshot();
    EXPECT_FALSE(TQMCopyDir(path("missing").c_str(), path("dst\\made").c_str()));
    EXPECT_FALSE(TQMCopyDir(path("src\\a.txt").c_str(), path("dst\\made").c_str()));
    EXPECT_FALSE(TQMCopyDir(path("src").c_str(), path("src\\sub\\inner").c_str()));
    EXPECT_FALSE(TQMCopyDir(path("src").c_str(), path("SRC").c_str()));
    EXPECT_FALSE(TQMCopyDir(nullptr, path("dst").c_str()));
    EXPECT_FALSE(TQMCopyDir(path("src").c_str(), ""));
    EXPECT_EQ(before, snapshot());
}

TEST_F(FileOperations, CopyDirStopsAtAFailure)
{
    // A folder where the copy of a file should go cannot be overwritten.
    ASSERT_TRUE(CreateDirectoryA(path("dst\\a.txt").c_str(), nullptr));
    EXPECT_FALSE(TQMCopyDir(path("src").c_str(), path("dst").c_str()));
    EXPECT_TRUE(Attributes(path("dst\\a.txt")) & FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_EQ("alpha", ReadBytes(path("src\\a.txt")));
}

TEST_F(FileOperations, SetReadOnly)
{
    const std::string file = path("src\\a.txt");
    EXPECT_TRUE(TQMSetReadOnly(file.c_str(), TRUE));
    EXPECT_TRUE(Attributes(file) & FILE_ATTRIBUTE_READONLY);
    EXPECT_TRUE(TQMIsReadOnly(file.c_str()));
    EXPECT_TRUE(TQMSetReadOnly(file.c_str(), TRUE));  // already so
    EXPECT_TRUE(TQMSetReadOnly(file.c_str(), FALSE));
    EXPECT_FALSE(Attributes(file) & FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(TQMIsReadOnly(file.c_str()));
    EXPECT_EQ("alpha", ReadBytes(file));

    // Folders too (Wine without DOS attributes in the file system accepts the
    // change but does not keep it on a folder).
    EXPECT_TRUE(TQMSetReadOnly(path("src\\sub").c_str(), TRUE));
    EXPECT_TRUE(TQMSetReadOnly(path("src\\sub").c_str(), FALSE));
    EXPECT_FALSE(Attributes(path("src\\sub")) & FILE_ATTRIBUTE_READONLY);

    EXPECT_TRUE(TQMSetReadOnly(path("missing").c_str(), TRUE));  // nothing to do
    EXPECT_TRUE(TQMSetReadOnly(nullptr, TRUE));
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
    EXPECT_EQ(static_cast<DWORD>(FILE_ATTRIBUTE_READONLY),
              Attributes(file) & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE));

    ASSERT_TRUE(SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE));
    EXPECT_TRUE(TQMSetReadOnly(file.c_str(), TRUE));
    EXPECT_TRUE(Attributes(file) & FILE_ATTRIBUTE_ARCHIVE);  // no change, nothing written
}

TEST_F(FileOperations, SetDirReadOnly)
{
    EXPECT_TRUE(TQMSetDirReadOnly(path("src").c_str(), TRUE, FALSE));
    EXPECT_TRUE(Attributes(path("src\\a.txt")) & FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(Attributes(path("src\\sub\\c.txt")) & FILE_ATTRIBUTE_READONLY);  // not recursive
    EXPECT_FALSE(Attributes(path("src")) & FILE_ATTRIBUTE_READONLY);              // never the folder itself

    EXPECT_TRUE(TQMSetDirReadOnly(path("src").c_str(), TRUE, TRUE));
    EXPECT_TRUE(Attributes(path("src\\sub\\c.txt")) & FILE_ATTRIBUTE_READONLY);

    EXPECT_TRUE(TQMSetDirReadOnly(path("src").c_str(), FALSE, TRUE));
    EXPECT_FALSE(TQMIsReadOnly(path("src").c_str()));

    EXPECT_FALSE(TQMSetDirReadOnly(path("src\\a.txt").c_str(), TRUE, TRUE));  // not a folder
    EXPECT_FALSE(TQMSetDirReadOnly(path("missing").c_str(), TRUE, TRUE));
    EXPECT_FALSE(TQMSetDirReadOnly(nullptr, TRUE, TRUE));
}

TEST_F(FileOperations, IsReadOnlyLooksIntoTheTree)
{
    EXPECT_FALSE(TQMIsReadOnly(path("src").c_str()));
    ASSERT_TRUE(SetFileAttributesA(path("src\\sub\\c.txt").c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_TRUE(TQMIsReadOnly(path("src").c_str()));
    EXPECT_TRUE(TQMIsReadOnly(path("src\\sub").c_str()));
    EXPECT_FALSE(TQMIsReadOnly(path("src\\a.txt").c_str()));  // a plain file is only itself
    EXPECT_FALSE(TQMIsReadOnly(path("dst").c_str()));
    EXPECT_FALSE(TQMIsReadOnly(path("missing").c_str()));
    EXPECT_FALSE(TQMIsReadOnly(nullptr));
}

TEST_F(FileOperations, FileExists)
{
    EXPECT_TRUE(TQMFileExists(path("src\\a.txt").c_str()));
    EXPECT_TRUE(TQMFileExists(path("src").c_str()));
    EXPECT_TRUE(TQMFileExists(path("src\\").c_str()));
    EXPECT_FALSE(TQMFileExists(path("src\\missing").c_str()));
    EXPECT_FALSE(TQMFileExists(path("src\\*.txt").c_str()));
    EXPECT_FALSE(TQMFileExists(""));
    EXPECT_FALSE(TQMFileExists(nullptr));
    EXPECT_FALSE(TQMFileExists((path("src\\") + std::string(300, 'x')).c_str()));
}

TEST(FileCompare, BlocksAndSizes)
{
    TempDir dir;
    auto bytes = [](size_t n, char last) {
        std::string s(n, 'q');
        if (n)
            s.back() = last;
        return s;
    };
    for (size_t size : {0u, 1u, 511u, 512u, 513u, 1024u, 5000u}) {
        ASSERT_TRUE(WriteBytes(dir.file("one"), bytes(size, 'a')));
        ASSERT_TRUE(WriteBytes(dir.file("two"), bytes(size, 'a')));
        EXPECT_TRUE(TQMCompareFiles(dir.file("one").c_str(), dir.file("two").c_str())) << size;
        if (size) {
            ASSERT_TRUE(WriteBytes(dir.file("two"), bytes(size, 'b')));
            EXPECT_FALSE(TQMCompareFiles(dir.file("one").c_str(), dir.file("two").c_str())) << size;
        }
    }
    ASSERT_TRUE(WriteBytes(dir.file("two"), bytes(5001, 'a')));
    EXPECT_FALSE(TQMCompareFiles(dir.file("one").c_str(), dir.file("two").c_str()));
    EXPECT_TRUE(TQMCompareFiles(dir.file("one").c_str(), dir.file("one").c_str()));
}

TEST(FileCompare, WhatCannotBeRead)
{
    TempDir dir;
    ASSERT_TRUE(WriteBytes(dir.file("one"), "x"));
    EXPECT_FALSE(TQMCompareFiles(dir.file("one").c_str(), dir.file("missing").c_str()));
    EXPECT_FALSE(TQMCompareFiles(dir.file("missing").c_str(), dir.file("missing").c_str()));
    EXPECT_FALSE(TQMCompareFiles(dir.path().c_str(), dir.path().c_str()));  // folders
    EXPECT_FALSE(TQMCompareFiles(nullptr, dir.file("one").c_str()));
    EXPECT_FALSE(TQMCompareFiles("CON", "CON"));  // a device is never read
    EXPECT_FALSE(TQMCompareFiles("NUL", "NUL"));
}

TEST(WildcardCompare, Patterns)
{
    struct
    {
        const char* pattern;
        const char* name;
        bool match;
    } cases[] = {
        {"a*b?c", "AXXBYC", true},
        {"a*b?c", "ab", false},
        {"*", "", true},
        {"**", "", true},
        {"", "", true},
        {"", "a", false},
        {"?", "", false},
        {"*.lin", "Library.LIN", true},
        {"*.lin", "Library.lin.bak", false},
        {"*.*", "noext", false},  // no DOS rule: *.* needs a dot
        {"a*a*a", "aaaaa", true},
        {"a*a*a", "aa", false},
        {"*ab", "aaab", true},
        {"*x*", "abc", false},
        {"lib?", "lib", false},
        {"LIB*", "library", true},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.match ? TRUE : FALSE, TQMWildcardCompare(c.pattern, c.name)) << c.pattern << " / " << c.name;
    if (GetACP() == 1252) {
        EXPECT_TRUE(TQMWildcardCompare("\xE9t*", "\xC9TUDE"));  // case in the code page
    }
    EXPECT_FALSE(TQMWildcardCompare(nullptr, "a"));
    EXPECT_FALSE(TQMWildcardCompare("a", nullptr));
}

TEST(RemovableDrive, FixedDrivesAreNot)
{
    char system[MAX_PATH] = "";
    GetSystemDirectoryA(system, MAX_PATH);
    EXPECT_FALSE(TQMIsOnRemovableDrive(system));
    EXPECT_FALSE(TQMIsOnRemovableDrive(nullptr));
    EXPECT_FALSE(TQMIsOnRemovableDrive(""));
}

}  // namespace

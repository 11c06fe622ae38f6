// LibraryTree - a folder of library files for one test, and the catalogue's
// lists read back in its terms.
#pragma once

#include "support/SuiteSettingsGuard.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <stdint.h>

#include <string>
#include <vector>

namespace tqmtest {

class LibraryTree
{
public:
    // Writes a file (folders on the way are made); returns its full path.
    std::string put(const std::string& relative, const std::string& content) const;
    std::string put(const std::string& relative, const std::vector<uint8_t>& bytes) const;
    // Makes a folder (and those above it); returns its full path.
    std::string folder(const std::string& relative) const;
    std::string path(const std::string& relative) const { return m_dir.file(relative); }
    const std::string& root() const { return m_dir.path(); }
    // A full path below the tree made relative to it; others unchanged.
    std::string relative(const std::string& path) const;

private:
    tqmtest::TempDir m_dir;
};

// The strings of a library list block, which is freed.
std::vector<std::string> TakeBlock(HGLOBAL block);

struct FileSet
{
    std::vector<std::string> files;     // relative to the tree
    std::vector<std::string> messages;  // with the tree's folder left out of paths ("<>\...")
    bool nullFiles;                     // the call returned NULL
};

// TQMGetLibraryFiles on the tree's file.
FileSet FileSetOf(const LibraryTree& tree, const std::string& description);

// A test with an installation of its own: the suite's settings guarded, and
// the libraries and projects directories in the tree ("Libs", "Projects").
class InstallationTest : public testing::Test
{
protected:
    InstallationTest();
    ~InstallationTest() override;

    // Writes the user's options file with these preferred languages (NULL:
    // not set); the file is put back as it was when the test ends.
    void setLanguages(const char* libLanguage, const char* appLanguage);
    // A library description below the libraries directory.
    std::string library(const std::string& relative, const std::string& content) const
    {
        return tree.put("Libs\\" + relative, content);
    }
    // The strings of a block with the tree's folder shown as "<>".
    std::vector<std::string> inTree(HGLOBAL block) const;

    tqmtest::SuiteSettingsGuard guard;
    LibraryTree tree;

private:
    bool m_optionsSaved = false;
    bool m_optionsExisted = false;
    std::string m_options;
};

}  // namespace tqmtest

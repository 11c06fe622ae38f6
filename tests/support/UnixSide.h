// FolderLink, UncShare - real symbolic links and network paths for tests,
// made on the Unix side of Wine.
//
// Wine shows a Unix symbolic link to a folder as a folder with
// FILE_ATTRIBUTE_REPARSE_POINT, the way Windows shows a junction or a folder
// link; its CreateSymbolicLinkW makes nothing. A link is therefore made by
// the system's own ln, which Wine starts as a Unix process, and removed by
// rm. A path "\\server\share\..." leads to the prefix's folder
// "dosdevices/unc/server/share". Tests that need either skip when they are
// not available (outside Wine, or without ln).
#pragma once

#include <string>
#include <vector>

namespace tqmtest {

// The Unix path of a Windows path (the last component need not exist); empty
// outside Wine.
std::string UnixPathOf(const std::string& windowsPath);

// A symbolic link at linkPath (its folder must exist) to the folder target,
// removed again (the link only, never what it leads to) when it goes.
class FolderLink
{
public:
    FolderLink(const std::string& linkPath, const std::string& target);
    ~FolderLink();
    FolderLink(const FolderLink&) = delete;
    FolderLink& operator=(const FolderLink&) = delete;

    // False when the link could not be made; why() says why.
    bool made() const { return m_made; }
    const std::string& why() const { return m_why; }

private:
    std::string m_linkPath;
    std::string m_unixLink;
    bool m_made = false;
    std::string m_why;
};

// A fresh share "\\tqmtest\<unique name>" (a folder of the prefix's "unc"
// tree), removed with its contents when it goes.
class UncShare
{
public:
    UncShare();
    ~UncShare();
    UncShare(const UncShare&) = delete;
    UncShare& operator=(const UncShare&) = delete;

    bool made() const { return m_made; }
    // "\\tqmtest\share", without a trailing backslash.
    const std::string& path() const { return m_path; }
    std::string file(const std::string& relative) const { return m_path + "\\" + relative; }

private:
    std::string m_path;
    bool m_made = false;
};

}  // namespace tqmtest

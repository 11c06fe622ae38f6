// IsFolder, IsLinkedFolder, VisitedFolders - what a walk down a folder tree
// needs to enter linked folders without going round in circles. The
// catalogue's walks use it, and so does tqm's doctor.
#pragma once

#include <windows.h>

#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace tqm {

inline bool IsFolder(const WIN32_FIND_DATAA& data) { return (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

// A folder the search found as a link: a junction, a folder link, or under
// Wine a Unix symbolic link.
inline bool IsLinkedFolder(const WIN32_FIND_DATAA& data)
{
    return IsFolder(data) && (data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

// The folders a walk down a tree has entered, known by what they are (volume
// and file index), not by their paths. Linked folders are entered like any
// other, and a folder met again - through a link back up the tree, or a
// second link to it - is not: the walk ends and lists each folder once. Until
// the walk meets its first link no folder can be met twice, so identities
// are read only from then on (for the folders entered before, too): a tree
// without links costs nothing more.
class VisitedFolders
{
public:
    // True when the walk is to enter folder, found as a link or not: the first
    // time it meets that folder. A link whose folder cannot be told is not
    // entered; any other folder is.
    bool Enter(const std::string& folder, bool isLink);

private:
    using Identity = std::tuple<DWORD, DWORD, DWORD>;  // volume serial, file index high and low
    static bool identityOf(const std::string& folder, Identity& identity);

    bool m_linksMet = false;
    std::vector<std::string> m_enteredBeforeLinks;
    std::set<Identity> m_identities;
};

}  // namespace tqm

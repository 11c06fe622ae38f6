// IsExistingFile, ForEachMatch, VisitedFolders, CatalogueFile,
// FullPathInFolder - the catalogue's file-system edge: existence tests,
// folder searches and walks, reads of files of any size, and names made full
// paths.
#pragma once

#include <windows.h>

#include "framework/Handles.h"
#include "libcatalog/logic/ObjectFile.h"

#include <stdint.h>
#include <string.h>

#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace tqm {

// True when path names an existing file; a folder is not one.
bool IsExistingFile(const char* path);

// Calls found(data) for every match of the search pattern ("C:\Libs\*.lin"),
// "." and ".." left out; the search ends early when found returns false.
// Returns false when found stopped it.
template <typename Found>
bool ForEachMatch(const std::string& pattern, Found found)
{
    WIN32_FIND_DATAA data;
    UniqueFind search(FindFirstFileA(pattern.c_str(), &data));
    if (!search)
        return true;
    do {
        if (!strcmp(data.cFileName, ".") || !strcmp(data.cFileName, ".."))
            continue;
        if (!found(static_cast<const WIN32_FIND_DATAA&>(data)))
            return false;
    } while (FindNextFileA(search.get(), &data));
    return true;
}

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

// A file opened for reading at any offset, in blocks: the object-file reader
// and the source scanner read files of any size with a small memory.
class CatalogueFile : public ObjectFileSource
{
public:
    // False when the file cannot be opened (missing, a folder, or locked).
    bool Open(const char* path);
    uint64_t Size() override { return m_size; }
    bool Read(uint64_t offset, uint8_t* buffer, size_t size, size_t* got) override;

private:
    UniqueFile m_file;
    uint64_t m_size = 0;
};

// name, a path name read from a library's files, as a full path against
// folder (the folder of the file that names it): path tags expanded, and
// folders on network paths ("\\server\share\...") resolved as well as those
// on drives (logic/NetworkPaths.h).
std::string FullPathInFolder(const std::string& folder, const std::string& name);

}  // namespace tqm

// IsExistingFile, ForEachMatch, CatalogueFile, FullPathInFolder - the
// catalogue's file-system edge: existence tests, folder searches, reads of
// files of any size, and names made full paths. The walks down folder trees
// keep their visited folders with VisitedFolders.
#pragma once

#include <windows.h>

#include "framework/Handles.h"
#include "libcatalog/VisitedFolders.h"
#include "libcatalog/logic/ObjectFile.h"

#include <stdint.h>
#include <string.h>

#include <string>

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

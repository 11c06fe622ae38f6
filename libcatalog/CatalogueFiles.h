// IsExistingFile, ForEachMatch, ReadWholeFile - the catalogue's file-system
// edge: existence tests, folder searches and whole-file reads.
#pragma once

#include <windows.h>

#include "framework/Handles.h"

#include <stdint.h>
#include <string.h>

#include <string>
#include <vector>

namespace tqm {

// True when path names an existing file; a folder is not one.
bool IsExistingFile(const char* path);

// The largest file the catalogue reads whole (object and source files).
constexpr uint64_t kLargestReadFile = 64u << 20;

enum class FileRead
{
    Ok,
    CannotOpen,  // missing, a folder, or locked
    ReadError    // opened, but reading failed or the file is beyond kLargestReadFile
};

FileRead ReadWholeFile(const char* path, std::vector<uint8_t>& bytes);

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

}  // namespace tqm

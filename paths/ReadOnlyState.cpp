// TQMSetReadOnly, TQMSetDirReadOnly, TQMIsReadOnly - the read-only state of
// files and whole trees.
#include "paths/FileOperations.h"

#include "framework/CString.h"
#include "framework/Handles.h"

#include <string.h>

namespace {

bool isDotEntry(const char* name) { return !strcmp(name, ".") || !strcmp(name, ".."); }

CString joined(const char* dir, const char* name)
{
    CString path;
    path.Format("%s\\%s", dir, name);
    return path;
}

// Calls visit(path, findData) for every entry of dir but "." and "..";
// visit returns false to stop. False when dir cannot be listed.
template <typename Visit>
bool forEachEntry(const char* dir, Visit visit)
{
    WIN32_FIND_DATAA entry;
    tqm::UniqueFind find(FindFirstFileA(joined(dir, "*.*"), &entry));
    if (!find)
        return GetLastError() == ERROR_FILE_NOT_FOUND;
    do {
        if (!isDotEntry(entry.cFileName) && !visit(joined(dir, entry.cFileName), entry))
            break;
    } while (FindNextFileA(find.get(), &entry));
    return true;
}

bool holdsReadOnlyFile(const char* dir)
{
    bool found = false;
    forEachEntry(dir, [&](const CString& path, const WIN32_FIND_DATAA& entry) {
        found = (entry.dwFileAttributes & FILE_ATTRIBUTE_READONLY) ||
                ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) && holdsReadOnlyFile(path));
        return !found;  // depth-first; the first hit ends the search
    });
    return found;
}

}  // namespace

BOOL WINAPI TQMSetReadOnly(const char* path, BOOL readOnly)
{
    if (!path)
        return TRUE;
    DWORD attributes = GetFileAttributesA(path);
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return TRUE;  // nothing to change
    const bool isReadOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (isReadOnly == (readOnly != FALSE))
        return TRUE;  // the archive attribute is left alone too
    attributes = readOnly ? (attributes | FILE_ATTRIBUTE_READONLY) : (attributes & ~FILE_ATTRIBUTE_READONLY);
    attributes &= ~FILE_ATTRIBUTE_ARCHIVE;
    // Only the attributes are written; the file's times stay as they were.
    return SetFileAttributesA(path, attributes ? attributes : FILE_ATTRIBUTE_NORMAL) ? TRUE : FALSE;
}

BOOL WINAPI TQMSetDirReadOnly(const char* dir, BOOL readOnly, BOOL recursive)
{
    if (!dir)
        return FALSE;
    const DWORD attributes = GetFileAttributesA(dir);
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_DIRECTORY))
        return FALSE;
    // The walk visits every entry even after a failure, so a tree is made as
    // writable (or as protected) as it can be; the result reports the failure.
    bool allSet = true;
    const bool listed = forEachEntry(dir, [&](const CString& path, const WIN32_FIND_DATAA& entry) {
        if (!TQMSetReadOnly(path, readOnly))
            allSet = false;
        if (recursive && (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) &&
            !TQMSetDirReadOnly(path, readOnly, recursive))
            allSet = false;
        return true;
    });
    return listed && allSet ? TRUE : FALSE;
}

BOOL WINAPI TQMIsReadOnly(const char* path)
{
    if (!path)
        return FALSE;
    const DWORD attributes = GetFileAttributesA(path);
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return FALSE;
    if (attributes & FILE_ATTRIBUTE_READONLY)
        return TRUE;
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) && holdsReadOnlyFile(path) ? TRUE : FALSE;
}

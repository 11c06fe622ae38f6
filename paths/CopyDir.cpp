// TQMCopyDir - a folder's contents copied file by file.
#include "paths/FileOperations.h"

#include "framework/CString.h"
#include "framework/Handles.h"
#include "paths/PathNames.h"
#include "paths/logic/PathText.h"

#include <string.h>

namespace {

// True if candidate is dir itself or lies anywhere below it; both are full
// paths, compared without regard to case by the system's rules.
bool isSameOrBelow(const char* dir, const char* candidate)
{
    CString base = tqm::WithoutTrailingBackslashes(dir);
    CString other = tqm::WithoutTrailingBackslashes(candidate);
    if (base.IsEmpty() || other.GetLength() < base.GetLength())
        return false;
    if (other.Left(base.GetLength()).CompareNoCase(base) != 0)
        return false;
    return other.GetLength() == base.GetLength() || other[base.GetLength()] == '\\';
}

bool isDirectory(const char* path)
{
    const DWORD attributes = GetFileAttributesA(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool isDotEntry(const char* name) { return !strcmp(name, ".") || !strcmp(name, ".."); }

CString fullPath(const char* path)
{
    char full[MAX_PATH] = "";
    const DWORD length = GetFullPathNameA(path, MAX_PATH, full, nullptr);
    return (length == 0 || length >= MAX_PATH) ? CString(path) : CString(full);
}

CString joined(const char* dir, const char* name)
{
    CString path;
    path.Format("%s\\%s", dir, name);
    return path;
}

BOOL copyTree(const char* fromDir, const char* toDir)
{
    if (!TQMFileExists(toDir) && !TQMCreateDir(toDir))
        return FALSE;
    WIN32_FIND_DATAA entry;
    tqm::UniqueFind find(FindFirstFileA(joined(fromDir, "*.*"), &entry));
    if (!find)
        return GetLastError() == ERROR_FILE_NOT_FOUND ? TRUE : FALSE;
    do {
        if (isDotEntry(entry.cFileName))
            continue;
        const CString from = joined(fromDir, entry.cFileName);
        const CString to = joined(toDir, entry.cFileName);
        const BOOL copied = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) ? copyTree(from, to)
                                                                               : CopyFileA(from, to, FALSE);
        if (!copied)
            return FALSE;
    } while (FindNextFileA(find.get(), &entry));
    return TRUE;
}

}  // namespace

BOOL WINAPI TQMCopyDir(const char* fromDir, const char* toDir)
{
    // A missing source makes no target folder, and a target inside the
    // source would be copied into itself until the path grew too long.
    if (!fromDir || !*fromDir || !toDir || !*toDir || !isDirectory(fromDir))
        return FALSE;
    if (isSameOrBelow(fullPath(fromDir), fullPath(toDir)))
        return FALSE;
    return copyTree(fromDir, toDir);
}

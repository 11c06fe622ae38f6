// The shell's file operation behind TQMDelete, TQMRename, TQMMove and TQMCopy.
#include "paths/FileOperations.h"

#include "framework/CString.h"

#include "paths/Versions.h"
#include "paths/logic/VersionCode.h"

#include <shellapi.h>
#include <stdio.h>
#include <string.h>

namespace {

// The process's one operation record and its name lists: room for MAX_PATH
// characters and the double NUL that ends a list. Shared by every caller,
// which is why the four functions must stay on one thread.
SHFILEOPSTRUCTA g_operation;
char g_source[MAX_PATH + 2];
char g_target[MAX_PATH + 2];

// Silent, no confirmations, no error boxes; folders on the way are made.
const FILEOP_FLAGS kQuietFlags = FOF_SILENT | FOF_NOCONFIRMATION | FOF_NOCONFIRMMKDIR | FOF_NOERRORUI;

// The shell keeps files open for a moment after the call returns.
const DWORD kSettleMilliseconds = 100;

bool isEmpty(const char* path) { return !path || !*path; }

bool hasWildcard(const char* path) { return strpbrk(path, "*?") != nullptr; }

// ".." and ".\" anywhere: relative paths are refused outright, since the
// shell would resolve them against whatever the current folder is.
bool hasRelativePart(const char* path) { return strstr(path, "..") || strstr(path, ".\\"); }

bool exists(const char* path) { return GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES; }

// Everything that refuses an operation before the disk is touched. A name
// longer than the record's buffers is refused rather than cut, since the cut
// name could be another file.
bool acceptable(const char* source, const char* target)
{
    if (isEmpty(source) || strlen(source) > MAX_PATH || hasRelativePart(source))
        return false;
    if (!isEmpty(target) && (strlen(target) > MAX_PATH || hasWildcard(target) || hasRelativePart(target)))
        return false;
    return hasWildcard(source) || exists(source);
}

BOOL runShellOperation(UINT operation, const char* source, const char* target, bool allowUndo)
{
    if (!acceptable(source, target))
        return FALSE;
    ZeroMemory(&g_operation, sizeof(g_operation));
    ZeroMemory(g_source, sizeof(g_source));
    ZeroMemory(g_target, sizeof(g_target));
    memcpy(g_source, source, strlen(source));
    if (!isEmpty(target))
        memcpy(g_target, target, strlen(target));

    g_operation.hwnd = nullptr;
    g_operation.wFunc = operation;
    g_operation.pFrom = g_source;
    g_operation.pTo = isEmpty(target) ? nullptr : g_target;
    g_operation.fFlags = static_cast<FILEOP_FLAGS>(kQuietFlags | (allowUndo ? FOF_ALLOWUNDO : 0));

    int result = -1;
    try {
        result = SHFileOperationA(&g_operation);
    } catch (...) {
        // A shell extension that throws fails the operation, nothing more.
        result = -1;
    }
    Sleep(kSettleMilliseconds);
    return result == 0 ? TRUE : FALSE;
}

// The path as the file system knows it: absolute, separators and short
// names resolved. Empty when it cannot be resolved.
CString canonicalPath(const char* path)
{
    char full[MAX_PATH] = "";
    DWORD length = GetFullPathNameA(path, MAX_PATH, full, nullptr);
    if (length == 0 || length >= MAX_PATH)
        return CString();
    char longForm[MAX_PATH] = "";
    length = GetLongPathNameA(full, longForm, MAX_PATH);
    return (length == 0 || length >= MAX_PATH) ? CString(full) : CString(longForm);
}

// Two spellings of one path (C:\a\x.txt and C:/a//x.txt, or a short name):
// deleting "the target" would delete the file being renamed.
bool sameLocation(const char* a, const char* b)
{
    const CString first = canonicalPath(a);
    return !first.IsEmpty() && first.CompareNoCase(canonicalPath(b)) == 0;
}

}  // namespace

BOOL WINAPI TQMDelete(const char* path, BOOL toRecycleBin)
{
    if (isEmpty(path) || (!hasWildcard(path) && !exists(path)))
        return TRUE;  // nothing to delete
    return runShellOperation(FO_DELETE, path, nullptr, toRecycleBin != FALSE);
}

BOOL WINAPI TQMRename(const char* oldPath, const char* newPath)
{
    // What the shell operation would refuse is refused before the existing
    // target is deleted, so a rename that cannot happen loses nothing.
    if (isEmpty(newPath) || !acceptable(oldPath, newPath))
        return FALSE;
    // A rename replaces an existing file (never a folder). A change of case
    // only, or another spelling of the same name, deletes nothing.
    if (lstrcmpiA(oldPath, newPath) != 0 && !sameLocation(oldPath, newPath)) {
        const DWORD attributes = GetFileAttributesA(newPath);
        if (attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY))
            DeleteFileA(newPath);
    }
    // The Windows 95 shell renamed unreliably; the runtime's rename serves there.
    if (TQMGetWindowsVersion() == tqm::kWindows95)
        return rename(oldPath, newPath) == 0 ? TRUE : FALSE;
    return runShellOperation(FO_RENAME, oldPath, newPath, false);
}

// A move or copy without a target is refused: the shell would take the
// current folder, which the caller never named.
BOOL WINAPI TQMMove(const char* from, const char* to)
{
    return isEmpty(to) ? FALSE : runShellOperation(FO_MOVE, from, to, false);
}

BOOL WINAPI TQMCopy(const char* from, const char* to)
{
    return isEmpty(to) ? FALSE : runShellOperation(FO_COPY, from, to, false);
}

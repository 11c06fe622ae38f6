#include "paths/PathNames.h"

#include "framework/Handles.h"
#include "paths/PathTagExpansion.h"
#include "paths/logic/PathNameRules.h"
#include "paths/logic/PathText.h"

#include <shlwapi.h>
#include <string.h>

namespace {

bool startsWithTag(const char* path) { return path && path[0] == '<' && path[1] == '$'; }

bool pathExists(const char* path) { return GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES; }

bool anyFileMatches(const CString& pattern)
{
    WIN32_FIND_DATAA data;
    tqm::UniqueFind find(FindFirstFileA(pattern, &data));
    return find.valid();
}

// Makes sure every folder above path exists. A parent shorter than three
// characters is a drive (C:) or nothing, and is taken as there.
bool ensureAncestors(const CString& path)
{
    const CString parent = tqm::ParentDir(path);
    if (parent.GetLength() < 3)
        return true;
    if (!ensureAncestors(parent))
        return false;
    if (pathExists(parent))
        return true;
    return CreateDirectoryA(parent, nullptr) != FALSE;
}

}  // namespace

int WINAPI TQMIsValidPathName(const char* path, int allowWildcards)
{
    return tqm::CheckPathName(path, allowWildcards != 0).valid() ? 1 : 0;
}

BOOL WINAPI TQMIsValidFileName(const char* name, BOOL allowExtension)
{
    if (!TQMIsValidPathName(name, FALSE) || TQMHasDir(name))
        return FALSE;
    return allowExtension || strchr(name, '.') == nullptr;
}

BOOL WINAPI TQMHasDir(const char* name) { return tqm::HasDirPart(name) ? TRUE : FALSE; }

CString WINAPI TQMGetParentDir(const char* path) { return tqm::ParentDir(path); }

void WINAPI TQMGetFullPath(CString& result, const char* baseDir, const char* path)
{
    result = startsWithTag(path) ? tqm::ExpandPathTags(path) : tqm::ResolveFullPath(baseDir, path);
}

CString WINAPI TQMGetFullPath(const char* baseDir, const char* path)
{
    CString result;
    TQMGetFullPath(result, baseDir, path);
    return result;
}

void WINAPI TQMGetRelativePath(CString& result, const char* baseDir, const char* path)
{
    const CString full = TQMGetFullPath(baseDir, path);
    // The shell's helper works in MAX_PATH buffers; longer paths are not
    // handed to it and come back full, like any path it cannot relate.
    if (!baseDir || strlen(baseDir) >= MAX_PATH || full.GetLength() >= MAX_PATH) {
        result = full;
        return;
    }
    char relative[MAX_PATH] = "";
    if (!PathRelativePathToA(relative, baseDir, FILE_ATTRIBUTE_DIRECTORY, full, 0)) {
        result = full;
        return;
    }
    result = tqm::FinishRelativePath(full, relative);
}

CString WINAPI TQMGetRelativePath(const char* baseDir, const char* path)
{
    CString result;
    TQMGetRelativePath(result, baseDir, path);
    return result;
}

CString WINAPI TQMChangeFileExt(const char* path, const char* ext) { return tqm::ChangeFileExt(path, ext); }

CString WINAPI TQMGetFileName(const char* path) { return tqm::FileNameOf(path); }

void WINAPI TQMStripTrailingBackslash(char* path)
{
    if (!path)
        return;
    size_t length = strlen(path);
    while (length > 0 && path[length - 1] == '\\')
        path[--length] = '\0';
}

void WINAPI TQMStripTrailingBackslash(CString& path) { path = tqm::WithoutTrailingBackslashes(path); }

CString WINAPI TQMGetNextUntitledFileName(const char* dir, const char* baseName)
{
    if (!dir)
        dir = "";
    if (!baseName)
        baseName = "";
    // No upper limit: every number needs a file of its own, so the search
    // ends at the first gap.
    for (unsigned n = 1;; ++n) {
        CString pattern;
        pattern.Format("%s\\%s%u.*", dir, baseName, n);
        if (!anyFileMatches(pattern)) {
            CString name;
            name.Format("%s%u", baseName, n);
            return name;
        }
    }
}

BOOL WINAPI TQMCreateDir(const char* path)
{
    if (!path || !*path)
        return FALSE;
    if (!ensureAncestors(path))
        return FALSE;
    // A folder that already exists gives FALSE: callers take TRUE to mean
    // "made now".
    return CreateDirectoryA(path, nullptr) != FALSE;
}

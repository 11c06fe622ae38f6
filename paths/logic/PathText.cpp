#include "paths/logic/PathText.h"

#include "paths/logic/PathNameRules.h"

#include <string.h>

namespace tqm {
namespace {

bool startsWith(const char* text, const char* prefix) { return strncmp(text, prefix, strlen(prefix)) == 0; }

}  // namespace

CString WithoutTrailingBackslashes(const char* path)
{
    CString result(path);
    int length = result.GetLength();
    while (length > 0 && result[length - 1] == '\\')
        --length;
    result.Truncate(length);
    return result;
}

bool IsBareDrive(const char* path) { return path && strlen(path) == 2 && path[1] == ':'; }

bool HasDirPart(const char* name)
{
    if (!name)
        return false;
    return name[0] == '.' || strpbrk(name, "\\/:") != nullptr;
}

CString ParentDir(const char* path)
{
    CString trimmed = WithoutTrailingBackslashes(path);
    if (IsBareDrive(trimmed))
        return trimmed;
    int lastBackslash = trimmed.ReverseFind('\\');
    return lastBackslash < 0 ? CString() : trimmed.Left(lastBackslash);
}

const char* SkipLeadingDots(const char* path, int* pLevelsUp)
{
    *pLevelsUp = 0;
    for (;;) {
        if (startsWith(path, ".\\")) {
            path += 2;
        } else if (startsWith(path, "..\\")) {
            path += 3;
            ++*pLevelsUp;
        } else {
            return path;
        }
    }
}

CString ResolveFullPath(const char* baseDir, const char* path)
{
    if (!path || !*path || !baseDir || !*baseDir || baseDir[1] != ':')
        return CString(path);
    CString base = WithoutTrailingBackslashes(baseDir);
    if (path[0] && path[1] == ':')
        return CString(path);
    // A rooted path takes the base's drive. A UNC path gets it too
    // (C:\\srv\x); callers have always received it that way.
    if (path[0] == '\\')
        return base.Left(2) + path;

    int nLevelsUp = 0;
    const char* rest = SkipLeadingDots(path, &nLevelsUp);
    while (nLevelsUp-- > 0)
        base = ParentDir(base);
    CString full;
    full.Format("%s\\%s", static_cast<const char*>(base), rest);
    return full;
}

CString FinishRelativePath(const char* full, const char* relative)
{
    CString rel(relative);
    // Deliberately asymmetric: a file directly in the base comes back as its
    // bare name, a deeper one keeps its ".\" (.\sub\a.x).
    if (SplitPath(rel).dir == ".\\")
        return rel.Mid(2);
    if (!startsWith(rel, "..\\..\\..\\"))
        return rel;
    CString up = ParentDir(full);
    for (const char* p = rel; startsWith(p, "..\\"); p += 3)
        up = ParentDir(up);
    if (IsBareDrive(up))
        return CString(full).Mid(2);
    return rel;
}

CString ChangeFileExt(const char* path, const char* ext)
{
    CString result(path ? path : "", path ? static_cast<int>(strnlen(path, MAX_PATH)) : 0);
    if (!ext)
        ext = "";
    for (int i = result.GetLength() - 1; i >= 0; --i) {
        const char ch = result[i];
        if (ch == '\\' || ch == ':' || i == 0)
            break;
        if (ch == '.') {
            // An empty ext takes the extension off, dot and all. Otherwise ext
            // replaces what follows the dot from its second character on: an
            // ext without its dot loses its first character, as it always has.
            result.Truncate(*ext ? i + 1 : i);
            if (*ext)
                result += ext + 1;
            return result;
        }
    }
    result += ext;
    return result;
}

CString FileNameOf(const char* path)
{
    PathParts parts = SplitPath(path);
    return parts.name + parts.ext;
}

}  // namespace tqm

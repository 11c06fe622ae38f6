#include "paths/logic/PathTagRules.h"

#include <string.h>

namespace tqm {

const PathTag kSubstTags[9] = {
    {"<$ProgramsDir>", PathTagDir::Programs, ""},
    {"<$TmplDir>", PathTagDir::Templates, ""},
    {"<$LibsDir>", PathTagDir::Libs, ""},
    {"<$ProjectsDir>", PathTagDir::Projects, ""},
    {"<$UserDir>", PathTagDir::User, ""},
    {"<$LocalDir>", PathTagDir::Local, ""},
    {"<$AppsDir>", PathTagDir::Apps, ""},
    {"<$AppsDirParent>", PathTagDir::AppsParent, ""},
    {"<$DocsDir>", PathTagDir::Docs, ""},
};

const PathTag kUnSubstTags[13] = {
    {"<$ProgramsDir>", PathTagDir::Programs, ""},
    {"<$AppsDirParent>", PathTagDir::AppsParent, ""},
    {"<$AppsDir>", PathTagDir::Apps, ""},
    {"<$LocalDir>", PathTagDir::Local, ""},
    {"<$ProjectsDir>", PathTagDir::Projects, ""},
    {"<$LibsDir>", PathTagDir::Libs, ""},
    {"<$TmplDir>", PathTagDir::Templates, ""},
    {"<$UserDir>", PathTagDir::User, ""},
    {"<$DocsDir>", PathTagDir::Docs, ""},
    {"<$StdLibDir>", PathTagDir::Libs, "\\Std"},
    {"<$AppLibDir>", PathTagDir::Libs, "\\App"},
    {"<$UsrLibDir>", PathTagDir::Libs, "\\Usr"},
    {"<$HpLibDir>", PathTagDir::Libs, "\\HP"},
};

const char kProjDirTag[] = "<$ProjDir>";
const char kDevDirTag[] = "<$DevDir>";
const char kCpuDirTag[] = "<$CpuDir>";

namespace {

// True if text begins with prefix, ASCII case ignored; an empty prefix
// begins every text.
bool beginsWith(const char* text, const char* prefix)
{
    auto upper = [](unsigned char c) { return c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c; };
    for (; *prefix; ++text, ++prefix) {
        if (upper(static_cast<unsigned char>(*text)) != upper(static_cast<unsigned char>(*prefix)))
            return false;
    }
    return true;
}

// replacement followed by what follows the first `matched` characters of path.
CString replaceStart(const char* replacement, const char* path, size_t matched)
{
    return CString(replacement) + (path + matched);
}

}  // namespace

CString SubstPathTags(const char* path, const PathTagDirLookup& lookup)
{
    if (!path)
        path = "";
    for (const PathTag& tag : kSubstTags) {
        const CString dir = lookup(tag.dir);
        if (!dir.IsEmpty() && beginsWith(path, dir))
            return replaceStart(tag.name, path, dir.GetLength());
    }
    return CString(path);
}

CString UnSubstPathTags(const char* path, const PathTagDirLookup& lookup)
{
    if (!path || path[0] != '<')
        return CString(path);
    for (const PathTag& tag : kUnSubstTags) {
        if (beginsWith(path, tag.name))
            return replaceStart(lookup(tag.dir) + tag.below, path, strlen(tag.name));
    }
    return CString(path);
}

CString SubstPathTags(const char* path, const char* projDir, const char* devDir, const PathTagDirLookup& lookup)
{
    if (!path)
        path = "";
    if (devDir && *devDir && beginsWith(path, devDir))
        return replaceStart(kDevDirTag, path, strlen(devDir));
    const CString project = projDir ? CString(projDir) : lookup(PathTagDir::Projects);
    if (beginsWith(path, project))
        return replaceStart(kProjDirTag, path, project.GetLength());
    return SubstPathTags(path, lookup);
}

CString UnSubstPathTags(const char* path, const char* projDir, const char* devDir, const PathTagDirLookup& lookup)
{
    if (!path || path[0] != '<')
        return CString(path);
    if (devDir && *devDir) {
        for (const char* tag : {kDevDirTag, kCpuDirTag}) {
            if (beginsWith(path, tag))
                return replaceStart(devDir, path, strlen(tag));
        }
    }
    if (beginsWith(path, kProjDirTag)) {
        const CString project = projDir ? CString(projDir) : lookup(PathTagDir::Projects);
        return replaceStart(project, path, strlen(kProjDirTag));
    }
    return UnSubstPathTags(path, lookup);
}

}  // namespace tqm

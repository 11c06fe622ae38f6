// Path tags against the installation's directories.
#include "paths/PathTags.h"

#include "config/Registry.h"
#include "paths/InstallDirs.h"
#include "paths/PathNames.h"
#include "paths/logic/PathTagRules.h"

#include <shlobj.h>
#include <string.h>

namespace {

using tqm::PathTagDir;

// The registry's "ProgramFilesDir", without trailing backslashes.
CString programFilesFromRegistry()
{
    char folder[512] = "";
    TQMReadRegistryString(HKEY_LOCAL_MACHINE, "Software\\Microsoft\\Windows\\CurrentVersion", "ProgramFilesDir",
                          folder);
    TQMStripTrailingBackslash(folder);
    return CString(folder);
}

// The shell's Program Files folder, or the registry's when the shell cannot
// name it.
CString programFilesFromShell()
{
    char folder[512] = "";
    if (FAILED(::SHGetFolderPathA(nullptr, CSIDL_PROGRAM_FILES, nullptr, 0, folder)))
        return programFilesFromRegistry();
    TQMStripTrailingBackslash(folder);
    return CString(folder);
}

CString installDir(PathTagDir dir)
{
    switch (dir) {
    case PathTagDir::Programs: return programFilesFromShell();
    case PathTagDir::Templates: return TQMGetTemplatesDir();
    case PathTagDir::Libs: return TQMGetLibsDir();
    case PathTagDir::Projects: return TQMGetProjectsDir();
    case PathTagDir::User: return TQMGetUserLocalAppDataDir();
    case PathTagDir::Local: return TQMGetLocalDir();
    case PathTagDir::Apps: return TQMGetAppsDir();
    case PathTagDir::AppsParent: return TQMGetParentDir(TQMGetAppsDir());
    case PathTagDir::Docs: return TQMGetDocsDir();
    }
    return CString();
}

// Substitution and expansion read the Program Files folder from different
// places (registry, shell); both are kept as callers have them.
CString dirForSubst(PathTagDir dir) { return dir == PathTagDir::Programs ? programFilesFromRegistry() : installDir(dir); }
CString dirForUnSubst(PathTagDir dir) { return installDir(dir); }

// Hands a result to a MAX_PATH buffer only when it fits; its length.
int toBuffer(const CString& result, char* dst)
{
    const int length = result.GetLength();
    if (length < MAX_PATH && dst)
        memcpy(dst, result.GetString(), length + 1);
    return length;
}

}  // namespace

CString WINAPI TQMSubstAppPathTags(const char* path) { return tqm::SubstPathTags(path, dirForSubst); }

CString WINAPI TQMUnSubstAppPathTags(const char* path) { return tqm::UnSubstPathTags(path, dirForUnSubst); }

CString WINAPI TQMSubstAppPathTags(const char* path, const char* projDir, const char* devDir)
{
    return tqm::SubstPathTags(path, projDir, devDir, dirForSubst);
}

CString WINAPI TQMUnSubstAppPathTags(const char* path, const char* projDir, const char* devDir)
{
    return tqm::UnSubstPathTags(path, projDir, devDir, dirForUnSubst);
}

int WINAPI TQMSubstAppPathTags(const char* path, char* dst) { return toBuffer(TQMSubstAppPathTags(path), dst); }

int WINAPI TQMUnSubstAppPathTags(const char* path, char* dst) { return toBuffer(TQMUnSubstAppPathTags(path), dst); }

int WINAPI TQMSubstAppPathTagsEx(const char* path, const char* projDir, const char* devDir, char* dst)
{
    return toBuffer(TQMSubstAppPathTags(path, projDir, devDir), dst);
}

int WINAPI TQMUnSubstAppPathTagsEx(const char* path, const char* projDir, const char* devDir, char* dst)
{
    return toBuffer(TQMUnSubstAppPathTags(path, projDir, devDir), dst);
}

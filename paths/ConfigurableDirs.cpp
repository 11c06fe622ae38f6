// The four directories the machine-wide settings may move: projects,
// libraries, programs and templates.
#include "paths/InstallDirs.h"

#include "config/QM5Profile.h"
#include "diag/TarnAssert.h"
#include "framework/ModuleState.h"
#include "paths/PathNames.h"

#include <string.h>

#undef TARN_SOURCE
#define TARN_SOURCE "Misc"

namespace {

// The setting pszEntry of "Global" in the machine's settings; when it is
// empty, the default, which is written back so that the first caller fixes
// the directory for every later one and for every other program.
template <typename MakeDefault>
CString configuredDir(const char* pszEntry, MakeDefault makeDefault)
{
    CString strDir = TQMGetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", pszEntry, "");
    strDir.TrimRight('\\');
    if (!strDir.IsEmpty())
        return strDir;
    strDir = makeDefault();
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", pszEntry, strDir);
    return strDir;
}

CString belowCommonDocuments(const char* pszFolder) { return TQMGetCommonDocumentsDir() + pszFolder; }

// The folder that holds this library, in its long form.
CString libraryFolder()
{
    char path[MAX_PATH] = "";
    ::GetModuleFileNameA(tqm::LibraryInstance(), path, MAX_PATH);
    ::GetLongPathNameA(path, path, MAX_PATH);
    return TQMGetParentDir(path);
}

// The buffer forms copy the whole directory even when it is too long for a
// MAX_PATH buffer: the suite's callers have always had it so, and rely on the
// report to learn of it.
int copyWhole(const CString& strDir, char* dst)
{
    TARN_ASSERT(strDir.GetLength() < MAX_PATH);
    if (dst)
        memcpy(dst, strDir.GetString(), strDir.GetLength() + 1);
    return strDir.GetLength();
}

}  // namespace

CString WINAPI TQMGetProjectsDir()
{
    return configuredDir("ProjectsDir", [] { return belowCommonDocuments("\\Projects"); });
}
int WINAPI TQMGetProjectsDir(char* dst) { return copyWhole(TQMGetProjectsDir(), dst); }

CString WINAPI TQMGetLibsDir()
{
    return configuredDir("LibsDir", [] { return belowCommonDocuments("\\Libs"); });
}
int WINAPI TQMGetLibsDir(char* dst) { return copyWhole(TQMGetLibsDir(), dst); }

CString WINAPI TQMGetTemplatesDir()
{
    return configuredDir("TemplatesDir", [] { return belowCommonDocuments("\\Templates"); });
}
int WINAPI TQMGetTemplatesDir(char* dst) { return copyWhole(TQMGetTemplatesDir(), dst); }

CString WINAPI TQMGetAppsDir() { return configuredDir("AppsDir", libraryFolder); }
int WINAPI TQMGetAppsDir(char* dst) { return copyWhole(TQMGetAppsDir(), dst); }

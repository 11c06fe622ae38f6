// The installation's folders, and private copies of settings files.
#include "paths/Environment.h"

#include "paths/FileOperations.h"
#include "paths/InstallDirs.h"
#include "paths/PathNames.h"

#include <string.h>

void WINAPI TQMCreateEnvironment()
{
    const CString dirs[] = {TQMGetAppsDir(),      TQMGetLocalDir(),     TQMGetProjectsDir(),
                            TQMGetLibsDir(),      TQMGetTemplatesDir(), TQMGetUserDir()};
    for (const CString& dir : dirs) {
        if (!TQMIsValidPathName(dir, FALSE) || TQMFileExists(dir))
            continue;
        TQMCreateDir(dir);
    }
}

void WINAPI TQMCopySettingsFile(const char* fileName, BOOL machineWide, char* resultPath)
{
    if (!resultPath)
        return;
    if (!fileName)
        fileName = "";
    CString target;
    target.Format("%s\\%s", (machineWide ? TQMGetLocalDir() : TQMGetUserDir()).GetString(), fileName);
    // A path too long for the caller's buffer is handed back cut, and nothing
    // is copied to a name the caller could not open.
    const int length = target.GetLength() < MAX_PATH ? target.GetLength() : MAX_PATH - 1;
    memcpy(resultPath, target.GetString(), length);
    resultPath[length] = '\0';
    if (length < target.GetLength())
        return;

    if (TQMFileExists(resultPath)) {
        TQMSetReadOnly(resultPath, FALSE);
        return;
    }
    CString installed;
    installed.Format("%s\\%s", TQMGetAppsDir().GetString(), fileName);
    if (TQMFileExists(installed) && TQMCopy(installed, resultPath))
        TQMSetReadOnly(resultPath, FALSE);
}

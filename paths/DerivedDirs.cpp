// The directories and files derived from other directories: the local
// directory, the user's options file, the temporary directory.
#include "paths/InstallDirs.h"

#include "paths/DirBuffer.h"
#include "paths/PathNames.h"
#include "paths/logic/SuiteFolders.h"

#include <string.h>

int WINAPI TQMGetLocalDir(char* dst)
{
    CString dir = TQMGetCommonDocumentsDir();
    TQMStripTrailingBackslash(dir);
    return tqm::CopyDirToBuffer(dir + "\\LocalDir", dst);
}

CString WINAPI TQMGetLocalDir()
{
    char dir[MAX_PATH] = "";
    TQMGetLocalDir(dir);
    return CString(dir);
}

int WINAPI TQMGetVMXOptionsFilePath(char* dst)
{
    return tqm::CopyDirToBuffer(TQMGetUserDir() + "\\VMXOptions.ini", dst);
}

CString WINAPI TQMGetVMXOptionsFilePath()
{
    char path[MAX_PATH] = "";
    TQMGetVMXOptionsFilePath(path);
    return CString(path);
}

DWORD WINAPI TQMGetVMXOption(const char* key, char* value, DWORD size)
{
    if (!value || size == 0)
        return 0;
    value[0] = '\0';
    return ::GetPrivateProfileStringA("VMX", key, "", value, size, TQMGetVMXOptionsFilePath());
}

char* WINAPI TQMGetTempDir(char* dst)
{
    // The system's temporary path is asked for with room to spare and made
    // long in place; it keeps its trailing backslash.
    char temp[MAX_PATH] = "";
    if (::GetTempPathA(MAX_PATH - 4, temp) == 0)
        temp[0] = '\0';
    if (temp[0])
        ::GetLongPathNameA(temp, temp, MAX_PATH);
    tqm::CopyDirToBuffer(tqm::SuiteTempDir(temp), dst);
    return dst;
}

CString WINAPI TQMGetTempDir()
{
    char dir[MAX_PATH] = "";
    TQMGetTempDir(dir);
    return CString(dir);
}

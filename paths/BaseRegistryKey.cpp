// The suite's key below "Software", named by this library's product version.
#include "paths/InstallDirs.h"

#include "framework/ModuleState.h"
#include "paths/DirBuffer.h"
#include "ui/VersionInfo.h"

int WINAPI TQMGetQM5BaseRegistryKey(char* dst)
{
    // The version resource is read from this library's own file, named by
    // its full path ("...\Tqmlib52.dll"), so that another copy of the library
    // earlier in the module search path cannot answer for it.
    char libraryFile[MAX_PATH] = "";
    ::GetModuleFileNameA(tqm::LibraryInstance(), libraryFile, MAX_PATH);
    CVersionInfo info;
    CString version;
    if (info.Init(libraryFile))
        version = info.StringFileInfo("ProductVersion");
    CString key;
    key.Format("Tarn-Holmvik\\QM5\\%s", version.GetString());
    return tqm::CopyDirToBuffer(key, dst);
}

CString WINAPI TQMGetQM5BaseRegistryKey()
{
    char key[MAX_PATH] = "";
    TQMGetQM5BaseRegistryKey(key);
    return CString(key);
}

#include "paths/Versions.h"

#include "paths/logic/VersionCode.h"
#include "ui/VersionInfo.h"

namespace {

// The calling program's file in its long form; empty when the module is missing.
CString programLongPath()
{
    HMODULE hProgram = GetModuleHandleA(nullptr);
    if (!hProgram)
        return CString();
    char path[MAX_PATH] = "";
    DWORD length = GetModuleFileNameA(hProgram, path, MAX_PATH);
    if (length == 0 || length >= MAX_PATH)
        return CString();
    // In place: the long form of a module path fits where its short one did,
    // and a failure leaves the buffer as it was.
    GetLongPathNameA(path, path, MAX_PATH);
    return CString(path);
}

// The version code of an initialised version resource. A file without a
// version resource has no fixed version, and gives -1 rather than a number
// that could be taken for one.
int versionCodeOf(CVersionInfo& info)
{
    if (!info.IsOk())
        return -1;
    const VS_FIXEDFILEINFO* pFixed = info.GetFixedFileInfo();
    if (!info.IsOk() || !pFixed)
        return -1;
    return tqm::VersionCode(pFixed->dwFileVersionMS, pFixed->dwFileVersionLS);
}

}  // namespace

CString WINAPI TQMGetAppVersionString()
{
    const CString path = programLongPath();
    if (path.IsEmpty())
        return CString();
    CVersionInfo info;
    if (!info.Init(path))
        return CString();
    return info.StringFileInfo("FileVersion");
}

int WINAPI TQMGetAppVersionInt()
{
    const CString path = programLongPath();
    if (path.IsEmpty())
        return -1;
    CVersionInfo info;
    info.Init(path);
    return versionCodeOf(info);
}

int WINAPI TQMGetVMXVersion()
{
    CVersionInfo info;
    info.Init("Vmx52.exe");
    return versionCodeOf(info);
}

int WINAPI TQMGetWindowsVersion()
{
    OSVERSIONINFOA version = {};
    version.dwOSVersionInfoSize = sizeof(version);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
    if (!GetVersionExA(&version))
        return tqm::kWindowsUnknown;
#pragma GCC diagnostic pop
    return tqm::WindowsFamily(version.dwPlatformId, version.dwMinorVersion);
}

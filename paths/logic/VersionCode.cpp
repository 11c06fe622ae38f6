#include "paths/logic/VersionCode.h"

namespace tqm {

int VersionCode(DWORD fileVersionMS, DWORD fileVersionLS)
{
    // The factors are deliberate and older than any of today's numbers: a
    // minor of 10 or more runs into the major digits (5.10.2 gives 60002) and
    // a build of 1000 or more into the minor digit. Stored codes depend on it.
    const int major = HIWORD(fileVersionMS);
    const int minor = LOWORD(fileVersionMS);
    const int build = HIWORD(fileVersionLS);
    return major * 10000 + minor * 1000 + build;
}

int WindowsFamily(DWORD platformId, DWORD minorVersion)
{
    switch (platformId) {
    case VER_PLATFORM_WIN32s:
        return kWindowsWin32s;
    case VER_PLATFORM_WIN32_WINDOWS:
        return minorVersion == 0 ? kWindows95 : kWindows98OrMe;
    case VER_PLATFORM_WIN32_NT:
        return kWindowsNT;
    default:
        return kWindowsUnknown;
    }
}

const char* DescribeWindowsFamily(int familyCode)
{
    switch (familyCode) {
    case kWindowsWin32s: return "Win32s";
    case kWindows95: return "Windows 95";
    case kWindows98OrMe: return "Windows 98 or Me";
    case kWindowsNT: return "Windows NT family";
    default: return "unknown platform";
    }
}

}  // namespace tqm

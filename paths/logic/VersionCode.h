// VersionCode, WindowsFamily - the suite's integer version code of a program
// file and its code for the Windows family it runs on.
#pragma once

#include <windows.h>

namespace tqm {

// major * 10000 + minor * 1000 + build, from the fixed file information's
// version words (the fourth number is ignored): 2.0.110.7 gives 20110.
int VersionCode(DWORD fileVersionMS, DWORD fileVersionLS);

// The suite's Windows family codes.
enum WindowsFamilyCode
{
    kWindowsUnknown = 0,
    kWindowsWin32s = 1,
    kWindows95 = 2,
    kWindows98OrMe = 3,
    kWindowsNT = 4
};

// The family code for a platform id and minor version as GetVersionEx gives them.
int WindowsFamily(DWORD platformId, DWORD minorVersion);

// "Windows NT family" and the like, for tools.
const char* DescribeWindowsFamily(int familyCode);

}  // namespace tqm

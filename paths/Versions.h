// TQMGetAppVersionString, TQMGetAppVersionInt, TQMGetVMXVersion,
// TQMGetWindowsVersion - the versions the suite's programs compare: their
// own, the project manager's, and the Windows family they run on.
//
// The integer version code is major * 10000 + minor * 1000 + build of the
// file's fixed version (2.0.110.7 gives 20110; see paths/logic/VersionCode.h).
#pragma once

#include <windows.h>

#include "framework/CString.h"
#include "framework/Export.h"

// The "FileVersion" string of the calling program's file; empty when the
// program has no version resource.
extern "C" TQM_CAPI CString WINAPI TQMGetAppVersionString();

// The integer version code of the calling program's file; -1 when the
// program's module or its version resource cannot be read.
extern "C" TQM_CAPI int WINAPI TQMGetAppVersionInt();

// The integer version code of "Vmx52.exe", the suite's project manager, found
// as the system finds a module file (the program's folder first); -1 when it
// is not found or has no version resource.
extern "C" TQM_CAPI int WINAPI TQMGetVMXVersion();

// The Windows family: 0 unknown, 1 Win32s, 2 Windows 95, 3 Windows 98 or Me,
// 4 the NT family (every current Windows).
extern "C" TQM_CAPI int WINAPI TQMGetWindowsVersion();

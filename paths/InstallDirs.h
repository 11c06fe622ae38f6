// TQMGetProjectsDir, TQMGetLibsDir, TQMGetAppsDir, TQMGetTemplatesDir,
// TQMGetLocalDir, TQMGetUserDir, TQMGetUserAppDataDir,
// TQMGetUserLocalAppDataDir, TQMGetCommonAppDataDir, TQMGetUserDocumentsDir,
// TQMGetCommonDocumentsDir, TQMGetDocsDir, TQMGetTempDir,
// TQMGetVMXOptionsFilePath, TQMGetVMXOption, TQMGetQM5BaseRegistryKey,
// GetQM4AppsDir, GetQM4LocalDir, GetQM4ProjectsDir - where the suite's
// projects, libraries, programs, templates and machine-wide and per-user data
// live.
//
// Directories come without a trailing backslash (the GetQM4 forms add one).
// Nothing is cached: every call reads the settings and shell folders afresh.
//
// Four directories are configurable in the machine-wide settings (section
// "Global" of HKEY_LOCAL_MACHINE, see config/QM5Profile.h), entries
// "ProjectsDir", "LibsDir", "AppsDir" and "TemplatesDir". An empty setting
// (or one of backslashes only) gives the default, which is then written back
// so that every later call and every other program of the suite agrees:
// the common documents directory + "\Projects", "\Libs" or "\Templates", and
// for the programs the folder that holds this library.
//
// The others follow the Windows shell folders with the suite's own subfolder
// "\Tarn-Holmvik\QM5_20" appended. The two documents folders are replaced by
// their parent first: the suite's folder goes beside "Documents", not into it.
// When the shell cannot name a folder the result is the bare subfolder, a path
// without a drive.
//
// Every function exists twice: a buffer form that writes into the caller's
// buffer of MAX_PATH characters and returns the length (TQMGetTempDir and the
// GetQM4 forms return the buffer), and a CString form without arguments. A
// path of MAX_PATH characters or more is reported as a failed assertion (from
// "Misc"). The configurable directories' buffer forms then still copy all of
// it, as callers of the suite have always had them; the others cut it to fit
// the MAX_PATH buffer.
#pragma once

#include <windows.h>

#include "framework/CString.h"
#include "framework/Export.h"

// The projects folder; setting "ProjectsDir", default <common documents>\Projects.
extern "C" TQM_CAPI int WINAPI TQMGetProjectsDir(char* dst);
TQM_CPPAPI CString WINAPI TQMGetProjectsDir();

// The function-block libraries; setting "LibsDir", default <common documents>\Libs.
extern "C" TQM_CAPI int WINAPI TQMGetLibsDir(char* dst);
TQM_CPPAPI CString WINAPI TQMGetLibsDir();

// The suite's programs; setting "AppsDir", default the folder of this library.
extern "C" TQM_CAPI int WINAPI TQMGetAppsDir(char* dst);
TQM_CPPAPI CString WINAPI TQMGetAppsDir();

// The templates; setting "TemplatesDir", default <common documents>\Templates.
extern "C" TQM_CAPI int WINAPI TQMGetTemplatesDir(char* dst);
TQM_CPPAPI CString WINAPI TQMGetTemplatesDir();

// Machine-wide data every user writes: <common documents>\LocalDir. The
// machine-wide settings file "QM5Global.ini" lives here.
extern "C" TQM_CAPI int WINAPI TQMGetLocalDir(char* dst);
TQM_CPPAPI CString WINAPI TQMGetLocalDir();

// The user's own data: the local application data folder + the suite's
// subfolder. Deliberately the same folder as TQMGetUserLocalAppDataDir.
extern "C" TQM_CAPI int WINAPI TQMGetUserDir(char* dst);
TQM_CPPAPI CString WINAPI TQMGetUserDir();

// The roaming application data folder + the suite's subfolder.
extern "C" TQM_CAPI int WINAPI TQMGetUserAppDataDir(char* dst);
TQM_CPPAPI CString WINAPI TQMGetUserAppDataDir();

// The local application data folder + the suite's subfolder.
extern "C" TQM_CAPI int WINAPI TQMGetUserLocalAppDataDir(char* dst);
TQM_CPPAPI CString WINAPI TQMGetUserLocalAppDataDir();

// The machine's application data folder (ProgramData) + the suite's subfolder.
extern "C" TQM_CAPI int WINAPI TQMGetCommonAppDataDir(char* dst);
TQM_CPPAPI CString WINAPI TQMGetCommonAppDataDir();

// Beside the user's documents folder: C:\Users\joe\Documents gives
// C:\Users\joe\Tarn-Holmvik\QM5_20.
extern "C" TQM_CAPI int WINAPI TQMGetUserDocumentsDir(char* dst);
TQM_CPPAPI CString WINAPI TQMGetUserDocumentsDir();

// Beside the common documents folder: C:\Users\Public\Documents gives
// C:\Users\Public\Tarn-Holmvik\QM5_20. The base of the configurable defaults.
extern "C" TQM_CAPI int WINAPI TQMGetCommonDocumentsDir(char* dst);
TQM_CPPAPI CString WINAPI TQMGetCommonDocumentsDir();

// Deliberately the same folder as TQMGetCommonDocumentsDir.
extern "C" TQM_CAPI int WINAPI TQMGetDocsDir(char* dst);
TQM_CPPAPI CString WINAPI TQMGetDocsDir();

// The system's temporary folder + "Tarn-Holmvik" (C:\Temp\ gives
// C:\Temp\Tarn-Holmvik), in its long form. The folder is not made. Returns dst.
extern "C" TQM_CAPI char* WINAPI TQMGetTempDir(char* dst);
TQM_CPPAPI CString WINAPI TQMGetTempDir();

// The user's options file: TQMGetUserDir + "\VMXOptions.ini".
extern "C" TQM_CAPI int WINAPI TQMGetVMXOptionsFilePath(char* dst);
TQM_CPPAPI CString WINAPI TQMGetVMXOptionsFilePath();

// key of section "VMX" of the user's options file into value (size
// characters, set to "" first); the number of characters copied, 0 when the
// file or the key is missing.
extern "C" TQM_CAPI DWORD WINAPI TQMGetVMXOption(const char* key, char* value, DWORD size);

// "Tarn-Holmvik\QM5\<version>", the suite's key below "Software" in either
// hive; <version> is this library's "ProductVersion" ("2.0"), empty when the
// version resource cannot be read.
extern "C" TQM_CAPI int WINAPI TQMGetQM5BaseRegistryKey(char* dst);
TQM_CPPAPI CString WINAPI TQMGetQM5BaseRegistryKey();

// For callers of the previous generation, which expect a trailing backslash:
// the buffer form of TQMGetAppsDir with one backslash appended; returns dst.
extern "C" TQM_CAPI char* WINAPI GetQM4AppsDir(char* dst);
// The buffer form of TQMGetLocalDir with one backslash appended; returns dst.
extern "C" TQM_CAPI char* WINAPI GetQM4LocalDir(char* dst);
// The buffer form of TQMGetProjectsDir with one backslash appended; returns dst.
extern "C" TQM_CAPI char* WINAPI GetQM4ProjectsDir(char* dst);

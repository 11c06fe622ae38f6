// TQMSubstAppPathTags, TQMUnSubstAppPathTags, TQMSubstAppPathTagsEx,
// TQMUnSubstAppPathTagsEx - paths stored with their leading directory replaced
// by a tag, so that they keep working when the installation, the projects or
// the user's profile move.
//
// Substituting turns C:\Users\Public\Tarn-Holmvik\QM5_20\Libs\Std\a.x into
// <$LibsDir>\Std\a.x; unsubstituting turns it back, against the directories
// (paths/InstallDirs.h) as they are at that moment. The tags:
//
//   <$ProgramsDir>    the Program Files folder
//   <$TmplDir>        TQMGetTemplatesDir        <$StdLibDir>  libraries\Std  (read only)
//   <$LibsDir>        TQMGetLibsDir             <$AppLibDir>  libraries\App  (read only)
//   <$ProjectsDir>    TQMGetProjectsDir         <$UsrLibDir>  libraries\Usr  (read only)
//   <$UserDir>        TQMGetUserLocalAppDataDir <$HpLibDir>   libraries\HP   (read only)
//   <$LocalDir>       TQMGetLocalDir            <$ProjDir>    the project (forms with projDir)
//   <$AppsDir>        TQMGetAppsDir             <$DevDir>     the device (forms with devDir)
//   <$AppsDirParent>  the folder above it       <$CpuDir>     read as <$DevDir>
//   <$DocsDir>        TQMGetDocsDir
//
// Matching ignores ASCII case and needs no separator after a directory (see
// paths/logic/PathTagRules.h for the exact rules and orders, which stored
// files depend on). A path that matches nothing, and a tag nobody knows, come
// back unchanged; nothing is ever reported.
//
// Substitution takes the Program Files folder from the registry value
// "ProgramFilesDir" of HKLM\Software\Microsoft\Windows\CurrentVersion, the
// expansion from the shell (falling back to that value); both are kept.
#pragma once

#include <windows.h>

#include "framework/CString.h"
#include "framework/Export.h"

// path with its leading directory replaced by a tag.
TQM_CPPAPI CString WINAPI TQMSubstAppPathTags(const char* path);
// path with its leading tag expanded.
TQM_CPPAPI CString WINAPI TQMUnSubstAppPathTags(const char* path);
// The same, first trying devDir (when given and not empty) as "<$DevDir>" and
// projDir (the projects directory when NULL) as "<$ProjDir>". An empty projDir
// matches every path.
TQM_CPPAPI CString WINAPI TQMSubstAppPathTags(const char* path, const char* projDir, const char* devDir);
// The same, expanding "<$DevDir>" and "<$CpuDir>" to devDir (when given and
// not empty) and "<$ProjDir>" to projDir (the projects directory when NULL).
TQM_CPPAPI CString WINAPI TQMUnSubstAppPathTags(const char* path, const char* projDir, const char* devDir);

// The buffer forms: the result goes to dst (MAX_PATH characters) only when it
// is shorter than MAX_PATH; otherwise dst is left untouched. They return the
// result's length either way, so a return of MAX_PATH or more means "too long".
extern "C" TQM_CAPI int WINAPI TQMSubstAppPathTags(const char* path, char* dst);
// The buffer form of TQMUnSubstAppPathTags(path).
extern "C" TQM_CAPI int WINAPI TQMUnSubstAppPathTags(const char* path, char* dst);
// The buffer form of TQMSubstAppPathTags(path, projDir, devDir).
extern "C" TQM_CAPI int WINAPI TQMSubstAppPathTagsEx(const char* path, const char* projDir, const char* devDir,
                                                     char* dst);
// The buffer form of TQMUnSubstAppPathTags(path, projDir, devDir).
extern "C" TQM_CAPI int WINAPI TQMUnSubstAppPathTagsEx(const char* path, const char* projDir, const char* devDir,
                                                       char* dst);

// TQMIsValidPathName, TQMIsValidFileName, TQMHasDir, TQMGetParentDir,
// TQMGetFullPath, TQMGetRelativePath, TQMChangeFileExt, TQMGetFileName,
// TQMStripTrailingBackslash, TQMGetNextUntitledFileName, TQMCreateDir -
// the names users type and the conversions between absolute, base-relative
// and tagged paths.
//
// Paths are 8-bit strings in the system code page, backslash-separated, of at
// most MAX_PATH characters. Only TQMCreateDir, TQMGetNextUntitledFileName and
// TQMGetRelativePath look at the file system.
#pragma once

#include <windows.h>

#include "framework/CString.h"
#include "framework/Export.h"

// Nonzero if path is a well-formed path by the suite's rules, which are
// narrower than Windows' own and kept as they are because stored names were
// checked by them: no component may start with a dot except a leading .\ or
// ..\ (so ..\..\x and a\.b are refused), no "..", "\\" or trailing backslash
// inside, only letters, digits and  $%'-_@~`!()^#&+,=[]  besides the dot,
// ? and * only when allowWildcards is nonzero; COM0-9 and LPT0-9 as a name
// and the bare name AUX are refused.
extern "C" TQM_CAPI int WINAPI TQMIsValidPathName(const char* path, int allowWildcards);

// True for a valid path name without wildcards and without a folder part
// (TQMHasDir false); with allowExtension FALSE a name holding a dot is refused.
extern "C" TQM_CAPI BOOL WINAPI TQMIsValidFileName(const char* name, BOOL allowExtension);

// True if name begins with a dot or holds a backslash, a slash or a colon.
extern "C" TQM_CAPI BOOL WINAPI TQMHasDir(const char* name);

// The folder that holds path: C:\a\b\ gives C:\a, C:\ gives C:, a bare name
// gives the empty string.
extern "C" TQM_CAPI CString WINAPI TQMGetParentDir(const char* path);

// path made absolute against baseDir. A path that begins with a path tag
// ("<$ProjectsDir>\...") is expanded instead. A path with a drive comes back
// as it is; \x takes the base's drive; leading .\ and ..\ are resolved. With
// an empty path, an empty base or a base without a drive letter, path comes
// back unchanged.
extern "C" TQM_CAPI void WINAPI TQMGetFullPath(CString& result, const char* baseDir, const char* path);
TQM_CPPAPI CString WINAPI TQMGetFullPath(const char* baseDir, const char* path);

// path relative to the folder baseDir, as the shell relates them: a file in
// the base comes back as its bare name, a deeper one as .\sub\name, higher
// ones as ..\name; a path on another drive comes back full, and one three or
// more levels up that climbs to the drive comes back as \dir\name.
extern "C" TQM_CAPI void WINAPI TQMGetRelativePath(CString& result, const char* baseDir, const char* path);
TQM_CPPAPI CString WINAPI TQMGetRelativePath(const char* baseDir, const char* path);

// path with its extension replaced by ext (".lin"), or ext appended where it
// has none; a dot in the first position is not an extension (.cfg gives
// .cfg.lin). path is cut to MAX_PATH characters. An empty ext removes the
// extension.
extern "C" TQM_CAPI CString WINAPI TQMChangeFileExt(const char* path, const char* ext);

// The file name with its extension, without drive and folders.
extern "C" TQM_CAPI CString WINAPI TQMGetFileName(const char* path);

// Removes every trailing backslash (C:\ becomes C:).
extern "C" TQM_CAPI void WINAPI TQMStripTrailingBackslash(char* path);
TQM_CPPAPI void WINAPI TQMStripTrailingBackslash(CString& path);

// baseName followed by the first number n = 1, 2, ... for which no file
// "dir\<baseName><n>.*" exists: "Untitled3". No folder, no extension.
extern "C" TQM_CAPI CString WINAPI TQMGetNextUntitledFileName(const char* dir, const char* baseName);

// Creates path and every missing folder above it. FALSE when anything could
// not be made, and when path already exists.
extern "C" TQM_CAPI BOOL WINAPI TQMCreateDir(const char* path);

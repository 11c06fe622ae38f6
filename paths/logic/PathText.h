// ParentDir, ResolveFullPath, ChangeFileExt, FinishRelativePath and their
// helpers - the text side of the suite's path conversions.
//
// Paths are 8-bit strings with the backslash as separator. Nothing here
// touches the file system; tag expansion and the shell's relative-path
// helper are the library's business (paths/PathNames.cpp).
#pragma once

#include "framework/CString.h"

namespace tqm {

// The path without any trailing backslashes (C:\ becomes C:).
CString WithoutTrailingBackslashes(const char* path);

// True for a bare drive such as "C:".
bool IsBareDrive(const char* path);

// True if the name begins with a dot or holds a backslash, a slash or a colon.
bool HasDirPart(const char* name);

// The folder that holds path: C:\a\b\ gives C:\a, C:\ gives C:, a bare
// name gives the empty string.
CString ParentDir(const char* path);

// The rest of a relative path after its leading ".\" and "..\", and in
// *pLevelsUp how many folders up those climb.
const char* SkipLeadingDots(const char* path, int* pLevelsUp);

// path made absolute against baseDir, which must begin with a drive letter.
// Leading .\ and ..\ are resolved against the base; anything else that
// cannot be related comes back unchanged. Path tags are not expanded here.
CString ResolveFullPath(const char* baseDir, const char* path);

// The relative path the shell gave for full, in the suite's form: a file
// directly in the base loses its ".\", and a path three or more levels up
// that climbs to the drive becomes drive-relative ("\dir\file").
CString FinishRelativePath(const char* full, const char* relative);

// path (cut to MAX_PATH characters) with its extension replaced by ext,
// which begins with a dot; without an extension, ext is appended.
CString ChangeFileExt(const char* path, const char* ext);

// The file name with its extension, without drive and folders.
CString FileNameOf(const char* path);

}  // namespace tqm

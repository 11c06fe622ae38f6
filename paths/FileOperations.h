// TQMDelete, TQMRename, TQMMove, TQMCopy, TQMCopyDir, TQMSetReadOnly,
// TQMSetDirReadOnly, TQMIsReadOnly, TQMIsOnRemovableDrive, TQMFileExists,
// TQMCompareFiles, TQMWildcardCompare, TQMFileProperties - deleting, moving
// and copying project files and folders, their read-only state, comparison
// and wildcard matching.
//
// Delete, rename, move and copy go through the shell's file operation, so
// they behave like the Explorer (whole folders, wildcards in the last
// component, optional recycle bin), silently and without confirmations.
// Their sources and targets must be full paths: a path holding ".." or ".\"
// is refused without touching the disk, as is a target holding a wildcard,
// a path longer than MAX_PATH characters, a source that does not exist, and
// a rename, move or copy without a target.
// Each shell call is followed by a pause of 100 ms that gives the shell time
// to let go of the files.
//
// One thread only: TQMDelete, TQMRename, TQMMove and TQMCopy fill one
// process-wide shell operation record, so they must never run on two threads
// at once. Callers serialise them (the suite calls them from its user-
// interface thread).
//
// Every function returns nonzero for success or true, FALSE otherwise; none
// shows a message.
#pragma once

#include <windows.h>

#include "framework/Export.h"

// Deletes a file or a whole folder, or what a pattern (*.bak) matches; to
// the recycle bin when toRecycleBin is nonzero. A path that does not exist is
// nothing to delete: TRUE. One thread only (see above).
extern "C" TQM_CAPI BOOL WINAPI TQMDelete(const char* path, BOOL toRecycleBin);

// Renames oldPath to newPath, replacing an existing file newPath (never a
// folder). A change of case only deletes nothing. One thread only.
extern "C" TQM_CAPI BOOL WINAPI TQMRename(const char* oldPath, const char* newPath);

// Moves a file or folder; folders on the way to the target are made. One
// thread only.
extern "C" TQM_CAPI BOOL WINAPI TQMMove(const char* from, const char* to);

// Copies a file or folder, overwriting existing files; folders on the way to
// the target are made. One thread only.
extern "C" TQM_CAPI BOOL WINAPI TQMCopy(const char* from, const char* to);

// Copies every file and folder inside fromDir into toDir (made if missing),
// overwriting existing files. The first failure ends the copy with FALSE. A
// target inside the source is refused.
extern "C" TQM_CAPI BOOL WINAPI TQMCopyDir(const char* fromDir, const char* toDir);

// Sets or clears the read-only attribute of a file or folder; a change also
// clears the archive attribute. A missing path or one already in the wished
// state is TRUE.
extern "C" TQM_CAPI BOOL WINAPI TQMSetReadOnly(const char* path, BOOL readOnly);

// The same for everything inside dir (not dir itself), in its subfolders too
// when recursive is nonzero. FALSE when dir is not a folder or an entry could
// not be changed; the walk still visits the rest.
extern "C" TQM_CAPI BOOL WINAPI TQMSetDirReadOnly(const char* dir, BOOL readOnly, BOOL recursive);

// True for a read-only file or folder, and for a folder that holds a
// read-only file at any depth. A missing path is not read-only.
extern "C" TQM_CAPI BOOL WINAPI TQMIsReadOnly(const char* path);

// True if path lies on a removable drive, a CD drive or a RAM disk (a
// network drive does not count).
extern "C" TQM_CAPI BOOL WINAPI TQMIsOnRemovableDrive(const char* path);

// True if path names an existing file or folder.
extern "C" TQM_CAPI BOOL WINAPI TQMFileExists(const char* path);

// True if both files exist and hold the same bytes.
extern "C" TQM_CAPI BOOL WINAPI TQMCompareFiles(const char* path1, const char* path2);

// True if name matches pattern (? any one character, * any run, case ignored).
extern "C" TQM_CAPI BOOL WINAPI TQMWildcardCompare(const char* pattern, const char* name);

// Opens the shell's properties sheet of path.
extern "C" TQM_CAPI void WINAPI TQMFileProperties(const char* path);

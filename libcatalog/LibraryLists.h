// TQMGetInstalledLibraries, TQMGetProjectLibraries, TQMCheckLibraryID,
// TQMParseLibraryVersion - which libraries are installed, which ones a
// project uses, and which others carry a library's identity.
//
// Installed libraries are the current descriptions (".tarnlin") anywhere
// below the libraries directory (TQMGetLibsDir). A project names its
// libraries in its project file (".tarn5pj"), section [LibraryFiles]:
// "NumberOfLibs" and "Lib0", "Lib1", ..., each a ";"-separated list whose
// first field is the library's description file.
//
// Lists come as library list blocks (libcatalog/LibraryListBlock.h); the
// caller frees them with GlobalFree.
#pragma once

#include <windows.h>

#include "framework/Export.h"

// The full paths of all installed descriptions, depth first: a folder's own
// descriptions, then its subfolders in the order the search returns them.
// With removeDuplicates, of two descriptions with the same [Library] ID one
// stays, chosen by version and install folder (logic/DuplicateLibraries.h).
// NULL only when memory fails; no library gives the empty block.
extern "C" TQM_CAPI HGLOBAL WINAPI TQMGetInstalledLibraries(BOOL removeDuplicates);

// The descriptions a project uses, each once. projectFile is the project file
// or a controller file (".tarn5pc") inside the project's controller folder,
// whose project file is then <project>\<project name>.tarn5pj. Names that
// begin with "." are relative to the project's folder; others may begin with
// a path tag (<$StdLibDir>, <$ProjDir>, ...). A project without
// "NumberOfLibs" uses every installed library (duplicates removed). NULL when
// the project file does not exist or memory fails.
extern "C" TQM_CAPI HGLOBAL WINAPI TQMGetProjectLibraries(const char* projectFile);

// The libraries, installed or (when projectFile is given) used by the
// project, whose [Library] ID is id (without regard to case) and whose
// description's name differs from ownName: one line each, "name\tid\tversion\t
// distributor\t" with the display name in the library's usable language. NULL
// when there is none.
extern "C" TQM_CAPI HGLOBAL WINAPI TQMCheckLibraryID(const char* id, const char* ownName, const char* projectFile);

// The version number of a version text (logic/LibraryVersion.h) in *value,
// which is always written; TRUE only for a well-formed text.
extern "C" TQM_CAPI BOOL WINAPI TQMParseLibraryVersion(const char* text, DWORD* value);

#ifdef TQMLIB_BUILD
#include <string>
#include <vector>

namespace tqm {
// The lists behind the exported functions.
std::vector<std::string> InstalledLibraryFiles(bool removeDuplicates);
// False when the project file does not exist.
bool ProjectLibraryFiles(const char* projectFile, std::vector<std::string>& files);
}  // namespace tqm
#endif

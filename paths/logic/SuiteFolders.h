// SuiteFolderBeside, SuiteTempDir - the suite's folders as they follow from
// the folders Windows names, in text only.
#pragma once

#include "framework/CString.h"

namespace tqm {

// The suite's own subfolder, appended to every shell folder.
extern const char kSuiteSubfolder[];  // "\Tarn-Holmvik\QM5_20"

// The suite's folder for a shell folder: slashes turned into backslashes,
// trailing backslashes removed and, with dropLastComponent, the folder
// replaced by its parent (C:\Users\Public\Documents gives C:\Users\Public);
// then kSuiteSubfolder. An empty or NULL shell folder (the shell could not
// name it) gives the bare subfolder, deliberately: callers have always got a
// path without a drive then.
CString SuiteFolderBeside(const char* shellFolder, bool dropLastComponent);

// The suite's temporary folder for the system's temporary path, which ends in
// a backslash: C:\Temp\ gives C:\Temp\Tarn-Holmvik.
CString SuiteTempDir(const char* tempPath);

}  // namespace tqm

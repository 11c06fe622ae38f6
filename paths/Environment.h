// TQMCreateEnvironment, TQMCopySettingsFile - what a program of the suite
// makes sure of at start-up: the installation's folders, and a private,
// writable copy of a settings file.
#pragma once

#include <windows.h>

#include "framework/Export.h"

// Makes the folders of the programs, the local directory, the projects, the
// libraries, the templates and the user directory, with every missing folder
// above them, where they do not exist yet. A folder that is not a valid path
// name is left alone; failures are ignored and nothing is reported. On a
// fresh machine the first call also settles the configurable directories'
// settings (see paths/InstallDirs.h).
extern "C" TQM_CAPI void WINAPI TQMCreateEnvironment();

// Puts into resultPath (MAX_PATH characters) the path of the settings file
// fileName (a bare name) to use: in the local directory when machineWide is
// nonzero, else in the user directory. An existing file there is made
// writable and left as it is; otherwise the installed default of that name in
// the programs' folder, if there is one, is copied there and made writable.
// resultPath is filled in every case: a file still missing is the caller's to
// create on its first write.
extern "C" TQM_CAPI void WINAPI TQMCopySettingsFile(const char* fileName, BOOL machineWide, char* resultPath);

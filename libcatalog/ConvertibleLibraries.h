// TQMGetConvertableLibraries, TQMStopGetConvertableLibraries - the search
// for libraries of the previous generation that still need converting.
//
// Old libraries are described by ".lin" files, or only by family files
// ".dff" and definition files ".def". The scan lists, in folders the user
// names outside the libraries directory:
//   - every ".lin" of Type "Hpak" (but "Velmo.lin"), converted or not;
//   - every ".dff" without a ".lin" or ".tarnlin" of the same name;
//   - every ".def" without a ".lin" or ".tarnlin" of the same name that reads
//     as an INI document, belongs to no family file of its folder and is not
//     one of the maker's own families (logic/ExcludedFamilies.h).
// With recurse it enters subfolders too, except those named like a language
// of the folder's ".lin" files or "English", "French", "Italian", "German"
// and "HP": they hold a library's language files, not libraries.
//
// The scan can be long; another thread may stop it at any moment.
#pragma once

#include <windows.h>

#include "framework/Export.h"

// A library list block of the candidates (possibly empty), in the order
// found, not freed of duplicates; NULL when the scan was stopped, or memory
// failed. folders are separated by tab characters; the list ends at the
// first empty one. A folder at or below the libraries directory is skipped.
extern "C" TQM_CAPI HGLOBAL WINAPI TQMGetConvertableLibraries(const char* folders, BOOL recurse);

// Stops a running scan at its next check; safe from any thread. The flag is
// shared by the process: a scan clears it when it starts, so a stop meant for
// one scan started after it has no effect, and one stop ends every scan that
// is running (deliberate: the suite runs one at a time).
extern "C" TQM_CAPI void WINAPI TQMStopGetConvertableLibraries();

// TQMGetLibraryFiles - every file that belongs to a function-block library,
// for copying, packing or installing it.
//
// The library is named by its description: a current ".tarnlin" or older
// ".lin" description, a family file ".dff" or a definition file ".def". The
// description is read (libcatalog/DescriptionReaders.h), then the file set is
// completed from its members (libcatalog/FileSetCompletion.h). Problems are
// returned as message lines beginning "Error:" or "Warning:", never shown.
#pragma once

#include <windows.h>

#include "framework/Export.h"

// A library list block of the full paths of the library's files, the
// description first (a family file given as the description is not one of
// them); NULL when the set is empty or memory fails. When messages is not
// NULL and messages were raised, *messages receives a list block of them in
// the order raised; otherwise it is left as it was. The caller frees both
// blocks with GlobalFree.
extern "C" TQM_CAPI HGLOBAL WINAPI TQMGetLibraryFiles(const char* descriptionFile, HGLOBAL* messages);

// StringToID, IDToString, DefaultID, DefaultString - symbolic names and
// their numbers, from a caller's constant table.
//
// Settings files store the name, programs work with the number. A table is
// an array of pairs closed by a pair whose name is NULL and whose id is the
// table's default:
//
//     static const IDTABLE kModes[] = {{"Online", 1}, {"Offline", 2}, {nullptr, 2}};
//     StringToID(kModes, "Simulated") == 2; IDToString(kModes, 7) == "Offline"
#pragma once

#include <windows.h>

#include "framework/Export.h"

// Tqmlib52.h defines the pair too, for C programs: whichever comes first does.
#ifndef TQM_IDTABLE_DEFINED
#define TQM_IDTABLE_DEFINED
// One pair of a table: a name and its id.
typedef struct tagIDTABLE
{
    const char* pszName;  // NULL closes the table
    int nID;              // in the closing pair: the default id
} IDTABLE;
#endif

// The id of name (compared with lstrcmpA, case-sensitive), or the default id.
extern "C" TQM_CAPI int WINAPI StringToID(const IDTABLE* table, const char* name);
// The name of id; for an unknown id the default's name. NULL when the id is
// the default and no pair holds it, or when the default is not in the table.
extern "C" TQM_CAPI const char* WINAPI IDToString(const IDTABLE* table, int id);
// The table's default id.
extern "C" TQM_CAPI int WINAPI DefaultID(const IDTABLE* table);
// IDToString(table, DefaultID(table)).
extern "C" TQM_CAPI const char* WINAPI DefaultString(const IDTABLE* table);

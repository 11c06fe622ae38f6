// GlobalAddMolecule, GlobalGetMoleculeName, GlobalDeleteMolecule - strings of
// up to 6629 characters passed between processes through the global atom
// table.
//
// An atom name holds at most 255 characters. A longer string is cut into
// pieces of 255 characters, each a global atom, and a head atom that lists
// them stands for the whole (ipc/logic/MoleculeHead.h); a string of 255
// characters or fewer is a plain atom. Whoever receives a molecule deletes it
// once it has read it.
#pragma once

#include <windows.h>

#include "framework/CString.h"
#include "framework/Export.h"

// The longest string a molecule holds: 26 pieces, the last one short.
#define TQM_MOLECULE_MAX_LENGTH 6629

// The molecule (or plain atom) for the string; 0 when it is too long or the
// atom table refuses a piece (pieces added before that stay in the table).
extern "C" TQM_CAPI ATOM WINAPI GlobalAddMolecule(const char* pszString);

// Copies at most nSize - 1 characters of the molecule's string into pszBuffer,
// always terminated; returns the number copied.
extern "C" TQM_CAPI int WINAPI GlobalGetMoleculeName(ATOM nAtom, char* pszBuffer, int nSize);
// The molecule's whole string. A lost piece is reported as a failed assertion
// (from "Molecule") and what could be read is returned.
TQM_CPPAPI CString WINAPI GlobalGetMoleculeName(ATOM nAtom);

// Deletes the pieces and then the head (or the plain atom); returns what
// deleting the head returned: 0 on success.
extern "C" TQM_CAPI ATOM WINAPI GlobalDeleteMolecule(ATOM nAtom);

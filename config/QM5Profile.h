// TQMGetQM5ProfileInt, TQMGetQM5ProfileString, TQMSetQM5ProfileInt,
// TQMSetQM5ProfileString - the suite's own settings, shared by all of its
// programs.
//
// Settings live below Software\Tarn-Holmvik\QM5\<version> (<version> is this
// library's product version, see TQMGetQM5BaseRegistryKey) in the user's hive
// (HKEY_CURRENT_USER) or the machine's (HKEY_LOCAL_MACHINE): one key per
// section, one value per entry, numbers as REG_DWORD and text as REG_SZ. The
// keys are created as needed, even by the readers.
//
// Machine-wide settings are mirrored in "QM5Global.ini" in the local directory
// (TQMGetLocalDir), a file every user may write, so that every user and every
// program sees the same values even where users may not write the machine's
// hive. For the machine hive:
//   - the writers write the file first, then the registry; their result is
//     the registry's;
//   - the readers read the file when it exists. Without the file, the text
//     reader falls back to the registry but the number reader gives the
//     default. The difference is deliberate and callers rely on it.
//
// The suite's programs are 32-bit, and so are their keys: the x86_64 build of
// the library uses the same (32-bit) view of the machine's hive, so both
// builds share one set of settings.
//
// A hive other than the two, or a NULL section or entry, is reported as a
// failed assertion; the call still goes on and gives what the system makes of
// it (usually the default).
#pragma once

#include <windows.h>

#include "framework/CString.h"
#include "framework/Export.h"

// The number of lpszEntry in lpszSection, or nDefault. A value of another type
// is reported and its first four bytes are taken as they stand.
extern "C" TQM_CAPI UINT WINAPI TQMGetQM5ProfileInt(HKEY hBaseKey, const char* lpszSection, const char* lpszEntry,
                                                    int nDefault);

// The text of lpszEntry in lpszSection, or lpszDefault. A value of another
// type is reported and its data are returned as text.
extern "C" TQM_CAPI CString WINAPI TQMGetQM5ProfileString(HKEY hBaseKey, const char* lpszSection,
                                                          const char* lpszEntry, const char* lpszDefault);

// Writes a number. A NULL lpszEntry removes the whole section. TRUE when the
// registry took the change (removing what is not there is FALSE).
extern "C" TQM_CAPI BOOL WINAPI TQMSetQM5ProfileInt(HKEY hBaseKey, const char* lpszSection, const char* lpszEntry,
                                                    UINT nValue);

// Writes text. A NULL lpszValue removes the entry, a NULL lpszEntry the whole
// section. TRUE when the registry took the change (removing what is not there
// is FALSE).
extern "C" TQM_CAPI BOOL WINAPI TQMSetQM5ProfileString(HKEY hBaseKey, const char* lpszSection,
                                                       const char* lpszEntry, const char* lpszValue);

#ifdef TQMLIB_BUILD
namespace tqm {
// The machine-wide mirror file: TQMGetLocalDir() + "\QM5Global.ini".
CString MachineSettingsFile();
}  // namespace tqm
#endif

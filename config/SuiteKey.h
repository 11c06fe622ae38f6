// Opening the suite's settings keys, shared by the settings functions.
#pragma once

#include <windows.h>

#include "framework/Handles.h"

#ifdef TQMLIB_BUILD
namespace tqm {

// Access to the suite's keys: the right to read (KEY_READ), or to read and
// write (KEY_READ | KEY_WRITE); always in the 32-bit view of the registry, the
// view of the suite's 32-bit programs.
REGSAM SuiteKeyAccess(bool bWrite);

// The key Software\<TQMGetQM5BaseRegistryKey()>[\<pszSection>] of hive, each
// key below "Software" opened or made on the way, also for reading; the keys
// on the way are closed at once. Without pszSection the version key itself.
// An empty owner when any step fails.
UniqueKey OpenSuiteKey(HKEY hive, const char* pszSection, bool bWrite);

}  // namespace tqm
#endif

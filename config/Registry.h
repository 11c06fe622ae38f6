// CRegistry, TQMReadRegistryString - the calling program's own settings, and
// one string value of any key.
//
// CRegistry reads and writes through the program's application object
// (framework/WinApp.h), so its settings go to whatever the program chose at
// start-up: its registry key below HKEY_CURRENT_USER\Software\<company>, or
// its INI file. Without an application object, or one that chose neither,
// the readers give the default and the writers FALSE.
#pragma once

#include <windows.h>

#include "framework/CString.h"
#include "framework/Export.h"

// The calling program's own settings, through its application object.
class TQM_CLASS CRegistry
{
public:
    // Construction
    CRegistry();
    CRegistry(const CRegistry& other) = default;
    CRegistry& operator=(const CRegistry& other) = default;

    // Operations, as the application object's profile functions
    CString GetString(const char* section, const char* entry, const char* def);
    UINT GetInt(const char* section, const char* entry, int def);
    BOOL WriteString(const char* section, const char* entry, const char* value);
    BOOL WriteInt(const char* section, const char* entry, int value);
    // Removes the entry (WriteString with a NULL value).
    BOOL RemoveEntry(const char* section, const char* entry);

    // The index-th value of the section's registry key (registry form only):
    // its name, and its data as they stand, whatever their type (a string
    // without its NUL). The system's result: ERROR_SUCCESS, or
    // ERROR_NO_MORE_ITEMS once index has passed the last value. Without a
    // section key (INI form, no choice) the failure is reported and
    // ERROR_INVALID_HANDLE returned.
    LONG EnumValue(const char* section, DWORD index, CString& name, CString& value);

protected:
    CString m_strKey;  // empty; no operation reads it. Kept for the object's layout.
};

// valueName of the key subKey below hKey, into out (512 bytes), which is set
// to "" first. The key is only opened, never made. TRUE only for a REG_SZ
// value with data (an empty string stored with its NUL has some); out may hold
// data even when the result is FALSE. Longer values give FALSE.
extern "C" TQM_CAPI BOOL WINAPI TQMReadRegistryString(HKEY hKey, const char* subKey, const char* valueName,
                                                      char* out);

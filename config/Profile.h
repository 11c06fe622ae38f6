// TQMGetProfileString, TQMGetProfileInt, WritePrivateProfileInt,
// TQMWritePrivateProfileInt - single values of sectioned text files.
//
// The readers are the library's own scanner: they read the file line by line
// up to the first match, without building a document (config/IniFile.h) and
// without the system's profile functions. The grammar is the document's, with
// two differences kept on purpose: "//" does not start a comment, and of two
// entries of one name the first wins. Only the first section of a name is
// searched. A missing file, section or key gives the caller's default, and
// nothing is ever reported. Names compare without regard to case.
//
// The writers go through the system's WritePrivateProfileStringA.
#pragma once

#include <windows.h>

#include "framework/CString.h"
#include "framework/Export.h"

// The value of key in section of file (the full file name), without the
// blanks around it; def when it is not there. An empty value is returned as
// it is.
extern "C" TQM_CAPI CString WINAPI TQMGetProfileString(const char* pszSection, const char* pszKey,
                                                       const char* pszDefault, const char* pszFile);

// The value as a signed decimal number; def when it is missing, empty, or not
// a plain number in the 32-bit range (0x10, 12abc and overflow all give def).
extern "C" TQM_CAPI int WINAPI TQMGetProfileInt(const char* pszSection, const char* pszKey, int nDefault,
                                                const char* pszFile);

// Writes the number in decimal; the system call's result.
extern "C" TQM_CAPI int WINAPI WritePrivateProfileInt(const char* pszSection, const char* pszKey, int nValue,
                                                      const char* pszFile);

// The same, then has the system write its cached copy of the file to disk.
// The result is that of the first call.
extern "C" TQM_CAPI int WINAPI TQMWritePrivateProfileInt(const char* pszSection, const char* pszKey, int nValue,
                                                         const char* pszFile);

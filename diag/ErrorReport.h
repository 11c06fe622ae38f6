// SystemError, SystemInfo, LastError, DllError, TarnDebug - reports to the
// user in modal boxes (through the message-box hook when one is set).
#pragma once

#include <windows.h>

#include "framework/Export.h"

// Message nID of the library's string table, formatted with pszArg and nArg,
// under the caption "System Error"; returns the box's result.
extern "C" TQM_CAPI int WINAPI SystemError(HWND hWndOwner, WORD nID, const char* pszArg, int nArg);
// The same under "System Info"; the first format argument is a number.
extern "C" TQM_CAPI int WINAPI SystemInfo(HWND hWndOwner, WORD nID, DWORD dwArg, int nArg);
// The system's text for the thread's last error code, under "System Error".
extern "C" TQM_CAPI void WINAPI LastError(HWND hWndOwner);
// "Error <nID>: <message nID>" formatted with the arguments.
extern "C" TQM_CAPI void __cdecl DllError(UINT nID, ...);

// The assertion reporter behind TARN_ASSERT and TARN_VERIFY (diag/TarnAssert.h).
// Sends the report "<macro> failed at line <n> in <source>: ..." (at most 640
// characters; pszFile is shown as it is given) to the trace
// viewer; for the library's own macros (names beginning "TARN") it then
// offers Abort, Retry or Ignore. Abort ends the process at once (exit code
// 3); the others return. The result says whether the trace viewer got it.
extern "C" TQM_CAPI bool WINAPI TarnDebug(const char* pszMacro, const char* pszExpr, const char* pszFile, int nLine);
// The same with the system's error code of a failed call: reported by number
// when the system has a text for it, else as "Reason: (null)".
TQM_CPPAPI bool WINAPI TarnDebug(const char* pszMacro, const char* pszExpr, const char* pszFile, int nLine,
                                 DWORD dwError);

// SaveWindowPlacement, RestoreWindowPlacement, SaveWindowPos,
// RestoreWindowPos - windows reopen where the user left them.
//
// Each function keeps one line in the calling program's application profile
// (framework/WinApp.h: its registry key or INI file), section "WindowPos",
// entry pszKey:
//   SaveWindowPlacement  "maximised,left,top,right,bottom" (the normal
//                        rectangle, in screen coordinates)
//   SaveWindowPos        "left,top"
// A restored rectangle is pulled back onto the virtual screen, so a window
// never reopens out of reach after a monitor was removed. Without an
// application object nothing is saved and nothing restored.
#pragma once

#include <windows.h>

#include "framework/Export.h"
#include "framework/Wnd.h"

// Saves the maximised flag and normal rectangle of pWnd; a minimised window
// is not saved (TRUE), so its last normal placement survives. The profile
// write's result.
extern "C" TQM_CAPI BOOL WINAPI SaveWindowPlacement(CWnd* pWnd, const char* pszKey);
// Moves pWnd to the saved rectangle (fitted onto the screen, at least 50 by
// 50) and maximises it if it was. Nothing else: a minimised or maximised
// window is not restored first, and is not activated. FALSE, leaving the
// window alone, when the entry is missing or has fewer than five numbers.
extern "C" TQM_CAPI BOOL WINAPI RestoreWindowPlacement(CWnd* pWnd, const char* pszKey);
// Saves the top-left corner of pWnd's window rectangle; the write's result.
extern "C" TQM_CAPI BOOL WINAPI SaveWindowPos(CWnd* pWnd, const char* pszKey);
// Moves pWnd, keeping its size, so that its top-left corner is the saved one
// (fitted onto the screen), and shows it. FALSE when the entry is not two
// numbers; else the result of SetWindowPos.
extern "C" TQM_CAPI BOOL WINAPI RestoreWindowPos(CWnd* pWnd, const char* pszKey);

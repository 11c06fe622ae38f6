// TarnMessageBox, TarnHexDump, TarnVerbose - developer-facing output: boxes,
// and lines for the trace viewer (window class "MfxTraceWindow") or the
// project manager's window.
#pragma once

#include <windows.h>

#include "framework/Export.h"

// Verbose flags: severity (top four bits) and destination (next four).
#define TARN_VERBOSE_ERROR 0x10000000     // prefix "Error: "
#define TARN_VERBOSE_WARNING 0x20000000   // prefix "Warning: "
#define TARN_VERBOSE_TO_VMX 0x01000000    // to the project manager, no thread number

// Formats at most 1024 characters and shows them in a box with OK.
extern "C" TQM_CAPI void __cdecl TarnMessageBox(const char* pszFormat, ...);
// The same with the format from the program's resources.
TQM_CPPAPI void __cdecl TarnMessageBox(UINT nFormatID, ...);

// Sends the bytes to the trace viewer as hex dump lines of 16 bytes; true
// when every line arrived.
extern "C" TQM_CAPI bool WINAPI TarnHexDump(const BYTE* pData, int nLength);

// Sends one formatted line to its receiver; true when it arrived.
extern "C" TQM_CAPI bool __cdecl TarnVerbose(int nFlags, const char* pszFormat, ...);
// The same with the format from the program's resources.
TQM_CPPAPI bool __cdecl TarnVerbose(int nFlags, UINT nFormatID, ...);

// TQMCrc32Partial, TQMCrc32 - the CRC-32 of ISO-HDLC / zlib / PKZIP.
// CrcInit, CrcCalc, CrcFileCalc - the CCITT CRC-16 (not reflected; from a
// start value of 0 it is CRC-16/XMODEM).
//
// The two families share nothing: different tables, widths and bit order.
// The checksum of record files is the CRC-32 (datafiles/RecFile.h).
#pragma once

#include <windows.h>

#include "framework/Export.h"

// The running CRC-32 after the bytes, not inverted. To checksum a stream in
// pieces, start with 0xFFFFFFFF, pass each result into the next call and
// invert the last one.
extern "C" TQM_CAPI DWORD WINAPI TQMCrc32Partial(DWORD dwCrc, const void* pData, UINT nLength);
// The complete CRC-32 of a block: TQMCrc32Partial(0xFFFFFFFF, ...) inverted.
extern "C" TQM_CAPI DWORD WINAPI TQMCrc32(const void* pData, UINT nLength);

// Prepares the CRC-16 table. CrcCalc does not need it; programs that call it
// first lose nothing.
extern "C" TQM_CAPI void WINAPI CrcInit();
// The running CRC-16 after the bytes, from the start value wCrc; no final
// exclusive-or.
extern "C" TQM_CAPI WORD WINAPI CrcCalc(WORD wCrc, void* pData, UINT nLength);
// The CRC-16 (from 0) of a text file's head: the bytes before the first zero
// byte within the first 1024 bytes. 0 when the file cannot be opened, after
// a "System Error" box owned by hWndOwner.
extern "C" TQM_CAPI WORD WINAPI CrcFileCalc(HWND hWndOwner, const char* pszPath);

// TQMGetLibLanguage, TQMGetAppLanguage, TQMGetUsableLibLanguage,
// TQMGetLibHelpFilePath, TQMDisplayLibraryHelp - the language a library is
// shown in, and its help in that language.
//
// The user chooses two languages in the options file (TQMGetVMXOptionsFilePath,
// section "VMX"): "LibLanguage" for libraries and "AppLanguage" for the
// suite's programs, each a two-letter code ("en", "fr", "de", "it", "hu",
// "nl"); only the first two characters of a value count, so "english" is
// "en". A missing or empty value is "en".
//
// A library lists its languages in [Languages] "Count" and "Lang0", "Lang1",
// ...; the section named by a code holds that language's "Name" and
// "HelpFile" (relative to the description's folder).
#pragma once

#include <windows.h>

#include "framework/CString.h"
#include "framework/Export.h"

// The preferred language of libraries into code (at least 3 bytes).
extern "C" TQM_CAPI void WINAPI TQMGetLibLanguage(char* code);
TQM_CPPAPI CString WINAPI TQMGetLibLanguage();

// The language of the suite's programs into code (at least 3 bytes).
extern "C" TQM_CAPI void WINAPI TQMGetAppLanguage(char* code);
TQM_CPPAPI CString WINAPI TQMGetAppLanguage();

// The language to show the library in, into code (at least 3 bytes): the
// preferred one when the library lists it, else its first language ("en" when
// it lists none). TRUE only when the preferred language was found. Deliberate
// and relied upon: the first listed language is never compared with the
// preferred one, so a library whose first language is the preferred one gets
// it as the fallback, with FALSE.
extern "C" TQM_CAPI BOOL WINAPI TQMGetUsableLibLanguage(const char* descriptionFile, char* code);

// The full path of the library's help file in its usable language into path
// (MAX_PATH bytes; a longer path is cut); FALSE and "" when the description
// names none.
extern "C" TQM_CAPI BOOL WINAPI TQMGetLibHelpFilePath(const char* descriptionFile, char* path);

// Shows the library's help at keyword (NULL or "" for its contents) with the
// viewer its kind needs: Windows Help for ".hlp", HTML Help for ".chm", and
// the program the shell associates with anything else (or the shell's choice
// of program, when none is). Problems are shown in boxes captioned "Library
// Help", owned by owner, and give FALSE. Call it on a thread that may own
// windows.
extern "C" TQM_CAPI BOOL WINAPI TQMDisplayLibraryHelp(HWND owner, const char* descriptionFile, const char* keyword);

/*
 * Tqmlib52.h - the plain functions of Tqmlib52.dll for C and C++ programs.
 *
 * Compiles as C89, C99 and C++. Every function carries the calling convention
 * the DLL was built with (WINAPI, or __cdecl for the ones that take a variable
 * argument list or that the suite has always called that way), so programs
 * built by MinGW and by Microsoft's compiler bind to the same exports.
 *
 * Texts are 8-bit in the system code page. Buffers named dst, out or
 * resultPath hold MAX_PATH characters unless a size is passed with them.
 *
 * The functions that take or return the framework's C++ types (CString,
 * CStringArray, CWnd) and the exported classes are declared in the C++
 * headers beside this one (config/, paths/, libcatalog/, datafiles/, ipc/,
 * diag/, ui/, framework/).
 */
#ifndef TQMLIB52_H
#define TQMLIB52_H

#include <windows.h>

#ifndef TQMLIB52_API
#define TQMLIB52_API __declspec(dllimport)
#endif

/* A truth value of one byte, as the debugging functions return it: bool in
   C++, an unsigned char holding 0 or 1 in C. */
#ifdef __cplusplus
typedef bool TQMBOOL8;
#else
typedef unsigned char TQMBOOL8;
#endif

#ifndef TQM_IDTABLE_DEFINED
#define TQM_IDTABLE_DEFINED
/* One pair of an identifier table; the pair whose name is NULL closes the
   table and holds its default id. */
typedef struct tagIDTABLE
{
    const char* pszName;
    int nID;
} IDTABLE;
#endif

/* Answers a box the library would show: the button a user would have pressed. */
typedef int(CALLBACK* TQMMESSAGEBOXHOOK)(HWND hWndOwner, const char* pszText, const char* pszCaption, UINT uType,
                                         void* pContext);

/* Flags of TarnVerbose: severity (top four bits) and destination (next four). */
#define TARN_VERBOSE_ERROR 0x10000000     /* prefix "Error: " */
#define TARN_VERBOSE_WARNING 0x20000000   /* prefix "Warning: " */
#define TARN_VERBOSE_TO_VMX 0x01000000    /* to the project manager, no thread number */
#define TARN_VERBOSE_NO_THREAD 0x02000000 /* to the trace viewer, no thread number */

#ifndef TQM_EXCHANGEDATA_DEFINED
#define TQM_EXCHANGEDATA_DEFINED
/* What ExchangeData sends and receives. */
typedef struct tagEXCHANGEDATA
{
    HWND hWndPartner;           /* receives the request */
    HWND hWndOwner;             /* the sender's window: gets the reply, owns error boxes */
    const char* pszSectionName; /* the request section's name */
    DWORD dwRequestSize;        /* request bytes, at most TQM_EXCHANGE_REQUEST_SIZE */
    const void* pRequest;
    DWORD dwReplySize;          /* out: reply bytes */
    void* pReply;               /* out: the reply and one zero byte; free with HeapFree(GetProcessHeap(), ...) */
} EXCHANGEDATA;
#endif

#ifndef TQM_EXECAPPINFO_DEFINED
#define TQM_EXECAPPINFO_DEFINED
/* What ExecApp found of the program it started. */
typedef struct tagEXECAPPINFO
{
    HINSTANCE hInstance; /* the main window's instance, 0 if none */
    HWND hWndMain;       /* the program's main window, 0 if none was found */
    HANDLE hProcess;     /* already closed when ExecApp returns */
    HANDLE hThread;      /* already closed when ExecApp returns */
    DWORD dwProcessId;
    DWORD dwThreadId;
} EXECAPPINFO;
#endif

/* The largest request ExchangeData sends, in bytes. */
#define TQM_EXCHANGE_REQUEST_SIZE 10240
/* The longest string a molecule holds. */
#define TQM_MOLECULE_MAX_LENGTH 6629
/* PostMessageAndWaitAck's result when the receiving window went away. */
#define TQM_ACK_PARTNER_GONE ((LRESULT)0xFFFFFFFFu)
/* Levels of TQMDisplayMessage (0 or less: derived from the text). */
#define TARN_MESSAGE_WARNING 1
#define TARN_MESSAGE_ERROR 2

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Strings and tokens ---- */

/* The first character of p that is NUL or not an isspace blank. */
TQMLIB52_API char* WINAPI TQMSkipWhite(char* p);
/* The first character of p that is NUL or an isspace blank. */
TQMLIB52_API char* WINAPI TQMSkipBlack(char* p);
/* Cuts the trailing blanks off s in place; the new length. */
TQMLIB52_API int WINAPI TQMTrimRight(char* s);
/* 1 for 32 and 9 to 13, else 0. */
TQMLIB52_API int WINAPI IsCharSpace(unsigned char c);
/* The first character of p for which IsCharSpace does not hold (or its NUL). */
TQMLIB52_API char* WINAPI SkipSpace(char* p);
/* The first character of p for which IsCharSpace holds (or its NUL). */
TQMLIB52_API char* WINAPI SkipChar(char* p);
/* Inserts ins into s before index pos (the caller provides the room); returns s. */
TQMLIB52_API char* __cdecl TQMInsertString(char* s, int pos, const char* ins);
/* c folded to upper case with the library's table (the code page at load time). */
TQMLIB52_API char WINAPI TQMToUpper(unsigned char c);
/* <0, 0 or >0: names compared without case, embedded numbers by value. */
TQMLIB52_API int WINAPI TQMSymCmp(const char* a, const char* b);
/* The index of the first c outside quotes in s at or after start; -1 when none. */
TQMLIB52_API int __cdecl TQMFindChar(const char* s, char c, int start);
/* The same for any character of set. */
TQMLIB52_API int __cdecl TQMFindAnyChar(const char* s, const char* set, int start);
/* Loads string id of the library's table into buf (size characters with the NUL); returns buf. */
TQMLIB52_API char* WINAPI fSString(unsigned short id, char* buf, int size);
/* String id of the library's table in one of two static buffers used in turn. */
TQMLIB52_API const char* WINAPI _fString(unsigned short id);

/* ---- Identifier tables ---- */

/* The id of name (case-sensitive), or the table's default id. */
TQMLIB52_API int WINAPI StringToID(const IDTABLE* table, const char* name);
/* The name of id, the default's name for an unknown id; NULL when there is none. */
TQMLIB52_API const char* WINAPI IDToString(const IDTABLE* table, int id);
/* The table's default id. */
TQMLIB52_API int WINAPI DefaultID(const IDTABLE* table);
/* The name of the table's default id, or NULL. */
TQMLIB52_API const char* WINAPI DefaultString(const IDTABLE* table);

/* ---- Profile files, the suite's settings and the registry ---- */

/* A key of a section of a profile file as a decimal number; nDefault when missing or not a number. */
TQMLIB52_API int WINAPI TQMGetProfileInt(const char* pszSection, const char* pszKey, int nDefault,
                                         const char* pszFile);
/* Writes a number to a profile file; the system call's result. */
TQMLIB52_API int WINAPI WritePrivateProfileInt(const char* pszSection, const char* pszKey, int nValue,
                                               const char* pszFile);
/* Writes a number to a profile file and flushes the system's cached copy; the write's result. */
TQMLIB52_API int WINAPI TQMWritePrivateProfileInt(const char* pszSection, const char* pszKey, int nValue,
                                                  const char* pszFile);
/* A number of the suite's settings (HKEY_CURRENT_USER or HKEY_LOCAL_MACHINE), or nDefault. */
TQMLIB52_API UINT WINAPI TQMGetQM5ProfileInt(HKEY hBaseKey, const char* lpszSection, const char* lpszEntry,
                                             int nDefault);
/* Writes a number to the suite's settings (NULL entry: removes the section); TRUE when taken. */
TQMLIB52_API BOOL WINAPI TQMSetQM5ProfileInt(HKEY hBaseKey, const char* lpszSection, const char* lpszEntry,
                                             UINT nValue);
/* Writes text to the suite's settings (NULL value: removes the entry); TRUE when taken. */
TQMLIB52_API BOOL WINAPI TQMSetQM5ProfileString(HKEY hBaseKey, const char* lpszSection, const char* lpszEntry,
                                                const char* lpszValue);
/* A REG_SZ value below hKey\subKey into out (512 bytes); TRUE when it was read whole. */
TQMLIB52_API BOOL WINAPI TQMReadRegistryString(HKEY hKey, const char* subKey, const char* valueName, char* out);

/* ---- Installation directories ---- */

/* The projects folder into dst; its length. */
TQMLIB52_API int WINAPI TQMGetProjectsDir(char* dst);
/* The function-block libraries' folder into dst; its length. */
TQMLIB52_API int WINAPI TQMGetLibsDir(char* dst);
/* The folder of the suite's programs into dst; its length. */
TQMLIB52_API int WINAPI TQMGetAppsDir(char* dst);
/* The templates folder into dst; its length. */
TQMLIB52_API int WINAPI TQMGetTemplatesDir(char* dst);
/* The machine-wide data folder (common documents) into dst; its length. */
TQMLIB52_API int WINAPI TQMGetLocalDir(char* dst);
/* The user's folder of the suite (local application data) into dst; its length. */
TQMLIB52_API int WINAPI TQMGetUserDir(char* dst);
/* The suite's folder in the user's roaming application data into dst; its length. */
TQMLIB52_API int WINAPI TQMGetUserAppDataDir(char* dst);
/* The suite's folder in the user's local application data into dst; its length. */
TQMLIB52_API int WINAPI TQMGetUserLocalAppDataDir(char* dst);
/* The suite's folder in the machine's application data into dst; its length. */
TQMLIB52_API int WINAPI TQMGetCommonAppDataDir(char* dst);
/* The suite's folder beside the user's documents into dst; its length. */
TQMLIB52_API int WINAPI TQMGetUserDocumentsDir(char* dst);
/* The suite's folder beside the common documents into dst; its length. */
TQMLIB52_API int WINAPI TQMGetCommonDocumentsDir(char* dst);
/* The documentation folder (the common documents folder) into dst; its length. */
TQMLIB52_API int WINAPI TQMGetDocsDir(char* dst);
/* The system's temporary folder + "Tarn-Holmvik" into dst; returns dst. */
TQMLIB52_API char* WINAPI TQMGetTempDir(char* dst);
/* The user's options file, "VMXOptions.ini" in the user directory, into dst; its length. */
TQMLIB52_API int WINAPI TQMGetVMXOptionsFilePath(char* dst);
/* A key of section "VMX" of the options file into value (size characters); the characters copied. */
TQMLIB52_API DWORD WINAPI TQMGetVMXOption(const char* key, char* value, DWORD size);
/* The suite's key below "Software", "Tarn-Holmvik\QM5\<version>", into dst; its length. */
TQMLIB52_API int WINAPI TQMGetQM5BaseRegistryKey(char* dst);
/* The programs' folder with a trailing backslash into dst; returns dst. */
TQMLIB52_API char* WINAPI GetQM4AppsDir(char* dst);
/* The machine-wide data folder with a trailing backslash into dst; returns dst. */
TQMLIB52_API char* WINAPI GetQM4LocalDir(char* dst);
/* The projects folder with a trailing backslash into dst; returns dst. */
TQMLIB52_API char* WINAPI GetQM4ProjectsDir(char* dst);

/* ---- Path names and path tags ---- */

/* Nonzero if path is a well-formed path by the suite's rules (? and * only when allowWildcards). */
TQMLIB52_API int WINAPI TQMIsValidPathName(const char* path, int allowWildcards);
/* TRUE for a valid name without a folder part (and without an extension unless allowExtension). */
TQMLIB52_API BOOL WINAPI TQMIsValidFileName(const char* name, BOOL allowExtension);
/* TRUE if name begins with a dot or holds a backslash, a slash or a colon. */
TQMLIB52_API BOOL WINAPI TQMHasDir(const char* name);
/* Removes every trailing backslash of path in place. */
TQMLIB52_API void WINAPI TQMStripTrailingBackslash(char* path);
/* Creates path and every missing folder above it; FALSE when anything failed. */
TQMLIB52_API BOOL WINAPI TQMCreateDir(const char* path);
/* path with its leading directory replaced by a tag, into dst when it fits; its length. */
TQMLIB52_API int WINAPI TQMSubstAppPathTags(const char* path, char* dst);
/* path with its leading tag expanded, into dst when it fits; its length. */
TQMLIB52_API int WINAPI TQMUnSubstAppPathTags(const char* path, char* dst);
/* TQMSubstAppPathTags trying devDir and projDir first as <$DevDir> and <$ProjDir>. */
TQMLIB52_API int WINAPI TQMSubstAppPathTagsEx(const char* path, const char* projDir, const char* devDir,
                                              char* dst);
/* TQMUnSubstAppPathTags expanding <$DevDir> and <$ProjDir> to devDir and projDir. */
TQMLIB52_API int WINAPI TQMUnSubstAppPathTagsEx(const char* path, const char* projDir, const char* devDir,
                                                char* dst);

/* ---- File operations ---- */

/* Deletes a file, a folder or what a pattern matches, to the recycle bin if asked. */
TQMLIB52_API BOOL WINAPI TQMDelete(const char* path, BOOL toRecycleBin);
/* Renames oldPath to newPath, replacing an existing file. */
TQMLIB52_API BOOL WINAPI TQMRename(const char* oldPath, const char* newPath);
/* Moves a file or folder, making the folders on the way to the target. */
TQMLIB52_API BOOL WINAPI TQMMove(const char* from, const char* to);
/* Copies a file or folder, overwriting existing files. */
TQMLIB52_API BOOL WINAPI TQMCopy(const char* from, const char* to);
/* Copies everything inside fromDir into toDir. */
TQMLIB52_API BOOL WINAPI TQMCopyDir(const char* fromDir, const char* toDir);
/* Sets or clears the read-only attribute of a file or folder. */
TQMLIB52_API BOOL WINAPI TQMSetReadOnly(const char* path, BOOL readOnly);
/* Sets or clears the read-only attribute of everything inside dir. */
TQMLIB52_API BOOL WINAPI TQMSetDirReadOnly(const char* dir, BOOL readOnly, BOOL recursive);
/* TRUE for a read-only file or folder, or a folder holding a read-only file. */
TQMLIB52_API BOOL WINAPI TQMIsReadOnly(const char* path);
/* TRUE if path lies on a removable drive, a CD drive or a RAM disk. */
TQMLIB52_API BOOL WINAPI TQMIsOnRemovableDrive(const char* path);
/* TRUE if path names an existing file or folder. */
TQMLIB52_API BOOL WINAPI TQMFileExists(const char* path);
/* TRUE if both files exist and hold the same bytes. */
TQMLIB52_API BOOL WINAPI TQMCompareFiles(const char* path1, const char* path2);
/* TRUE if name matches pattern (? one character, * any run; case ignored). */
TQMLIB52_API BOOL WINAPI TQMWildcardCompare(const char* pattern, const char* name);
/* Opens the shell's properties sheet of path. */
TQMLIB52_API void WINAPI TQMFileProperties(const char* path);

/* ---- Environment and versions ---- */

/* Makes the suite's folders where they are missing. */
TQMLIB52_API void WINAPI TQMCreateEnvironment(void);
/* The writable settings file fileName (copied from its installed default if new) into resultPath. */
TQMLIB52_API void WINAPI TQMCopySettingsFile(const char* fileName, BOOL machineWide, char* resultPath);
/* The calling program's version code (major * 10000 + minor * 1000 + build); -1 without one. */
TQMLIB52_API int WINAPI TQMGetAppVersionInt(void);
/* The version code of the project manager, "Vmx52.exe"; -1 when it is not found. */
TQMLIB52_API int WINAPI TQMGetVMXVersion(void);
/* The Windows family: 0 unknown, 1 Win32s, 2 Windows 95, 3 Windows 98 or Me, 4 NT. */
TQMLIB52_API int WINAPI TQMGetWindowsVersion(void);

/* ---- Library catalogue ---- */

/* Library lists are global memory blocks of NUL-terminated strings closed by
   one more NUL; the caller frees them with GlobalFree. */

/* The full paths of all installed library descriptions (one per library ID with removeDuplicates); NULL when memory fails. */
TQMLIB52_API HGLOBAL WINAPI TQMGetInstalledLibraries(BOOL removeDuplicates);
/* The descriptions the project file names; NULL when it does not exist or memory fails. */
TQMLIB52_API HGLOBAL WINAPI TQMGetProjectLibraries(const char* projectFile);
/* The other libraries (installed, or the project's) with the ID id, as "name\tid\tversion\tdistributor\t" lines; NULL when none. */
TQMLIB52_API HGLOBAL WINAPI TQMCheckLibraryID(const char* id, const char* ownName, const char* projectFile);
/* The version number of a library version text into *value (always written); TRUE when well-formed. */
TQMLIB52_API BOOL WINAPI TQMParseLibraryVersion(const char* text, DWORD* value);
/* Every file of the library the description names, the description first; messages, if not NULL, gets problem lines. */
TQMLIB52_API HGLOBAL WINAPI TQMGetLibraryFiles(const char* descriptionFile, HGLOBAL* messages);
/* Old libraries still to convert in the tab-separated folders; NULL when stopped or memory fails. */
TQMLIB52_API HGLOBAL WINAPI TQMGetConvertableLibraries(const char* folders, BOOL recurse);
/* Stops a running TQMGetConvertableLibraries scan; safe from any thread. */
TQMLIB52_API void WINAPI TQMStopGetConvertableLibraries(void);
/* The preferred language of libraries into code (at least 3 bytes). */
TQMLIB52_API void WINAPI TQMGetLibLanguage(char* code);
/* The language of the suite's programs into code (at least 3 bytes). */
TQMLIB52_API void WINAPI TQMGetAppLanguage(char* code);
/* The language to show the library in into code (3 bytes): the preferred one if listed, else its first; TRUE only for the preferred. */
TQMLIB52_API BOOL WINAPI TQMGetUsableLibLanguage(const char* descriptionFile, char* code);
/* The library's help file in its usable language into path (MAX_PATH); FALSE and "" when it names none. */
TQMLIB52_API BOOL WINAPI TQMGetLibHelpFilePath(const char* descriptionFile, char* path);
/* Shows the library's help at keyword (NULL: its contents); FALSE after a box owned by owner on a problem. */
TQMLIB52_API BOOL WINAPI TQMDisplayLibraryHelp(HWND owner, const char* descriptionFile, const char* keyword);

/* ---- CRC ---- */

/* The running CRC-32 after the bytes: start with 0xFFFFFFFF, invert the last result. */
TQMLIB52_API DWORD WINAPI TQMCrc32Partial(DWORD dwCrc, const void* pData, UINT nLength);
/* The complete CRC-32 (zlib, PKZIP) of a block. */
TQMLIB52_API DWORD WINAPI TQMCrc32(const void* pData, UINT nLength);
/* Prepares the CRC-16 table. */
TQMLIB52_API void WINAPI CrcInit(void);
/* The running CRC-16 (CCITT, not reflected) after the bytes, from wCrc. */
TQMLIB52_API WORD WINAPI CrcCalc(WORD wCrc, void* pData, UINT nLength);
/* The CRC-16 of a text file's head (before the first zero byte in the first 1024); 0 on failure. */
TQMLIB52_API WORD WINAPI CrcFileCalc(HWND hWndOwner, const char* pszPath);

/* ---- Cooperation between the suite's processes ---- */

/* A global atom for a string of up to TQM_MOLECULE_MAX_LENGTH characters (a molecule when long); 0 on failure. */
TQMLIB52_API ATOM WINAPI GlobalAddMolecule(const char* pszString);
/* At most nSize - 1 characters of the molecule's string into pszBuffer, terminated; the number copied. */
TQMLIB52_API int WINAPI GlobalGetMoleculeName(ATOM nAtom, char* pszBuffer, int nSize);
/* Deletes the molecule's pieces and head; 0 on success. */
TQMLIB52_API ATOM WINAPI GlobalDeleteMolecule(ATOM nAtom);
/* The registered message number of "Tarn52.MsgAck". */
TQMLIB52_API UINT WINAPI RegisterQM4AckMessage(void);
/* Posts nMsg to hWnd and waits for an acknowledgement: its lParam, TQM_ACK_PARTNER_GONE, or 0 when a quit message ended the wait. */
TQMLIB52_API LRESULT WINAPI PostMessageAndWaitAck(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam);
/* Acknowledges to the waiting sender's window hWnd with lResult. */
TQMLIB52_API BOOL WINAPI PostAckMessage(HWND hWnd, LPARAM lResult);
/* Hands the request to pData->hWndPartner through shared memory and waits for its reply; FALSE after a box on failure. */
TQMLIB52_API BOOL WINAPI ExchangeData(EXCHANGEDATA* pData);
/* Tells the project manager that a file was saved; TRUE when it runs. */
TQMLIB52_API BOOL WINAPI TQMNotifyFileSaved(const char* filePath, const char* info);
/* Shows text in the project manager's message window at level (TARN_MESSAGE_...); TRUE when it runs. */
TQMLIB52_API BOOL WINAPI TQMDisplayMessage(const char* text, int level);
/* Does nothing: kept so that programs built for tracing link unchanged. */
TQMLIB52_API void WINAPI TQMTRACE(const char* text);
/* Starts the suite's program pszApp from the applications directory and finds its main window; FALSE when it could not start. */
TQMLIB52_API BOOL WINAPI ExecApp(HWND hWndParent, const char* pszApp, const char* pszArgs, EXECAPPINFO* pInfo, WORD nShow);
/* TRUE while the program ExecApp started still has its main window and runs. */
TQMLIB52_API BOOL WINAPI IsAppRunning(EXECAPPINFO* pInfo);
/* The next line of the file opened with OpenFile or _lopen into pszLine (at most nSize - 1 bytes, CRs removed); FALSE at the end or on an error. */
TQMLIB52_API BOOL WINAPI ReadFileLine(HFILE hFile, char* pszLine, UINT nSize);
/* The desktop docking settings: dock position (1 none, 2 to 5 left, right, top, bottom) and whether dialogs dock; either may be NULL. */
TQMLIB52_API void WINAPI DesktopDocking_GetSettings(int* pDockPos, BOOL* pDockDialogs);
/* Fits a dialog box beside the docked project manager; FALSE when there is nothing to fit to. */
TQMLIB52_API BOOL WINAPI DesktopDocking_SizeWindowToManager(HWND hWnd);

/* ---- Diagnostics ---- */

/* Installs the hook that answers every box of the library (NULL removes it). */
TQMLIB52_API void WINAPI TQMSetMessageBoxHook(TQMMESSAGEBOXHOOK pfnHook, void* pContext);
/* Message nID of the library's table with its arguments in a "System Error" box; the box's result. */
TQMLIB52_API int WINAPI SystemError(HWND hWndOwner, WORD nID, const char* pszArg, int nArg);
/* The same under "System Info", the first argument a number. */
TQMLIB52_API int WINAPI SystemInfo(HWND hWndOwner, WORD nID, DWORD dwArg, int nArg);
/* The system's text for the thread's last error code in a "System Error" box. */
TQMLIB52_API void WINAPI LastError(HWND hWndOwner);
/* "Error <nID>: <message nID>" formatted with the arguments, in a box. */
TQMLIB52_API void __cdecl DllError(UINT nID, ...);
/* Reports a failed check to the trace viewer, then offers Abort, Retry or Ignore. */
TQMLIB52_API TQMBOOL8 WINAPI TarnDebug(const char* pszMacro, const char* pszExpr, const char* pszFile, int nLine);
/* Formats at most 1024 characters into a box with OK. */
TQMLIB52_API void __cdecl TarnMessageBox(const char* pszFormat, ...);
/* Sends the bytes to the trace viewer as hex dump lines; true when every line arrived. */
TQMLIB52_API TQMBOOL8 WINAPI TarnHexDump(const BYTE* pData, int nLength);
/* Sends one formatted line to the trace viewer or the project manager; true when it arrived. */
TQMLIB52_API TQMBOOL8 __cdecl TarnVerbose(int nFlags, const char* pszFormat, ...);


/* ---- Window helpers ---- */

/* 1 when hWnd is a window of the class className, else 0. */
TQMLIB52_API BOOL WINAPI IsWindowOfClass(HWND hWnd, const char* className);
/* Destroys every descendant of hParent of the class className (all when NULL). */
TQMLIB52_API BOOL WINAPI DestroyWindowsOfClass(HWND hParent, const char* className);
/* Repaints at once every descendant of hParent of the class className. */
TQMLIB52_API BOOL WINAPI UpdateChildWindows(HWND hParent, const char* className);
/* The last window up the chain of parents and owners of hWnd; hWnd when it has none. */
TQMLIB52_API HWND WINAPI GetWindowGrandParent(HWND hWnd);
/* The topmost window of the class className whose rectangle holds the screen point pt; NULL if none. */
TQMLIB52_API HWND WINAPI IsClassNameStackAtPt(POINT pt, const char* className);
/* Centres hWnd on hRef, kept on the primary screen where it fits; the result of SetWindowPos. */
TQMLIB52_API BOOL WINAPI CenterWnd(HWND hWnd, HWND hRef);
/* 1 when hWnd is a topmost window, else 0. */
TQMLIB52_API BOOL WINAPI IsTopMost(HWND hWnd);
/* Centres hWnd on the desktop unless desktop docking is off. */
TQMLIB52_API void WINAPI TQMCenterWindow(HWND hWnd);

#ifdef __cplusplus
}
#endif

#endif /* TQMLIB52_H */

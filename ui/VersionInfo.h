// CVersionInfo - reads the version resource of a program or library file:
// its fixed file information (the numeric version) and the string-table
// entries ("FileVersion", "ProductVersion", ...) of the file's first language.
//
// The object has one state, IsOk(), which Init sets and every later query
// overwrites. A failed StringFileInfo lookup therefore makes all later
// lookups on the same object come back empty: use one object per question,
// or read the names in order of importance.
//
//     CVersionInfo info;
//     if (info.Init("Tqmlib52.dll"))
//         CString version = info.StringFileInfo("ProductVersion");
#pragma once

#include <windows.h>

#include "framework/CString.h"
#include "framework/Export.h"

// The version resource of a program or library file.
class TQM_CLASS CVersionInfo
{
public:
    // Construction
    CVersionInfo();
    ~CVersionInfo();
    CVersionInfo(const CVersionInfo&) = delete;
    CVersionInfo& operator=(const CVersionInfo&) = delete;

    // Loads the version resource of path; an empty path means the calling
    // program's own file. A name without a folder is searched for as the
    // system searches for modules. Returns IsOk().
    BOOL Init(const CString& path);

    // Attributes
    BOOL IsOk() const { return m_bOk; }

    // The fixed file information, or NULL; check IsOk() afterwards.
    const VS_FIXEDFILEINFO* GetFixedFileInfo();
    // The entry name of the string table of the first language ("FileVersion"),
    // or the empty string when it is missing or the object is not ok.
    CString StringFileInfo(const char* name);
    // The name of the first language ("English (United States)"), or empty.
    CString Language();

    // The first language's id (high word) and code page (low word), as the
    // string table's block name spells them: 0x040904b0.
    DWORD GetLangCodePage() const { return m_dwLangCodePage; }

protected:
    BYTE* m_pData;                    // the whole resource; owned
    DWORD m_dwHandle;                 // as GetFileVersionInfoSize returns it
    DWORD m_dwLangCodePage;           // language in the high word, code page in the low
    WORD m_wLanguage;                 // the language alone
    BOOL m_bOk;                       // state of the last operation
    VS_FIXEDFILEINFO* m_pFixedInfo;   // into m_pData, set by GetFixedFileInfo

private:
    void freeData();
};

// CWinApp, AfxGetApp - the calling program's application object, as far as
// its profile goes: where the program keeps its own settings.
//
// As in MFC, a program makes one application object at start-up (usually a
// global `CMyApp theApp;`), and its constructor registers it as the process's
// application, which AfxGetApp() returns. The program then chooses where its
// profile lives:
//
//   - SetRegistryKey("Company"): the registry, below
//     HKEY_CURRENT_USER\Software\<company>\<application>\<section>, where each
//     entry is a value (strings REG_SZ, numbers REG_DWORD);
//   - SetProfileFile("C:\\...\\App.ini"): an INI file, read and written with
//     the system's private-profile functions (give a full path).
//
// Unlike MFC there is no default INI file in the Windows folder: a program
// that chose neither gets defaults from the readers, FALSE from the writers
// and NULL keys, and nothing is written anywhere. The same holds for every
// profile call made while no application object exists.
//
// The object lives in the program; its members and the registration live in
// the library, so the library's own code (CRegistry, window placement) works
// with whatever the program chose. A second object made while one exists
// stands in for it until destroyed, and the earlier one is current again.
// Nothing is locked: make and destroy application objects on one thread, as
// programs do at start-up and exit.
#pragma once

#include <windows.h>

#include "framework/CString.h"
#include "framework/Export.h"

// The program's application object: its name and where its own settings live.
class TQM_CLASS CWinApp
{
public:
    // Construction: pszAppName names the application in its registry key; by
    // default the program file's name without its extension ("Vmx52").
    explicit CWinApp(const char* pszAppName = nullptr);
    virtual ~CWinApp();
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;

    // Where the profile lives
    // The registry form below HKEY_CURRENT_USER\Software\<pszCompany>. An
    // empty or NULL company makes no choice.
    void SetRegistryKey(const char* pszCompany);
    // The INI form in the file pszPath. An empty or NULL path makes no choice.
    void SetProfileFile(const char* pszPath);

    // Attributes
    const CString& GetAppName() const { return m_strAppName; }
    // The company of the registry form; empty for the INI form.
    const CString& GetRegistryKey() const { return m_strRegistryKey; }
    // The application name in the registry form, the file in the INI form,
    // empty when no choice was made (MFC's m_pszProfileName).
    const CString& GetProfileName() const { return m_strProfileName; }
    bool UsesRegistry() const { return !m_strRegistryKey.IsEmpty(); }
    bool UsesProfileFile() const { return m_strRegistryKey.IsEmpty() && !m_strProfileName.IsEmpty(); }

    // Operations on the profile
    // The entry's number, or nDefault when it is missing or not a number
    // (in the registry: not a REG_DWORD).
    UINT GetProfileInt(const char* pszSection, const char* pszEntry, int nDefault);
    // The entry's text, or pszDefault when it is missing (in the registry: not
    // a string value).
    CString GetProfileString(const char* pszSection, const char* pszEntry, const char* pszDefault = nullptr);
    // Writes a number (REG_DWORD, or "%d" in the file).
    BOOL WriteProfileInt(const char* pszSection, const char* pszEntry, int nValue);
    // Writes text. A NULL pszValue removes the entry; a NULL pszEntry removes
    // the whole section.
    BOOL WriteProfileString(const char* pszSection, const char* pszEntry, const char* pszValue);

    // Registry form only: HKCU\Software\<company>\<application>, opened (and
    // made if missing) for reading and writing; the caller closes it. NULL in
    // the INI form, without a choice, or when the key cannot be opened.
    HKEY GetAppRegistryKey();
    // The same for the section's key below it.
    HKEY GetSectionKey(const char* pszSection);

private:
    HKEY openSectionKey(const char* pszSection, bool bCreate, REGSAM access);

    CString m_strAppName;
    CString m_strRegistryKey;
    CString m_strProfileName;
    CWinApp* m_pPrevious;  // the application object this one stands in for
};

// The process's current application object, or NULL.
TQM_CPPAPI CWinApp* AfxGetApp();

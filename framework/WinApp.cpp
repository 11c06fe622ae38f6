// The application object's profile and the process's current application.
#include "framework/WinApp.h"

#include "framework/Handles.h"

#include <stdio.h>
#include <string.h>

#include <atomic>

namespace {

std::atomic<CWinApp*> g_pApp{nullptr};

// The program file's name without folder and extension.
CString programName()
{
    char path[MAX_PATH] = "";
    ::GetModuleFileNameA(nullptr, path, MAX_PATH);
    const char* name = strrchr(path, '\\');
    CString result(name ? name + 1 : path);
    const int dot = result.ReverseFind('.');
    if (dot > 0)
        result.Truncate(dot);
    return result;
}

bool isStringType(DWORD dwType) { return dwType == REG_SZ || dwType == REG_EXPAND_SZ; }

// The text of a string value, up to its first NUL; false when it is missing
// or not a string.
bool readStringValue(HKEY hKey, const char* pszEntry, CString& text)
{
    DWORD dwType = 0;
    DWORD dwSize = 0;
    if (::RegQueryValueExA(hKey, pszEntry, nullptr, &dwType, nullptr, &dwSize) != ERROR_SUCCESS ||
        !isStringType(dwType))
        return false;
    char* buffer = text.GetBuffer(static_cast<int>(dwSize) + 1);
    if (::RegQueryValueExA(hKey, pszEntry, nullptr, &dwType, reinterpret_cast<BYTE*>(buffer), &dwSize) !=
            ERROR_SUCCESS ||
        !isStringType(dwType)) {
        text.ReleaseBuffer(0);
        return false;
    }
    text.ReleaseBuffer(static_cast<int>(strnlen(buffer, dwSize)));
    return true;
}

// Removing what is not there leaves the profile as the caller wanted it.
BOOL removed(LONG lResult) { return lResult == ERROR_SUCCESS || lResult == ERROR_FILE_NOT_FOUND; }

}  // namespace

CWinApp* AfxGetApp() { return g_pApp.load(); }

CWinApp::CWinApp(const char* pszAppName)
    : m_strAppName(pszAppName && *pszAppName ? CString(pszAppName) : programName()), m_pPrevious(g_pApp.load())
{
    g_pApp.store(this);
}

CWinApp::~CWinApp()
{
    CWinApp* expected = this;
    g_pApp.compare_exchange_strong(expected, m_pPrevious);
}

void CWinApp::SetRegistryKey(const char* pszCompany)
{
    if (!pszCompany || !*pszCompany)
        return;
    m_strRegistryKey = pszCompany;
    m_strProfileName = m_strAppName;
}

void CWinApp::SetProfileFile(const char* pszPath)
{
    if (!pszPath || !*pszPath)
        return;
    m_strRegistryKey.Empty();
    m_strProfileName = pszPath;
}

HKEY CWinApp::openSectionKey(const char* pszSection, bool bCreate, REGSAM access)
{
    if (!UsesRegistry())
        return nullptr;
    CString path;
    path.Format("Software\\%s\\%s", m_strRegistryKey.GetString(), m_strProfileName.GetString());
    if (pszSection) {
        path += '\\';
        path += pszSection;
    }
    HKEY hKey = nullptr;
    const LONG lResult = bCreate ? ::RegCreateKeyExA(HKEY_CURRENT_USER, path, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                                     access, nullptr, &hKey, nullptr)
                                 : ::RegOpenKeyExA(HKEY_CURRENT_USER, path, 0, access, &hKey);
    return lResult == ERROR_SUCCESS ? hKey : nullptr;
}

HKEY CWinApp::GetAppRegistryKey() { return openSectionKey(nullptr, true, KEY_READ | KEY_WRITE); }

HKEY CWinApp::GetSectionKey(const char* pszSection)
{
    if (!pszSection)
        return nullptr;
    return openSectionKey(pszSection, true, KEY_READ | KEY_WRITE);
}

UINT CWinApp::GetProfileInt(const char* pszSection, const char* pszEntry, int nDefault)
{
    if (!pszSection || !pszEntry)
        return nDefault;
    if (UsesProfileFile())
        return ::GetPrivateProfileIntA(pszSection, pszEntry, nDefault, m_strProfileName);

    // Reading makes no keys: an application that never wrote its profile
    // leaves no trace in the registry.
    tqm::UniqueKey key(openSectionKey(pszSection, false, KEY_READ));
    if (!key)
        return nDefault;
    DWORD dwType = 0;
    DWORD dwValue = 0;
    DWORD dwSize = sizeof(dwValue);
    if (::RegQueryValueExA(key.get(), pszEntry, nullptr, &dwType, reinterpret_cast<BYTE*>(&dwValue), &dwSize) !=
            ERROR_SUCCESS ||
        dwType != REG_DWORD || dwSize != sizeof(dwValue))
        return nDefault;
    return dwValue;
}

CString CWinApp::GetProfileString(const char* pszSection, const char* pszEntry, const char* pszDefault)
{
    if (!pszSection || !pszEntry)
        return CString(pszDefault);
    if (UsesProfileFile()) {
        // The system cuts a long value to the buffer; grow until it fits.
        CString value;
        for (DWORD dwSize = 512;; dwSize *= 2) {
            char* buffer = value.GetBuffer(static_cast<int>(dwSize));
            const DWORD dwCopied = ::GetPrivateProfileStringA(pszSection, pszEntry, pszDefault ? pszDefault : "",
                                                              buffer, dwSize, m_strProfileName);
            value.ReleaseBuffer(static_cast<int>(dwCopied));
            if (dwCopied + 1 < dwSize || dwSize >= 0x100000)
                return value;
        }
    }

    tqm::UniqueKey key(openSectionKey(pszSection, false, KEY_READ));
    CString value;
    if (key && readStringValue(key.get(), pszEntry, value))
        return value;
    return CString(pszDefault);
}

BOOL CWinApp::WriteProfileInt(const char* pszSection, const char* pszEntry, int nValue)
{
    if (!pszSection || !pszEntry)
        return FALSE;
    if (UsesProfileFile()) {
        char text[16];
        snprintf(text, sizeof(text), "%d", nValue);
        return ::WritePrivateProfileStringA(pszSection, pszEntry, text, m_strProfileName) ? TRUE : FALSE;
    }

    tqm::UniqueKey key(GetSectionKey(pszSection));
    if (!key)
        return FALSE;
    const DWORD dwValue = static_cast<DWORD>(nValue);
    return ::RegSetValueExA(key.get(), pszEntry, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&dwValue),
                            sizeof(dwValue)) == ERROR_SUCCESS;
}

BOOL CWinApp::WriteProfileString(const char* pszSection, const char* pszEntry, const char* pszValue)
{
    if (!pszSection)
        return FALSE;
    if (UsesProfileFile())
        return ::WritePrivateProfileStringA(pszSection, pszEntry, pszValue, m_strProfileName) ? TRUE : FALSE;
    if (!UsesRegistry())
        return FALSE;

    if (!pszEntry) {
        tqm::UniqueKey appKey(GetAppRegistryKey());
        return appKey && removed(::RegDeleteKeyA(appKey.get(), pszSection));
    }
    if (!pszValue) {
        tqm::UniqueKey key(openSectionKey(pszSection, false, KEY_READ | KEY_WRITE));
        return !key || removed(::RegDeleteValueA(key.get(), pszEntry));
    }
    tqm::UniqueKey key(GetSectionKey(pszSection));
    if (!key)
        return FALSE;
    return ::RegSetValueExA(key.get(), pszEntry, 0, REG_SZ, reinterpret_cast<const BYTE*>(pszValue),
                            static_cast<DWORD>(strlen(pszValue) + 1)) == ERROR_SUCCESS;
}

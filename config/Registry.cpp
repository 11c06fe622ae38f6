// CRegistry: the program's own settings through its application object.
#include "config/Registry.h"

#include "diag/TarnAssert.h"
#include "framework/Handles.h"
#include "framework/WinApp.h"

#include <string.h>

#undef TARN_SOURCE
#define TARN_SOURCE "Registry"

CRegistry::CRegistry() = default;

CString CRegistry::GetString(const char* section, const char* entry, const char* def)
{
    CWinApp* pApp = AfxGetApp();
    return pApp ? pApp->GetProfileString(section, entry, def) : CString(def);
}

UINT CRegistry::GetInt(const char* section, const char* entry, int def)
{
    CWinApp* pApp = AfxGetApp();
    return pApp ? pApp->GetProfileInt(section, entry, def) : static_cast<UINT>(def);
}

BOOL CRegistry::WriteString(const char* section, const char* entry, const char* value)
{
    CWinApp* pApp = AfxGetApp();
    return pApp ? pApp->WriteProfileString(section, entry, value) : FALSE;
}

BOOL CRegistry::WriteInt(const char* section, const char* entry, int value)
{
    CWinApp* pApp = AfxGetApp();
    return pApp ? pApp->WriteProfileInt(section, entry, value) : FALSE;
}

BOOL CRegistry::RemoveEntry(const char* section, const char* entry)
{
    // A NULL entry would remove the whole section: removing one entry never does.
    if (!entry)
        return FALSE;
    return WriteString(section, entry, nullptr);
}

LONG CRegistry::EnumValue(const char* section, DWORD index, CString& name, CString& value)
{
    CWinApp* pApp = AfxGetApp();
    tqm::UniqueKey secKey(pApp ? pApp->GetSectionKey(section) : nullptr);
    HKEY hSecKey = secKey.get();
    TARN_ASSERT(hSecKey != NULL);
    name.Empty();
    value.Empty();
    if (!hSecKey)
        return ERROR_INVALID_HANDLE;

    DWORD cchMaxName = 0;
    DWORD cbMaxData = 0;
    LONG lResult = ::RegQueryInfoKeyA(hSecKey, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                      &cchMaxName, &cbMaxData, nullptr, nullptr);
    if (lResult != ERROR_SUCCESS)
        return lResult;
    DWORD cchName = cchMaxName + 1;
    DWORD cbData = cbMaxData + 1;
    DWORD dwType = REG_NONE;
    char* pszName = name.GetBuffer(static_cast<int>(cchName));
    char* pData = value.GetBuffer(static_cast<int>(cbData));
    lResult = ::RegEnumValueA(hSecKey, index, pszName, &cchName, nullptr, &dwType, reinterpret_cast<BYTE*>(pData),
                              &cbData);
    if (lResult != ERROR_SUCCESS) {
        name.ReleaseBuffer(0);
        value.ReleaseBuffer(0);
        return lResult;
    }
    name.ReleaseBuffer(static_cast<int>(cchName));
    // Strings end at their NUL; other data keep every byte.
    const bool isText = dwType == REG_SZ || dwType == REG_EXPAND_SZ;
    value.ReleaseBuffer(static_cast<int>(isText ? strnlen(pData, cbData) : cbData));
    return lResult;
}

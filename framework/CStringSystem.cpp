// CString: the members that ask the system - its case rules for the code
// page and the module's string resources. Apart from the rest, which is
// plain text handling and also builds where there is no Windows.
#include "framework/CString.h"

int CString::CompareNoCase(const char* psz) const { return lstrcmpiA(m_pszData, psz ? psz : ""); }

CString& CString::MakeUpper()
{
    if (!IsEmpty())
        CharUpperBuffA(GetBuffer(), static_cast<DWORD>(GetLength()));
    return *this;
}

CString& CString::MakeLower()
{
    if (!IsEmpty())
        CharLowerBuffA(GetBuffer(), static_cast<DWORD>(GetLength()));
    return *this;
}

BOOL CString::LoadString(HINSTANCE hInstance, UINT nID)
{
    // LoadStringA with a zero length hands back a pointer to the resource
    // itself, which tells the length without guessing a buffer size.
    const char* pRes = nullptr;
    int nLen = ::LoadStringW(hInstance, nID, reinterpret_cast<LPWSTR>(&pRes), 0);
    if (nLen <= 0) {
        Empty();
        return FALSE;
    }
    int nCap = nLen * 2 + 1;  // a wide character needs at most two code-page bytes
    char* p = GetBuffer(nCap);
    int nGot = ::LoadStringA(hInstance, nID, p, nCap + 1);
    ReleaseBuffer(nGot > 0 ? nGot : 0);
    return nGot > 0;
}

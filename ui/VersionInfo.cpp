#include "ui/VersionInfo.h"

#include <string.h>

#include <new>

namespace {

// The program's own file. The library shares the calling program's module
// state, so "the current module" of an empty path is the program, not the
// library; the library names itself ("Tqmlib52.dll") where it means itself.
CString programFileName()
{
    char path[MAX_PATH] = "";
    DWORD length = GetModuleFileNameA(GetModuleHandleA(nullptr), path, MAX_PATH);
    return CString(path, length < MAX_PATH ? static_cast<int>(length) : 0);
}

}  // namespace

CVersionInfo::CVersionInfo()
    : m_pData(nullptr), m_dwHandle(0), m_dwLangCodePage(0), m_wLanguage(0), m_bOk(FALSE), m_pFixedInfo(nullptr)
{
}

CVersionInfo::~CVersionInfo() { freeData(); }

void CVersionInfo::freeData()
{
    delete[] m_pData;
    m_pData = nullptr;
    m_pFixedInfo = nullptr;
}

BOOL CVersionInfo::Init(const CString& path)
{
    m_bOk = FALSE;
    // A second Init on the same object starts afresh; the first buffer goes.
    freeData();
    m_dwLangCodePage = 0;
    m_wLanguage = 0;

    const CString file = path.IsEmpty() ? programFileName() : path;
    if (file.IsEmpty())
        return m_bOk;
    const DWORD size = GetFileVersionInfoSizeA(file, &m_dwHandle);
    if (size == 0)
        return m_bOk;
    m_pData = new (std::nothrow) BYTE[size];
    if (!m_pData)
        return m_bOk;

    void* pTranslation = nullptr;
    UINT length = 0;
    m_bOk = GetFileVersionInfoA(file, m_dwHandle, size, m_pData) &&
            VerQueryValueA(m_pData, "\\VarFileInfo\\Translation", &pTranslation, &length) &&
            length >= 2 * sizeof(WORD);
    if (m_bOk) {
        WORD pair[2];
        memcpy(pair, pTranslation, sizeof(pair));
        m_wLanguage = pair[0];
        m_dwLangCodePage = MAKELONG(pair[1], pair[0]);
    }
    return m_bOk;
}

const VS_FIXEDFILEINFO* CVersionInfo::GetFixedFileInfo()
{
    if (!m_bOk)
        return nullptr;
    void* pRoot = nullptr;
    UINT length = 0;
    m_bOk = VerQueryValueA(m_pData, "\\", &pRoot, &length) && length >= sizeof(VS_FIXEDFILEINFO);
    m_pFixedInfo = m_bOk ? static_cast<VS_FIXEDFILEINFO*>(pRoot) : nullptr;
    return m_pFixedInfo;
}

CString CVersionInfo::StringFileInfo(const char* name)
{
    if (!m_bOk)
        return CString();
    // A null or empty name is a lookup that fails like any other.
    if (!name || !*name) {
        m_bOk = FALSE;
        return CString();
    }
    CString query;
    query.Format("\\StringFileInfo\\%08lx\\%s", static_cast<unsigned long>(m_dwLangCodePage), name);
    void* pValue = nullptr;
    UINT length = 0;
    // The result becomes the object's state; later lookups after a failed
    // one return empty. Callers rely on that order of questions.
    m_bOk = VerQueryValueA(m_pData, query, &pValue, &length);
    if (!m_bOk || !pValue)
        return CString();
    const char* value = static_cast<const char*>(pValue);
    return CString(value, static_cast<int>(strnlen(value, length)));
}

CString CVersionInfo::Language()
{
    if (!m_bOk)
        return CString();
    char name[128] = "";
    const DWORD length = VerLanguageNameA(m_wLanguage, name, sizeof(name));
    if (length == 0)
        return CString();
    return CString(name, static_cast<int>(strnlen(name, sizeof(name))));
}

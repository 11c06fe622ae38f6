// FileReplacement - write to a temporary file, then move it into place.
#include "config/FileReplacement.h"

#include <windows.h>

namespace tqm {

FileReplacement::FileReplacement(const char* pszTarget) : m_strTarget(pszTarget) {}

FileReplacement::~FileReplacement()
{
    if (!m_bCommitted && !m_strTemp.IsEmpty())
        ::DeleteFileA(m_strTemp);
}

bool FileReplacement::Begin()
{
    char full[MAX_PATH];
    char* pszName = nullptr;
    DWORD n = ::GetFullPathNameA(m_strTarget, MAX_PATH, full, &pszName);
    if (n == 0 || n >= MAX_PATH || !pszName)
        return false;

    // Writing in place would fail on these; so does the replacement, before
    // anything is written.
    m_dwTargetAttributes = ::GetFileAttributesA(full);
    if (m_dwTargetAttributes != INVALID_FILE_ATTRIBUTES &&
        (m_dwTargetAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY))) {
        ::SetLastError(ERROR_ACCESS_DENIED);
        return false;
    }

    // The folder with its trailing backslash, so that a root stays a root.
    CString folder(full, static_cast<int>(pszName - full));
    char temp[MAX_PATH];
    if (!::GetTempFileNameA(folder, "tqm", 0, temp))
        return false;
    m_strTemp = temp;
    m_strTarget = full;
    return true;
}

bool FileReplacement::Commit()
{
    if (m_strTemp.IsEmpty() || m_bCommitted)
        return false;
    if (m_dwTargetAttributes != INVALID_FILE_ATTRIBUTES) {
        DWORD dwKept = m_dwTargetAttributes &
                       (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                        FILE_ATTRIBUTE_NOT_CONTENT_INDEXED);
        if (dwKept)
            ::SetFileAttributesA(m_strTemp, dwKept);
    }
    if (!::MoveFileExA(m_strTemp, m_strTarget, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        return false;
    m_bCommitted = true;
    return true;
}

}  // namespace tqm

// FileReplacement - write to a temporary file, then move it into place.
#include "config/FileReplacement.h"

#include "config/logic/ReplacementNames.h"
#include "framework/Handles.h"

#include <windows.h>

#include <string>

namespace tqm {
namespace {

// A process of this id runs now. An id that cannot be opened belongs to no
// process; one that is open but ended is a process that has just died.
bool processRuns(DWORD processId)
{
    UniqueHandle process(::OpenProcess(SYNCHRONIZE, FALSE, processId));
    if (!process)
        return ::GetLastError() == ERROR_ACCESS_DENIED;  // there, but not ours to see
    return ::WaitForSingleObject(process.get(), 0) == WAIT_TIMEOUT;
}

// The target is held open by another program (no sharing of deletion), or
// being replaced by one at this very moment.
bool targetHeld(DWORD dwError) { return dwError == ERROR_SHARING_VIOLATION || dwError == ERROR_ACCESS_DENIED; }

}  // namespace

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
    m_strFolder = CString(full, static_cast<int>(pszName - full));
    m_strName = pszName;
    m_strTarget = full;
    return makeTempFile(m_strFolder, m_strName);
}

// A new file under a name no other writer uses: the process's id, and a
// serial number that skips names already there.
bool FileReplacement::makeTempFile(const char* pszFolder, const char* pszName)
{
    static volatile LONG s_serial = 0;
    for (int attempt = 0; attempt < 100; ++attempt) {
        const unsigned serial = static_cast<unsigned>(::InterlockedIncrement(&s_serial));
        const std::string temp =
            std::string(pszFolder) + ReplacementTempName(pszName, ::GetCurrentProcessId(), serial);
        if (temp.size() >= MAX_PATH) {
            // A name too long for a sibling: the system's short temporary
            // name, which a killed writer may leave behind unnoticed.
            char shortTemp[MAX_PATH];
            if (!::GetTempFileNameA(pszFolder, "tqm", 0, shortTemp))
                return false;
            m_strTemp = shortTemp;
            return true;
        }
        UniqueFile file(::CreateFileA(temp.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL,
                                      nullptr));
        if (file) {
            m_strTemp = temp.c_str();
            return true;
        }
        if (::GetLastError() != ERROR_FILE_EXISTS && ::GetLastError() != ERROR_ALREADY_EXISTS)
            return false;
    }
    return false;
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
    // A reader that holds the target open stops the move; readers hold the
    // suite's documents for moments only, so a short wait usually gets
    // through. A target that became read-only meanwhile is not waited for.
    m_nRetries = 0;
    while (!::MoveFileExA(m_strTemp, m_strTarget, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
        const DWORD dwError = ::GetLastError();
        const DWORD dwAttributes = ::GetFileAttributesA(m_strTarget);
        const DWORD dwPause = ReplaceRetryDelayMs(m_nRetries + 1);
        if (!targetHeld(dwError) || dwPause == 0 ||
            (dwAttributes != INVALID_FILE_ATTRIBUTES && (dwAttributes & FILE_ATTRIBUTE_READONLY))) {
            ::SetLastError(dwError);
            return false;
        }
        ++m_nRetries;
        ::Sleep(dwPause);
    }
    m_bCommitted = true;
    removeLeftovers();
    return true;
}

// Temporary files of earlier replacements of this target whose writers were
// killed before they finished. Those of running processes (this one
// included) may still be on their way and stay.
void FileReplacement::removeLeftovers() const
{
    WIN32_FIND_DATAA found;
    const CString pattern = m_strFolder + m_strName + ".~*.tmp";
    UniqueFind find(::FindFirstFileA(pattern, &found));
    if (!find)
        return;
    do {
        DWORD processId = 0;
        if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) &&
            ParseReplacementTempName(found.cFileName, m_strName, &processId) &&
            processId != ::GetCurrentProcessId() && !processRuns(processId))
            ::DeleteFileA(m_strFolder + found.cFileName);
    } while (::FindNextFileA(find.get(), &found));
}

}  // namespace tqm

// FileReplacement - replaces a file only once its new contents are complete.
//
// The new contents go to a temporary file in the target's folder; Commit moves
// it over the target in one step. Until then the target is untouched, and a
// replacement that is not committed deletes its temporary file, so a failure
// on the way never costs the user the old file nor leaves a partial one.
//
// The temporary file is named after the target and the writing process
// ("Doc.ini.~1A2B-1.tmp"). A writer that is killed before its Commit leaves
// that file behind, never anything under the target's own name; the next
// replacement of the same target that succeeds removes such leftovers of
// processes that no longer run.
#pragma once

#include <windows.h>

#include "framework/CString.h"

namespace tqm {

class FileReplacement
{
public:
    explicit FileReplacement(const char* pszTarget);
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    // Makes the temporary file. False when the target is a folder or
    // read-only (the thread's last error is then ERROR_ACCESS_DENIED), or its
    // folder cannot take a new file.
    bool Begin();
    // The temporary file to write, once Begin has succeeded.
    const char* TempPath() const { return m_strTemp; }
    // Puts the temporary file, by then written and closed, in the target's
    // place, with the target's hidden, system and archive attributes. A
    // target that another program holds open is tried again for a short
    // while (config/logic/ReplacementNames.h); false, with the system's code, when
    // it stays held or the move fails for another reason.
    bool Commit();
    // How many times the last Commit found the target held and waited.
    int Retries() const { return m_nRetries; }

private:
    bool makeTempFile(const char* pszFolder, const char* pszName);
    void removeLeftovers() const;

    CString m_strTarget;
    CString m_strTemp;
    CString m_strFolder;  // with its trailing backslash
    CString m_strName;    // the target's name without its folder
    DWORD m_dwTargetAttributes = INVALID_FILE_ATTRIBUTES;
    bool m_bCommitted = false;
    int m_nRetries = 0;
};

}  // namespace tqm

// FileReplacement - replaces a file only once its new contents are complete.
//
// The new contents go to a temporary file in the target's folder; Commit moves
// it over the target in one step. Until then the target is untouched, and a
// replacement that is not committed deletes its temporary file, so a failure
// on the way never costs the user the old file nor leaves a partial one.
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
    // place, with the target's hidden, system and archive attributes.
    bool Commit();

private:
    CString m_strTarget;
    CString m_strTemp;
    DWORD m_dwTargetAttributes = INVALID_FILE_ATTRIBUTES;
    bool m_bCommitted = false;
};

}  // namespace tqm

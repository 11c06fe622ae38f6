// The directories that follow the Windows shell folders.
#include "paths/InstallDirs.h"

#include "paths/DirBuffer.h"
#include "paths/logic/SuiteFolders.h"

#include <shlobj.h>

namespace {

// The suite's folder for the shell folder csidl, into dst; its length.
int shellFolderDir(int csidl, char* dst)
{
    // No owner, no access token, no flags: a folder the shell does not have
    // is not made here. Without a folder the suite's subfolder stands alone.
    char folder[MAX_PATH] = "";
    if (FAILED(::SHGetFolderPathA(nullptr, csidl, nullptr, 0, folder)))
        folder[0] = '\0';
    const bool besideDocuments = csidl == CSIDL_PERSONAL || csidl == CSIDL_COMMON_DOCUMENTS;
    return tqm::CopyDirToBuffer(tqm::SuiteFolderBeside(folder, besideDocuments), dst);
}

// The CString form of a buffer form.
CString fromBuffer(int(WINAPI* bufferForm)(char*))
{
    char dir[MAX_PATH] = "";
    bufferForm(dir);
    return CString(dir);
}

}  // namespace

// The user directory and the local application data directory are the same
// folder on purpose; both names are kept for their callers.
int WINAPI TQMGetUserDir(char* dst) { return shellFolderDir(CSIDL_LOCAL_APPDATA, dst); }
CString WINAPI TQMGetUserDir() { return fromBuffer(TQMGetUserDir); }

int WINAPI TQMGetUserLocalAppDataDir(char* dst) { return shellFolderDir(CSIDL_LOCAL_APPDATA, dst); }
CString WINAPI TQMGetUserLocalAppDataDir() { return fromBuffer(TQMGetUserLocalAppDataDir); }

int WINAPI TQMGetUserAppDataDir(char* dst) { return shellFolderDir(CSIDL_APPDATA, dst); }
CString WINAPI TQMGetUserAppDataDir() { return fromBuffer(TQMGetUserAppDataDir); }

int WINAPI TQMGetCommonAppDataDir(char* dst) { return shellFolderDir(CSIDL_COMMON_APPDATA, dst); }
CString WINAPI TQMGetCommonAppDataDir() { return fromBuffer(TQMGetCommonAppDataDir); }

int WINAPI TQMGetUserDocumentsDir(char* dst) { return shellFolderDir(CSIDL_PERSONAL, dst); }
CString WINAPI TQMGetUserDocumentsDir() { return fromBuffer(TQMGetUserDocumentsDir); }

// The documents directory and the common documents directory are the same
// folder on purpose; both names are kept for their callers.
int WINAPI TQMGetCommonDocumentsDir(char* dst) { return shellFolderDir(CSIDL_COMMON_DOCUMENTS, dst); }
CString WINAPI TQMGetCommonDocumentsDir() { return fromBuffer(TQMGetCommonDocumentsDir); }

int WINAPI TQMGetDocsDir(char* dst) { return shellFolderDir(CSIDL_COMMON_DOCUMENTS, dst); }
CString WINAPI TQMGetDocsDir() { return fromBuffer(TQMGetDocsDir); }

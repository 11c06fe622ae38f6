#include "paths/logic/SuiteFolders.h"

#include "paths/logic/PathText.h"

namespace tqm {

const char kSuiteSubfolder[] = "\\Tarn-Holmvik\\QM5_20";

CString SuiteFolderBeside(const char* shellFolder, bool dropLastComponent)
{
    CString folder(shellFolder);
    if (!folder.IsEmpty()) {
        folder.Replace('/', '\\');
        folder = WithoutTrailingBackslashes(folder);
        // The documents folders: the suite's folder goes beside them.
        const int lastBackslash = folder.ReverseFind('\\');
        if (dropLastComponent && lastBackslash >= 0)
            folder.Truncate(lastBackslash);
    }
    return folder + kSuiteSubfolder;
}

// The temporary path carries its own trailing backslash, so no separator is
// added here.
CString SuiteTempDir(const char* tempPath) { return CString(tempPath) + "Tarn-Holmvik"; }

}  // namespace tqm

#include "support/SuiteSettingsGuard.h"

#include "support/FileUtil.h"
#include "support/TempDir.h"

#include "paths/InstallDirs.h"
#include "paths/PathNames.h"

#include <shlobj.h>

namespace tqmtest {
namespace {

const char kMakerKey[] = "Software\\Tarn-Holmvik";

// Where a guard keeps the suite's keys while its test runs.
const char kSavedKey[] = "Software\\Tqmlib52 Tests Saved Settings";

// Replaces the tree at to with a copy of the tree at from (both in the 32-bit
// view); false, with nothing at to, when there is no tree at from.
bool copyTree(HKEY hive, const char* from, const char* to)
{
    DeleteKeyTree(hive, to);
    HKEY source = OpenSuiteView(hive, from);
    if (!source)
        return false;
    HKEY target = nullptr;
    if (RegCreateKeyExA(hive, to, 0, nullptr, 0, KEY_ALL_ACCESS | KEY_WOW64_32KEY, nullptr, &target, nullptr) ==
        ERROR_SUCCESS) {
        RegCopyTreeA(source, nullptr, target);
        RegCloseKey(target);
    }
    RegCloseKey(source);
    return true;
}

// The suite's folders the library makes beside or in the shell folders, each
// after the folder that holds it: the "Tarn-Holmvik" folders, their "QM5_20"
// folders, and the local directory and default directories in the common one.
std::vector<std::string> suiteFolders()
{
    std::vector<std::string> folders;
    for (const CString& dir : {TQMGetCommonDocumentsDir(), TQMGetUserDir(), TQMGetUserAppDataDir(),
                               TQMGetCommonAppDataDir(), TQMGetUserDocumentsDir()}) {
        folders.push_back(TQMGetParentDir(dir).GetString());
        folders.push_back(dir.GetString());
    }
    const std::string common = TQMGetCommonDocumentsDir().GetString();
    for (const char* sub : {"\\LocalDir", "\\Projects", "\\Libs", "\\Templates"})
        folders.push_back(common + sub);
    folders.push_back(TQMGetTempDir().GetString());
    return folders;
}

}  // namespace

std::string SuiteKeyPath() { return std::string("Software\\") + TQMGetQM5BaseRegistryKey().GetString(); }

bool WriteUserOption(const char* entry, const char* value)
{
    const std::string options = TQMGetVMXOptionsFilePath().GetString();
    SHCreateDirectoryExA(nullptr, options.substr(0, options.rfind('\\')).c_str(), nullptr);
    return WritePrivateProfileStringA("VMX", entry, value, options.c_str()) != FALSE;
}

std::string MirrorFile() { return std::string(TQMGetLocalDir().GetString()) + "\\QM5Global.ini"; }

std::string MirrorEntry(const char* section, const char* entry)
{
    char value[512] = "";
    GetPrivateProfileStringA(section, entry, "<none>", value, sizeof(value), MirrorFile().c_str());
    return value;
}

HKEY OpenSuiteView(HKEY hive, const std::string& path, REGSAM access)
{
    HKEY key = nullptr;
    if (RegOpenKeyExA(hive, path.c_str(), 0, access | KEY_WOW64_32KEY, &key) != ERROR_SUCCESS)
        return nullptr;
    return key;
}

void DeleteKeyTree(HKEY hive, const std::string& path)
{
    const size_t slash = path.rfind('\\');
    HKEY parent = OpenSuiteView(hive, path.substr(0, slash), KEY_ALL_ACCESS);
    if (!parent)
        return;
    RegDeleteTreeA(parent, path.substr(slash + 1).c_str());
    RegCloseKey(parent);
}

void SuiteSettingsGuard::Clear()
{
    DeleteKeyTree(HKEY_CURRENT_USER, kMakerKey);
    DeleteKeyTree(HKEY_LOCAL_MACHINE, kMakerKey);
    const std::string mirror = MirrorFile();
    SetFileAttributesA(mirror.c_str(), FILE_ATTRIBUTE_NORMAL);
    DeleteFileA(mirror.c_str());
}

SuiteSettingsGuard::SuiteSettingsGuard()
    : m_hMutex(CreateMutexA(nullptr, FALSE, "Tqmlib52.Tests.SuiteSettings")), m_hadMirror(false)
{
    if (m_hMutex)
        WaitForSingleObject(m_hMutex, INFINITE);
    m_hadUserKeys = copyTree(HKEY_CURRENT_USER, kMakerKey, kSavedKey);
    m_hadMachineKeys = copyTree(HKEY_LOCAL_MACHINE, kMakerKey, kSavedKey);
    const std::string mirror = MirrorFile();
    m_hadMirror = PathExists(mirror);
    if (m_hadMirror)
        m_mirror = ReadBytes(mirror);
    for (const std::string& folder : suiteFolders()) {
        if (!PathExists(folder))
            m_newFolders.push_back(folder);
    }
    Clear();
}

SuiteSettingsGuard::~SuiteSettingsGuard()
{
    Clear();
    if (m_hadUserKeys)
        copyTree(HKEY_CURRENT_USER, kSavedKey, kMakerKey);
    if (m_hadMachineKeys)
        copyTree(HKEY_LOCAL_MACHINE, kSavedKey, kMakerKey);
    DeleteKeyTree(HKEY_CURRENT_USER, kSavedKey);
    DeleteKeyTree(HKEY_LOCAL_MACHINE, kSavedKey);
    if (m_hadMirror)
        WriteBytes(MirrorFile(), m_mirror);
    for (const std::string& folder : m_newFolders)
        RemoveTree(folder);
    if (m_hMutex) {
        ReleaseMutex(m_hMutex);
        CloseHandle(m_hMutex);
    }
}

}  // namespace tqmtest

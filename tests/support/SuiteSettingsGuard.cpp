#include "support/SuiteSettingsGuard.h"

#include "support/FileUtil.h"
#include "support/TempDir.h"

#include "paths/InstallDirs.h"
#include "paths/PathNames.h"

namespace tqmtest {
namespace {

const char kMakerKey[] = "Software\\Tarn-Holmvik";

std::unique_ptr<KeySnapshot> readTree(HKEY key)
{
    auto snapshot = std::make_unique<KeySnapshot>();
    for (DWORD index = 0;; ++index) {
        char name[16384];
        DWORD nameLength = sizeof(name);
        DWORD type = 0;
        DWORD size = 0;
        if (RegEnumValueA(key, index, name, &nameLength, nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
            break;
        std::string data(size, '\0');
        nameLength = sizeof(name);
        RegEnumValueA(key, index, name, &nameLength, nullptr, &type, reinterpret_cast<BYTE*>(&data[0]), &size);
        snapshot->values[name] = KeySnapshot::Value{type, data.substr(0, size)};
    }
    for (DWORD index = 0;; ++index) {
        char name[256];
        if (RegEnumKeyA(key, index, name, sizeof(name)) != ERROR_SUCCESS)
            break;
        HKEY sub = nullptr;
        if (RegOpenKeyExA(key, name, 0, KEY_READ | KEY_WOW64_32KEY, &sub) == ERROR_SUCCESS) {
            snapshot->subkeys[name] = *readTree(sub);
            RegCloseKey(sub);
        }
    }
    return snapshot;
}

void writeTree(HKEY key, const KeySnapshot& snapshot)
{
    for (const auto& value : snapshot.values)
        RegSetValueExA(key, value.first.c_str(), 0, value.second.type,
                       reinterpret_cast<const BYTE*>(value.second.data.data()),
                       static_cast<DWORD>(value.second.data.size()));
    for (const auto& sub : snapshot.subkeys) {
        HKEY subKey = nullptr;
        if (RegCreateKeyExA(key, sub.first.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS | KEY_WOW64_32KEY, nullptr, &subKey,
                            nullptr) == ERROR_SUCCESS) {
            writeTree(subKey, sub.second);
            RegCloseKey(subKey);
        }
    }
}

std::unique_ptr<KeySnapshot> snapshotOf(HKEY hive)
{
    HKEY key = OpenSuiteView(hive, kMakerKey);
    if (!key)
        return nullptr;
    auto snapshot = readTree(key);
    RegCloseKey(key);
    return snapshot;
}

void restore(HKEY hive, const KeySnapshot* snapshot)
{
    DeleteKeyTree(hive, kMakerKey);
    if (!snapshot)
        return;
    HKEY key = nullptr;
    if (RegCreateKeyExA(hive, kMakerKey, 0, nullptr, 0, KEY_ALL_ACCESS | KEY_WOW64_32KEY, nullptr, &key, nullptr) ==
        ERROR_SUCCESS) {
        writeTree(key, *snapshot);
        RegCloseKey(key);
    }
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
    m_userKeys = snapshotOf(HKEY_CURRENT_USER);
    m_machineKeys = snapshotOf(HKEY_LOCAL_MACHINE);
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
    restore(HKEY_CURRENT_USER, m_userKeys.get());
    restore(HKEY_LOCAL_MACHINE, m_machineKeys.get());
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

// The suite's settings in the registry, with the machine-wide mirror file.
#include "config/QM5Profile.h"

#include "config/FileReplacement.h"
#include "config/IniFile.h"
#include "config/Profile.h"
#include "config/SuiteKey.h"
#include "diag/TarnAssert.h"
#include "paths/InstallDirs.h"
#include "paths/PathNames.h"

#include <string.h>

#undef TARN_SOURCE
#define TARN_SOURCE "tarnqm4"

namespace {

bool isMachineHive(HKEY hBaseKey) { return hBaseKey == HKEY_LOCAL_MACHINE; }

void checkArguments(HKEY hBaseKey, const char* lpszSection)
{
    TARN_ASSERT(hBaseKey == HKEY_CURRENT_USER || hBaseKey == HKEY_LOCAL_MACHINE);
    TARN_ASSERT(lpszSection != NULL);
}

bool fileExists(const CString& path)
{
    const DWORD attributes = ::GetFileAttributesA(path);
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// The mirror file, ready to be written: NULL where there is nothing to do.
// The system's private-profile writer fails where the folder is missing, and
// on a fresh machine nothing has made the local directory yet: it is made, so
// that the first machine-wide setting already starts the mirror. A removal
// from a mirror that does not exist makes nothing: an empty mirror would
// hide the registry's values from the readers.
CString mirrorToWrite(bool bRemoval)
{
    const CString file = tqm::MachineSettingsFile();
    if (fileExists(file))
        return file;
    if (bRemoval)
        return CString();
    const CString folder = TQMGetParentDir(file);
    if (!folder.IsEmpty() && ::GetFileAttributesA(folder) == INVALID_FILE_ATTRIBUTES)
        TQMCreateDir(folder);
    return file;
}

// The mirror is changed in a copy that replaces it once the change is whole
// (config/FileReplacement.h). The system's profile writer rewrites the whole
// file in place and does not report a disk that fills up on the way: written
// over the mirror itself, it would leave it cut short, every machine-wide
// setting after the cut lost. A copy that cannot be made (a full disk, a
// read-only mirror or folder) leaves the mirror as it was, and the copy is
// checked before it takes the mirror's place.
class MirrorChange
{
public:
    MirrorChange(const char* lpszSection, const char* lpszEntry, bool bRemoval)
        : m_strSection(lpszSection), m_strEntry(lpszEntry ? lpszEntry : ""), m_bWholeSection(lpszEntry == nullptr),
          m_bRemoval(bRemoval)
    {
    }

    // Applies write (the system's writer, given the file to write) to a copy
    // of file and puts the copy in its place; false, with the system's code
    // as the thread's last error, when the mirror stays as it was.
    template <class Write>
    bool Apply(const CString& file, Write write)
    {
        const bool bExists = fileExists(file);
        CTQMIniFile before;
        const bool bCheckable = !bExists || before.Read(file);
        tqm::FileReplacement copy(file);
        if (!copy.Begin() || !roomFor(file, bExists) ||
            (bExists && !::CopyFileA(file, copy.TempPath(), FALSE)))
            return false;
        ::SetFileAttributesA(copy.TempPath(), FILE_ATTRIBUTE_NORMAL);
        write(copy.TempPath());
        // The system keeps its own copy of a profile file: this makes it
        // write that to the disk before the copy is looked at.
        ::WritePrivateProfileStringA(nullptr, nullptr, nullptr, copy.TempPath());
        if (bCheckable && !keptEverything(before, copy.TempPath())) {
            ::SetLastError(ERROR_DISK_FULL);
            return false;
        }
        return copy.Commit();
    }

private:
    // The copy needs the mirror's size twice over, and some room to grow.
    static bool roomFor(const CString& file, bool bExists)
    {
        ULARGE_INTEGER free;
        if (!::GetDiskFreeSpaceExA(TQMGetParentDir(file), &free, nullptr, nullptr))
            return true;  // not known: the check of the copy decides
        WIN32_FILE_ATTRIBUTE_DATA data = {};
        ULONGLONG size = 0;
        if (bExists && ::GetFileAttributesExA(file, GetFileExInfoStandard, &data))
            size = (static_cast<ULONGLONG>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
        if (free.QuadPart >= size * 2 + 8192)
            return true;
        ::SetLastError(ERROR_DISK_FULL);
        return false;
    }

    // Every entry of the mirror before the change is still in the copy, with
    // its value, apart from the one changed or removed; a change that sets a
    // value left its entry there.
    bool keptEverything(CTQMIniFile& before, const char* pszCopy) const
    {
        CTQMIniFile after;
        if (!after.Read(pszCopy))
            return false;
        for (int s = 0; s < before.GetNumSections(); ++s) {
            const CString section = before.GetSectionName(s);
            const bool bChangedSection = section.CompareNoCase(m_strSection) == 0;
            if (bChangedSection && m_bWholeSection)
                continue;
            for (int e = 0; e < before.GetNumEntries(s); ++e) {
                const CString entry = before.GetEntryName(s, e);
                if (bChangedSection && entry.CompareNoCase(m_strEntry) == 0)
                    continue;
                const char* value = after.GetEntryValue(section, entry, nullptr);
                if (!value || strcmp(value, before.GetEntryValue(s, e, "")) != 0)
                    return false;
            }
        }
        return m_bRemoval || after.GetEntryValue(m_strSection, m_strEntry, nullptr) != nullptr;
    }

    CString m_strSection;
    CString m_strEntry;
    bool m_bWholeSection;
    bool m_bRemoval;
};

// The mirror's copy of a number, signed in decimal like every number the
// library writes to a profile file. A NULL entry removes the section. The
// system's code when the mirror could not take it, else 0.
DWORD writeMirrorInt(const char* lpszSection, const char* lpszEntry, UINT nValue)
{
    const CString file = mirrorToWrite(lpszEntry == nullptr);
    if (file.IsEmpty())
        return 0;
    MirrorChange change(lpszSection, lpszEntry, lpszEntry == nullptr);
    const bool bDone = change.Apply(file, [&](const char* pszFile) {
        WritePrivateProfileInt(lpszSection, lpszEntry, static_cast<int>(nValue), pszFile);
    });
    return bDone ? 0 : ::GetLastError();
}

// A NULL entry removes the section, a NULL value the entry.
DWORD writeMirrorString(const char* lpszSection, const char* lpszEntry, const char* lpszValue)
{
    const bool bRemoval = lpszEntry == nullptr || lpszValue == nullptr;
    const CString file = mirrorToWrite(bRemoval);
    if (file.IsEmpty())
        return 0;
    MirrorChange change(lpszSection, lpszEntry, bRemoval);
    const bool bDone = change.Apply(file, [&](const char* pszFile) {
        ::WritePrivateProfileStringA(lpszSection, lpszEntry, lpszValue, pszFile);
    });
    return bDone ? 0 : ::GetLastError();
}

// The key a write needs: the section's, or for removing a whole section the
// version key above it. A section without a name has no key.
tqm::UniqueKey openKeyForWrite(HKEY hBaseKey, const char* lpszSection, const char* lpszEntry)
{
    if (!lpszSection)
        return tqm::UniqueKey();
    return tqm::OpenSuiteKey(hBaseKey, lpszEntry ? lpszSection : nullptr, true);
}

// Removes the section's key below the version key, or stores one value.
LONG writeRegistry(HKEY hKey, const char* lpszSection, const char* lpszEntry, DWORD dwType, const void* pData,
                   DWORD cbData)
{
    if (!lpszEntry)
        return ::RegDeleteKeyA(hKey, lpszSection);
    if (!pData)
        return ::RegDeleteValueA(hKey, lpszEntry);
    return ::RegSetValueExA(hKey, lpszEntry, 0, dwType, static_cast<const BYTE*>(pData), cbData);
}

}  // namespace

namespace tqm {
CString MachineSettingsFile() { return TQMGetCommonDocumentsDir() + "\\LocalDir\\QM5Global.ini"; }
}  // namespace tqm

UINT WINAPI TQMGetQM5ProfileInt(HKEY hBaseKey, const char* lpszSection, const char* lpszEntry, int nDefault)
{
    checkArguments(hBaseKey, lpszSection);
    TARN_ASSERT(lpszEntry != NULL);
    // A value without a section or a name is not one the caller can have
    // written: the report stands, and the answer is the default.
    if (!lpszSection || !lpszEntry)
        return nDefault;

    // The machine's numbers come from the mirror file alone; without it the
    // default, even when the registry holds the value. Deliberate, see the
    // header.
    if (isMachineHive(hBaseKey)) {
        const CString file = tqm::MachineSettingsFile();
        return fileExists(file) ? ::GetPrivateProfileIntA(lpszSection, lpszEntry, nDefault, file)
                                : static_cast<UINT>(nDefault);
    }

    tqm::UniqueKey key = tqm::OpenSuiteKey(hBaseKey, lpszSection, false);
    if (!key)
        return nDefault;
    // Bytes the value does not fill stay 0.
    DWORD dwValue = 0;
    DWORD dwType = REG_NONE;
    DWORD dwCount = sizeof(dwValue);
    if (::RegQueryValueExA(key.get(), lpszEntry, nullptr, &dwType, reinterpret_cast<BYTE*>(&dwValue), &dwCount) !=
        ERROR_SUCCESS)
        return nDefault;  // missing, or longer than a number
    TARN_ASSERT(dwType == REG_DWORD);
    TARN_ASSERT(dwCount == sizeof(dwValue));
    return dwValue;
}

CString WINAPI TQMGetQM5ProfileString(HKEY hBaseKey, const char* lpszSection, const char* lpszEntry,
                                      const char* lpszDefault)
{
    checkArguments(hBaseKey, lpszSection);
    TARN_ASSERT(lpszEntry != NULL);
    if (!lpszSection || !lpszEntry)
        return CString(lpszDefault);

    if (isMachineHive(hBaseKey)) {
        const CString file = tqm::MachineSettingsFile();
        if (fileExists(file)) {
            char buffer[512] = "";
            ::GetPrivateProfileStringA(lpszSection, lpszEntry, lpszDefault ? lpszDefault : "", buffer,
                                       sizeof(buffer), file);
            return CString(buffer);
        }
        // Without the mirror the machine's text comes from the registry.
    }

    tqm::UniqueKey key = tqm::OpenSuiteKey(hBaseKey, lpszSection, false);
    if (!key)
        return CString(lpszDefault);
    DWORD dwType = REG_NONE;
    DWORD dwCount = 0;
    if (::RegQueryValueExA(key.get(), lpszEntry, nullptr, &dwType, nullptr, &dwCount) != ERROR_SUCCESS)
        return CString(lpszDefault);
    TARN_ASSERT(dwType == REG_SZ);

    CString strValue;
    char* pszData = strValue.GetBuffer(static_cast<int>(dwCount));
    if (::RegQueryValueExA(key.get(), lpszEntry, nullptr, &dwType, reinterpret_cast<BYTE*>(pszData), &dwCount) !=
        ERROR_SUCCESS) {
        strValue.ReleaseBuffer(0);
        return CString(lpszDefault);
    }
    // Checked once more on the data actually read: the value may have been
    // replaced in between.
    TARN_ASSERT(dwType == REG_SZ);
    // The data as text, up to its NUL (a string stored without one ends at
    // its size).
    strValue.ReleaseBuffer(static_cast<int>(strnlen(pszData, dwCount)));
    return strValue;
}

// The result is the registry's. A mirror that could not take the change
// (its old contents kept whole) leaves its reason as the thread's last
// error, also beside a TRUE: a caller that must know whether the other
// programs see the new machine-wide value looks there.
static BOOL registryResult(LONG lRegistryResult, DWORD dwMirrorError)
{
    if (lRegistryResult != ERROR_SUCCESS) {
        ::SetLastError(static_cast<DWORD>(lRegistryResult));
        return FALSE;
    }
    ::SetLastError(dwMirrorError);
    return TRUE;
}

// Both writers open the registry key before they touch the mirror file: a key
// that cannot be opened (a hive the caller may not write, a damaged key)
// then fails the call with nothing changed, instead of leaving the mirror
// ahead of the registry. Beyond that the two writes are not one transaction.

BOOL WINAPI TQMSetQM5ProfileInt(HKEY hBaseKey, const char* lpszSection, const char* lpszEntry, UINT nValue)
{
    checkArguments(hBaseKey, lpszSection);
    tqm::UniqueKey key = openKeyForWrite(hBaseKey, lpszSection, lpszEntry);
    if (!key)
        return FALSE;
    const DWORD dwMirrorError = isMachineHive(hBaseKey) ? writeMirrorInt(lpszSection, lpszEntry, nValue) : 0;
    const DWORD dwValue = nValue;
    return registryResult(writeRegistry(key.get(), lpszSection, lpszEntry, REG_DWORD, &dwValue, sizeof(dwValue)),
                          dwMirrorError);
}

BOOL WINAPI TQMSetQM5ProfileString(HKEY hBaseKey, const char* lpszSection, const char* lpszEntry,
                                   const char* lpszValue)
{
    checkArguments(hBaseKey, lpszSection);
    tqm::UniqueKey key = openKeyForWrite(hBaseKey, lpszSection, lpszEntry);
    if (!key)
        return FALSE;
    const DWORD dwMirrorError = isMachineHive(hBaseKey) ? writeMirrorString(lpszSection, lpszEntry, lpszValue) : 0;
    const DWORD cbData = lpszValue ? static_cast<DWORD>(strlen(lpszValue) + 1) : 0;
    return registryResult(writeRegistry(key.get(), lpszSection, lpszEntry, REG_SZ, lpszValue, cbData), dwMirrorError);
}

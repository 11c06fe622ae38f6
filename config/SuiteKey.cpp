#include "config/SuiteKey.h"

#include "paths/InstallDirs.h"

namespace tqm {

// The suite's programs are 32-bit, so on 64-bit Windows their machine keys
// lie in the 32-bit view (below Wow6432Node). The x86_64 build asks for that
// view too, so that both builds read and write the same settings; for the
// 32-bit build the flag changes nothing.
REGSAM SuiteKeyAccess(bool bWrite) { return (bWrite ? KEY_READ | KEY_WRITE : KEY_READ) | KEY_WOW64_32KEY; }

namespace {

// Opens or makes the key name below parent.
UniqueKey createKey(HKEY parent, const char* name, REGSAM access)
{
    UniqueKey key;
    if (::RegCreateKeyExA(parent, name, 0, nullptr, REG_OPTION_NON_VOLATILE, access, nullptr, key.put(), nullptr) !=
        ERROR_SUCCESS)
        return UniqueKey();
    return key;
}

}  // namespace

UniqueKey OpenSuiteKey(HKEY hive, const char* pszSection, bool bWrite)
{
    const REGSAM access = SuiteKeyAccess(bWrite);
    UniqueKey key;
    if (::RegOpenKeyExA(hive, "Software", 0, access, key.put()) != ERROR_SUCCESS)
        return UniqueKey();

    // The maker's key, "QM5" and the version, one at a time.
    const CString baseKey = TQMGetQM5BaseRegistryKey();
    int start = 0;
    while (start <= baseKey.GetLength()) {
        int end = baseKey.Find('\\', start);
        if (end < 0)
            end = baseKey.GetLength();
        const CString name = baseKey.Mid(start, end - start);
        if (!name.IsEmpty()) {
            key = createKey(key.get(), name, access);
            if (!key)
                return UniqueKey();
        }
        start = end + 1;
    }
    if (!pszSection)
        return key;
    return createKey(key.get(), pszSection, access);
}

}  // namespace tqm

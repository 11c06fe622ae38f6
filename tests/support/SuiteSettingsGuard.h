// SuiteSettingsGuard - a clean slate of the suite's settings for one test.
//
// While a guard lives, the suite's keys (Software\Tarn-Holmvik in both hives,
// in the 32-bit view the library uses) and the machine-wide mirror file
// QM5Global.ini are gone; when it ends, whatever the test made there is
// removed and what was there before (a demo's settings, say) comes back. The
// suite's folders that did not exist before (the Tarn-Holmvik folders beside
// the shell folders) are removed with everything in them.
//
// Test programs of one build share one Wine prefix: a guard also holds a
// machine-wide mutex, so that two of them running at once take turns.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tqmtest {

class SuiteSettingsGuard
{
public:
    SuiteSettingsGuard();
    ~SuiteSettingsGuard();
    SuiteSettingsGuard(const SuiteSettingsGuard&) = delete;
    SuiteSettingsGuard& operator=(const SuiteSettingsGuard&) = delete;

    // Removes the suite's keys in both hives and the mirror file.
    static void Clear();

private:
    HANDLE m_hMutex;
    bool m_hadUserKeys;  // kept in a key of the tests' own meanwhile
    bool m_hadMachineKeys;
    bool m_hadMirror;
    std::string m_mirror;
    std::vector<std::string> m_newFolders;       // suite folders to remove afterwards
};

// The suite's registry path below the hive: "Software\Tarn-Holmvik\QM5\2.0".
std::string SuiteKeyPath();
// The machine-wide mirror file.
std::string MirrorFile();
// The entry as the mirror file holds it; "<none>" when it is not there.
std::string MirrorEntry(const char* section, const char* entry);
// Opens a key below hive in the library's (32-bit) view; NULL when missing.
HKEY OpenSuiteView(HKEY hive, const std::string& path, REGSAM access = KEY_READ);
// Writes (or with a NULL value removes) an entry of section "VMX" of the
// user's options file, making its folder when missing.
bool WriteUserOption(const char* entry, const char* value);
// Deletes a key below hive with everything in it (32-bit view).
void DeleteKeyTree(HKEY hive, const std::string& path);

}  // namespace tqmtest

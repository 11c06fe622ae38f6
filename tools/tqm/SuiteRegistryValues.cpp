#include "tools/tqm/SuiteRegistryValues.h"

#include "framework/Handles.h"
#include "paths/InstallDirs.h"

#include <utility>

namespace tqmtool {

bool ReadSuiteRegistryValues(HKEY hive, const std::string& section, std::vector<RegistryValue>& values)
{
    const std::string path = "Software\\" + std::string(TQMGetQM5BaseRegistryKey().GetString()) + "\\" + section;
    tqm::UniqueKey key;
    if (RegOpenKeyExA(hive, path.c_str(), 0, KEY_READ | KEY_WOW64_32KEY, key.put()) != ERROR_SUCCESS)
        return false;
    for (DWORD index = 0;; ++index) {
        char name[256] = "";
        DWORD nameLength = sizeof(name);
        RegistryValue value;
        // The first call asks for the size, the second reads the bytes.
        if (RegEnumValueA(key.get(), index, name, &nameLength, nullptr, &value.type, nullptr, &value.size) !=
            ERROR_SUCCESS)
            break;
        value.data.assign(value.size + 1, 0);
        nameLength = sizeof(name);
        if (RegEnumValueA(key.get(), index, name, &nameLength, nullptr, &value.type, value.data.data(),
                          &value.size) != ERROR_SUCCESS)
            break;
        value.name = name;
        values.push_back(std::move(value));
    }
    return true;
}

}  // namespace tqmtool

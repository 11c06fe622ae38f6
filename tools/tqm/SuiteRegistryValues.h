// SuiteRegistryValues - the raw values of one section of the suite's
// settings in the registry, as tqm's settings listing and the doctor read them.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tqmtool {

struct RegistryValue
{
    std::string name;
    DWORD type = REG_NONE;
    std::vector<BYTE> data;  // size bytes, then one zero byte
    DWORD size = 0;
};

// The values of section below the suite's key in hive (the 32-bit view the
// library uses), read without making anything; false when there is no key.
bool ReadSuiteRegistryValues(HKEY hive, const std::string& section, std::vector<RegistryValue>& values);

}  // namespace tqmtool

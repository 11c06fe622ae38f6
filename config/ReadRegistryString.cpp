// One string value of any key.
#include "config/Registry.h"

#include "framework/Handles.h"

#include <string.h>

BOOL WINAPI TQMReadRegistryString(HKEY hKey, const char* subKey, const char* valueName, char* out)
{
    if (!out)
        return FALSE;
    out[0] = '\0';
    // The plain open: the key is taken from the view the calling build sees,
    // as the caller names it, and nothing is made.
    tqm::UniqueKey key;
    if (::RegOpenKeyA(hKey, subKey, key.put()) != ERROR_SUCCESS)
        return FALSE;

    // The system does not terminate data that fill the buffer: read into one
    // byte more and keep out a terminated string of at most 511 characters.
    char data[513] = "";
    DWORD dwType = REG_NONE;
    DWORD dwSize = 512;
    const LONG lResult =
        ::RegQueryValueExA(key.get(), valueName, nullptr, &dwType, reinterpret_cast<BYTE*>(data), &dwSize);
    if (lResult == ERROR_SUCCESS) {
        const size_t length = strnlen(data, 511);
        memcpy(out, data, length);
        out[length] = '\0';
    }
    return lResult == ERROR_SUCCESS && dwSize != 0 && dwType == REG_SZ;
}

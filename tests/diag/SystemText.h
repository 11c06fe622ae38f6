// The system's text for an error code, as the library asks for it.
#pragma once

#include <windows.h>

#include <string>

namespace tqmtest {

inline std::string SystemText(DWORD code)
{
    char* text = nullptr;
    DWORD n = FormatMessageA(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                             nullptr, code, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), reinterpret_cast<char*>(&text),
                             0, nullptr);
    std::string result(text ? text : "", n);
    LocalFree(text);
    return result;
}

}  // namespace tqmtest

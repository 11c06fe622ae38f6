#include "support/FixtureFiles.h"

#include <windows.h>

namespace tqmtest {

std::string ProgramDir()
{
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    std::string dir = path;
    const size_t slash = dir.find_last_of('\\');
    return slash == std::string::npos ? std::string(".") : dir.substr(0, slash);
}

std::string FixturePath(const std::string& name) { return ProgramDir() + "\\fixtures\\" + name; }

}  // namespace tqmtest

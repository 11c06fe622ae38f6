#include "tools/tqm/SuiteDirs.h"

#include "config/QM5Profile.h"
#include "paths/InstallDirs.h"

#include <stdio.h>
#include <string.h>

namespace tqmtool {
namespace {

struct NamedDir
{
    const char* name;  // for the configurable ones, their entry in "Global"
    CString (*get)();
};

const NamedDir kConfigurable[] = {
    {"ProjectsDir", [] { return TQMGetProjectsDir(); }},
    {"LibsDir", [] { return TQMGetLibsDir(); }},
    {"AppsDir", [] { return TQMGetAppsDir(); }},
    {"TemplatesDir", [] { return TQMGetTemplatesDir(); }},
};

const NamedDir kDerived[] = {
    {"LocalDir", [] { return TQMGetLocalDir(); }},
    {"UserDir", [] { return TQMGetUserDir(); }},
    {"UserAppDataDir", [] { return TQMGetUserAppDataDir(); }},
    {"UserLocalAppDataDir", [] { return TQMGetUserLocalAppDataDir(); }},
    {"CommonAppDataDir", [] { return TQMGetCommonAppDataDir(); }},
    {"UserDocumentsDir", [] { return TQMGetUserDocumentsDir(); }},
    {"CommonDocumentsDir", [] { return TQMGetCommonDocumentsDir(); }},
    {"DocsDir", [] { return TQMGetDocsDir(); }},
    {"TempDir", [] { return TQMGetTempDir(); }},
    {"VMXOptionsFile", [] { return TQMGetVMXOptionsFilePath(); }},
};

CString setting(const char* entry)
{
    CString value = TQMGetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", entry, "");
    value.TrimRight('\\');
    return value;
}

// Where a configurable directory came from: its setting, or the default,
// which the library writes back on first use.
std::string originOf(const CString& before, const CString& path, const CString& after)
{
    if (!before.IsEmpty())
        return "setting";
    if (after.CompareNoCase(path) == 0)
        return "default, written back";
    return "default, could not be written back";
}

}  // namespace

std::vector<SuiteDir> ListSuiteDirs()
{
    std::vector<SuiteDir> dirs;
    for (const NamedDir& dir : kConfigurable) {
        const CString before = setting(dir.name);
        const CString path = dir.get();
        dirs.push_back({dir.name, path.GetString(), originOf(before, path, setting(dir.name))});
    }
    for (const NamedDir& dir : kDerived)
        dirs.push_back({dir.name, dir.get().GetString(), std::string()});
    return dirs;
}

std::string ConfigurableDirEntry(const std::string& name)
{
    for (const NamedDir& dir : kConfigurable) {
        const std::string entry = dir.name;
        const std::string shortName = entry.substr(0, entry.size() - 3);  // without "Dir"
        if (!_stricmp(name.c_str(), entry.c_str()) || !_stricmp(name.c_str(), shortName.c_str()))
            return entry;
    }
    return std::string();
}

void PrintSuiteDirs(const std::vector<SuiteDir>& dirs)
{
    for (const SuiteDir& dir : dirs) {
        if (dir.origin.empty())
            printf("%-20s %s\n", dir.name.c_str(), dir.path.c_str());
        else
            printf("%-20s %s  [%s]\n", dir.name.c_str(), dir.path.c_str(), dir.origin.c_str());
    }
}

}  // namespace tqmtool

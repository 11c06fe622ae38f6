// tqm dirs [set NAME PATH]
#include "tools/tqm/Command.h"
#include "tools/tqm/SuiteDirs.h"

#include "config/QM5Profile.h"
#include "paths/PathNames.h"

#include <stdio.h>

namespace tqmtool {
namespace {

int runSet(const Args& args)
{
    if (args.size() != 2)
        return UsageError("dirs", "set needs NAME and PATH");
    const std::string entry = ConfigurableDirEntry(args[0]);
    if (entry.empty())
        return UsageError("dirs", "%s is not a configurable directory (ProjectsDir, LibsDir, AppsDir, TemplatesDir)",
                          args[0].c_str());
    const std::string& path = args[1];
    if (!path.empty() && !TQMIsValidPathName(CString(path.c_str()).TrimRight('\\'), FALSE))
        fprintf(stderr, "tqm dirs: warning: %s is not a valid path name by the suite's rules\n", path.c_str());
    if (!TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", entry.c_str(), path.c_str()))
        return Fail("cannot write %s to the machine-wide settings", entry.c_str());
    if (path.empty())
        printf("%s: cleared; the default is written back on next use\n", entry.c_str());
    else
        printf("%s = %s\n", entry.c_str(), path.c_str());
    return kExitOk;
}

int runDirs(const Args& args)
{
    if (!args.empty() && args[0] == "set")
        return runSet(Args(args.begin() + 1, args.end()));
    if (!args.empty())
        return UsageError("dirs", "unknown argument %s", args[0].c_str());
    PrintSuiteDirs(ListSuiteDirs());
    return kExitOk;
}

}  // namespace

TQM_REGISTER_COMMAND({"dirs", "the suite's directories; set a configurable one",
                      "usage: tqm dirs\n"
                      "       tqm dirs set NAME PATH\n\n"
                      "dirs    lists every directory of the suite, one per line: its name and\n"
                      "        path. The four configurable ones (ProjectsDir, LibsDir, AppsDir,\n"
                      "        TemplatesDir) say where they came from: [setting] from the\n"
                      "        machine-wide settings, or [default, written back] when the setting\n"
                      "        was empty and the library stored its default there.\n"
                      "set     stores PATH as the configurable directory NAME (ProjectsDir or\n"
                      "        Projects, any case) in section \"Global\" of the machine-wide\n"
                      "        settings (the registry and QM5Global.ini). An empty PATH clears it:\n"
                      "        the default comes back on next use.\n",
                      runDirs});

}  // namespace tqmtool

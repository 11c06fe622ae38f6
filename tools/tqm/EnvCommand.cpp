// tqm env create, tqm env copy [--machine] FILE
#include "tools/tqm/Command.h"

#include "paths/Environment.h"
#include "paths/FileOperations.h"
#include "paths/InstallDirs.h"
#include "paths/PathNames.h"

#include <stdio.h>

#include <string>
#include <vector>

namespace tqmtool {
namespace {

struct EnvDir
{
    const char* name;
    CString path;
    bool existed;
};

int runCreate()
{
    // The folders the environment consists of, in the order it makes them.
    std::vector<EnvDir> dirs = {
        {"AppsDir", TQMGetAppsDir(), false},         {"LocalDir", TQMGetLocalDir(), false},
        {"ProjectsDir", TQMGetProjectsDir(), false}, {"LibsDir", TQMGetLibsDir(), false},
        {"TemplatesDir", TQMGetTemplatesDir(), false}, {"UserDir", TQMGetUserDir(), false},
    };
    for (EnvDir& dir : dirs)
        dir.existed = TQMFileExists(dir.path) != FALSE;

    TQMCreateEnvironment();

    int missing = 0;
    for (const EnvDir& dir : dirs) {
        const char* state;
        if (dir.existed) {
            state = "already there";
        } else if (!TQMIsValidPathName(dir.path, FALSE)) {
            state = "skipped: not a valid path name";
            ++missing;
        } else if (TQMFileExists(dir.path)) {
            state = "created";
        } else {
            state = "could not be created";
            ++missing;
        }
        printf("%-13s %s  [%s]\n", dir.name, dir.path.GetString(), state);
    }
    return missing ? kExitNegative : kExitOk;
}

int runCopy(const Args& args)
{
    bool machineWide = false;
    const std::string* fileName = nullptr;
    for (const std::string& arg : args) {
        if (arg == "--machine")
            machineWide = true;
        else if (arg.size() > 1 && arg[0] == '-')
            return UsageError("env", "unknown option %s", arg.c_str());
        else if (fileName)
            return UsageError("env", "copy takes one FILE");
        else
            fileName = &arg;
    }
    if (!fileName)
        return UsageError("env", "copy needs a FILE name");
    if (TQMHasDir(fileName->c_str()))
        return UsageError("env", "FILE is a bare file name, without a folder");

    char resultPath[MAX_PATH] = "";
    TQMCopySettingsFile(fileName->c_str(), machineWide, resultPath);
    printf("%s\n", resultPath);
    if (!TQMFileExists(resultPath))
        return Fail("%s: no copy and no installed default in %s", resultPath, TQMGetAppsDir().GetString());
    return kExitOk;
}

int runEnv(const Args& args)
{
    if (args.empty())
        return UsageError("env", "create or copy is needed");
    const Args rest(args.begin() + 1, args.end());
    if (args[0] == "create") {
        if (!rest.empty())
            return UsageError("env", "create takes no arguments");
        return runCreate();
    }
    if (args[0] == "copy")
        return runCopy(rest);
    return UsageError("env", "unknown subcommand %s", args[0].c_str());
}

}  // namespace

TQM_REGISTER_COMMAND({"env", "create the suite's folders; put a settings file in place",
                      "usage: tqm env create\n"
                      "       tqm env copy [--machine] FILE\n\n"
                      "create  makes the folders a program of the suite needs, where they are\n"
                      "        missing: programs, local, projects, libraries, templates, user.\n"
                      "        Prints each with [created], [already there] or why not; exit\n"
                      "        status 1 when one is still missing.\n"
                      "copy    makes sure the settings file FILE (a bare name) has a writable\n"
                      "        copy in the user directory (--machine: the local directory),\n"
                      "        taken from the installed default in the programs' folder, and\n"
                      "        prints its path; exit status 1 when there is no copy and no\n"
                      "        default to take one from.\n",
                      runEnv});

}  // namespace tqmtool

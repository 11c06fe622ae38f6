// tqm exec APP [ARGS...]
//
// Starts a program of the suite from the applications directory as the
// suite's programs do (ExecApp), and says which main window was found and
// whether the program still runs.
#include "tools/tqm/Command.h"

#include "ipc/Processes.h"
#include "paths/InstallDirs.h"

#include <windows.h>

#include <stdio.h>

#include <string>

namespace tqmtool {
namespace {

// The arguments as one command-line tail, quoted where they hold blanks.
std::string joinArguments(Args::const_iterator first, Args::const_iterator last)
{
    std::string joined;
    for (auto it = first; it != last; ++it) {
        if (!joined.empty())
            joined += ' ';
        bool quote = it->empty() || it->find_first_of(" \t") != std::string::npos;
        joined += quote ? "\"" + *it + "\"" : *it;
    }
    return joined;
}

int runExec(const Args& args)
{
    if (args.empty())
        return UsageError("exec", "the APP is missing");
    const std::string arguments = joinArguments(args.begin() + 1, args.end());
    EXECAPPINFO info = {};
    if (!ExecApp(nullptr, args[0].c_str(), arguments.c_str(), &info, SW_SHOWNORMAL))
        return Fail("cannot start %s from the applications directory %s", args[0].c_str(),
                    TQMGetAppsDir().GetString());
    printf("started: process %lu, primary thread %lu\n", info.dwProcessId, info.dwThreadId);
    if (info.hWndMain) {
        char className[256] = "";
        GetClassNameA(info.hWndMain, className, sizeof(className));
        printf("main window: %08lX, class \"%s\", instance %p\n",
               static_cast<unsigned long>(reinterpret_cast<ULONG_PTR>(info.hWndMain)), className,
               static_cast<void*>(info.hInstance));
    } else {
        printf("main window: none found\n");
    }
    printf("still runs: %s\n", IsAppRunning(&info) ? "yes" : "no");
    return kExitOk;
}

}  // namespace

TQM_REGISTER_COMMAND({"exec", "start a program from the applications directory, find its main window",
                      "usage: tqm exec APP [ARGS...]\n\n"
                      "Starts APP (\".exe\" added when it has no extension) from the applications\n"
                      "directory, whatever folder APP names, with ARGS (ExecApp); waits up to 20\n"
                      "seconds until it is ready, then prints its process, the main window found\n"
                      "(the first top-level window of its primary thread, or else one whose class\n"
                      "name contains the program's name) and whether it still runs (IsAppRunning).\n"
                      "Exit 1 when it cannot be started.\n",
                      runExec});

}  // namespace tqmtool

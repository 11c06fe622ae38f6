// tqm help DESC [KEYWORD] - a library's help in its viewer.
//
// "tqm help COMMAND" (a command's usage) is main()'s: only arguments that name
// no command reach this one.
#include "tools/tqm/Command.h"

#include "libcatalog/LibraryLanguages.h"

#include <stdio.h>

namespace tqmtool {
namespace {

int runLibHelp(const Args& args)
{
    if (args.empty() || args.size() > 2)
        return UsageError("help", args.empty() ? "a description file is needed" : "too many arguments");
    const char* keyword = args.size() == 2 ? args[1].c_str() : nullptr;
    char path[MAX_PATH] = "";
    char code[3] = "";
    TQMGetUsableLibLanguage(args[0].c_str(), code);
    if (TQMGetLibHelpFilePath(args[0].c_str(), path))
        printf("%s help (%s): %s\n", keyword ? "keyword" : "contents", code, path);
    // The library reports every problem in a box; tqm prints the box on stderr.
    return TQMDisplayLibraryHelp(nullptr, args[0].c_str(), keyword) ? kExitOk : kExitNegative;
}

}  // namespace

TQM_REGISTER_COMMAND({"help", "a command's usage, or a library's help",
                      "usage: tqm help COMMAND\n"
                      "       tqm help DESC [KEYWORD]\n\n"
                      "With the name of a tqm command: its usage, as \"tqm COMMAND --help\" shows it.\n\n"
                      "With anything else: DESC is a library's description (\".tarnlin\"); its help\n"
                      "file in the library's usable language is opened with the viewer of its kind\n"
                      "(Windows Help, HTML Help, or the program associated with the file), at KEYWORD\n"
                      "when one is given. A library file named like a command is reached with a path\n"
                      "(.\\libs). Exits 1 when the help could not be shown (the reason on stderr).\n",
                      runLibHelp});

}  // namespace tqmtool

// tqm - the command line of the Tqmlib52 library.
#include "tools/tqm/Command.h"
#include "tools/tqm/BoxHook.h"

#include "diag/MessageBoxHook.h"

#include <ctype.h>
#include <errno.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <algorithm>
#include <map>
#include <string>

namespace tqmtool {
namespace {

std::map<std::string, Command>& registry()
{
    static std::map<std::string, Command> commands;
    return commands;
}

void printOverview()
{
    printf("usage: tqm COMMAND [ARGS...]\n\n"
           "The command line of Tqmlib52, the QM5 suite's shared support library.\n\n"
           "Commands:\n");
    for (const auto& entry : registry())
        printf("  %-10s %s\n", entry.first.c_str(), entry.second.summary);
    printf("\n\"tqm COMMAND --help\" describes a command.\n");
}

int CALLBACK answerBox(HWND, const char* pszText, const char* pszCaption, UINT uType, void*)
{
    fprintf(stderr, "tqm: [%s] %s\n", pszCaption, pszText);
    return TqmNonInteractiveAnswer(uType);
}

}  // namespace

void InstallToolBoxHook() { TQMSetMessageBoxHook(answerBox, nullptr); }

bool RegisterCommand(const Command& command)
{
    registry()[command.name] = command;
    return true;
}

int UsageError(const char* commandName, const char* format, ...)
{
    fprintf(stderr, "tqm %s: ", commandName);
    va_list args;
    va_start(args, format);
    vfprintf(stderr, format, args);
    va_end(args);
    fprintf(stderr, "\nTry \"tqm %s --help\".\n", commandName);
    return kExitUsage;
}

int Fail(const char* format, ...)
{
    fprintf(stderr, "tqm: ");
    va_list args;
    va_start(args, format);
    vfprintf(stderr, format, args);
    va_end(args);
    fprintf(stderr, "\n");
    return kExitNegative;
}

bool WantsHelp(const Args& args)
{
    return std::any_of(args.begin(), args.end(), [](const std::string& a) { return a == "-h" || a == "--help"; });
}

bool ParseInteger(const std::string& text, long long min, long long max, long long& value)
{
    if (text.empty() || isspace(static_cast<unsigned char>(text[0])))
        return false;
    char* end = nullptr;
    errno = 0;
    long long number = strtoll(text.c_str(), &end, 0);
    if (*end || errno || number < min || number > max)
        return false;
    value = number;
    return true;
}

}  // namespace tqmtool

int main(int argc, char** argv)
{
    using namespace tqmtool;
    InstallToolBoxHook();

    // "tqm help COMMAND" shows the command's usage; "tqm help" with anything
    // else goes to the help command (a library's help).
    const bool helpOnCommand = argc >= 2 && !strcmp(argv[1], "help") && (argc < 3 || registry().count(argv[2]));
    if (argc < 2 || !strcmp(argv[1], "-h") || !strcmp(argv[1], "--help") || helpOnCommand) {
        if (argc >= 3 && helpOnCommand) {
            fputs(registry()[argv[2]].usage, stdout);
            return kExitOk;
        }
        printOverview();
        return argc < 2 ? kExitUsage : kExitOk;
    }

    auto it = registry().find(argv[1]);
    if (it == registry().end()) {
        fprintf(stderr, "tqm: unknown command \"%s\"; \"tqm --help\" lists the commands.\n", argv[1]);
        return kExitUsage;
    }
    Args args(argv + 2, argv + argc);
    if (args.size() == 1 && WantsHelp(args)) {
        fputs(it->second.usage, stdout);
        return kExitOk;
    }
    fflush(stdout);
    int rc = it->second.run(args);
    fflush(stdout);
    return rc;
}

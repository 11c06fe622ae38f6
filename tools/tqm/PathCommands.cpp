// tqm path check|full|rel
#include "tools/tqm/Command.h"

#include "paths/PathNames.h"
#include "paths/logic/PathNameRules.h"

#include <stdio.h>
#include <string.h>

namespace tqmtool {
namespace {

enum class NameKind
{
    Path,           // TQMIsValidPathName
    FileName,       // TQMIsValidFileName with an extension allowed
    FileNameNoExt   // TQMIsValidFileName without one
};

// Why name fails, in words; empty when it is valid.
std::string reasonAgainst(const std::string& name, NameKind kind, bool wildcards)
{
    const bool fileName = kind != NameKind::Path;
    const tqm::PathNameVerdict verdict = tqm::CheckPathName(name.c_str(), wildcards && !fileName);
    if (!verdict.valid()) {
        std::string reason = tqm::DescribePathNameFault(verdict.fault);
        if (verdict.position >= 0) {
            char where[64];
            const unsigned char ch = static_cast<unsigned char>(name[verdict.position]);
            if (ch >= 32 && ch < 127)
                snprintf(where, sizeof(where), " (character %d, '%c')", verdict.position + 1, ch);
            else
                snprintf(where, sizeof(where), " (character %d, byte 0x%02X)", verdict.position + 1, ch);
            reason += where;
        }
        return reason;
    }
    if (fileName && TQMHasDir(name.c_str()))
        return "not a bare file name (it has a folder or drive part)";
    if (kind == NameKind::FileNameNoExt && name.find('.') != std::string::npos)
        return "a dot is not allowed here";
    return std::string();
}

bool isValid(const std::string& name, NameKind kind, bool wildcards)
{
    switch (kind) {
    case NameKind::Path: return TQMIsValidPathName(name.c_str(), wildcards) != 0;
    case NameKind::FileName: return TQMIsValidFileName(name.c_str(), TRUE) != FALSE;
    case NameKind::FileNameNoExt: return TQMIsValidFileName(name.c_str(), FALSE) != FALSE;
    }
    return false;
}

int runCheck(const Args& args)
{
    NameKind kind = NameKind::Path;
    bool wildcards = false;
    Args names;
    bool optionsDone = false;
    for (const std::string& arg : args) {
        if (!optionsDone && arg == "--") {
            optionsDone = true;
        } else if (!optionsDone && (arg == "-w" || arg == "--wildcards")) {
            wildcards = true;
        } else if (!optionsDone && arg == "--file") {
            kind = NameKind::FileName;
        } else if (!optionsDone && arg == "--file-no-ext") {
            kind = NameKind::FileNameNoExt;
        } else if (!optionsDone && arg.size() > 1 && arg[0] == '-') {
            return UsageError("path", "unknown option %s", arg.c_str());
        } else {
            names.push_back(arg);
        }
    }
    if (names.empty())
        return UsageError("path", "check needs at least one name");
    if (wildcards && kind != NameKind::Path)
        return UsageError("path", "file names never take wildcards");

    int invalid = 0;
    for (const std::string& name : names) {
        if (isValid(name, kind, wildcards)) {
            printf("%s: valid\n", name.c_str());
            continue;
        }
        ++invalid;
        const std::string reason = reasonAgainst(name, kind, wildcards);
        printf("%s: invalid: %s\n", name.c_str(), reason.empty() ? "refused" : reason.c_str());
    }
    return invalid ? kExitNegative : kExitOk;
}

int runConversion(const char* what, const Args& args)
{
    if (args.size() != 2)
        return UsageError("path", "%s needs BASE and PATH", what);
    const CString result = !strcmp(what, "full") ? TQMGetFullPath(args[0].c_str(), args[1].c_str())
                                                 : TQMGetRelativePath(args[0].c_str(), args[1].c_str());
    printf("%s\n", result.GetString());
    return kExitOk;
}

int runPath(const Args& args)
{
    if (args.empty())
        return UsageError("path", "check, full or rel is needed");
    const std::string& sub = args[0];
    const Args rest(args.begin() + 1, args.end());
    if (sub == "check")
        return runCheck(rest);
    if (sub == "full" || sub == "rel")
        return runConversion(sub.c_str(), rest);
    return UsageError("path", "unknown subcommand %s", sub.c_str());
}

}  // namespace

TQM_REGISTER_COMMAND({"path", "check names by the suite's rules; full and relative paths",
                      "usage: tqm path check [--wildcards | --file | --file-no-ext] NAME...\n"
                      "       tqm path full BASE PATH\n"
                      "       tqm path rel BASE PATH\n\n"
                      "check   tells for each NAME whether it is a valid path name by the suite's\n"
                      "        rules, or why not. The rules are narrower than Windows' own: a folder\n"
                      "        name may not start with a dot (..\\x is valid, ..\\..\\x is not), only\n"
                      "        letters, digits and  $%'-_@~`!()^#&+,=[]  are allowed besides the dot\n"
                      "        and the backslash, and COM1..COM9, LPT1..LPT9 and AUX are reserved.\n"
                      "        --wildcards  allow ? and *\n"
                      "        --file       a bare file name (no folder or drive)\n"
                      "        --file-no-ext  a bare file name without any dot\n"
                      "        Exit status 1 when any NAME is invalid.\n"
                      "full    PATH made absolute against the folder BASE (..\\ and .\\ resolved;\n"
                      "        BASE must begin with a drive letter).\n"
                      "rel     PATH relative to the folder BASE, as the suite stores it.\n",
                      runPath});

}  // namespace tqmtool

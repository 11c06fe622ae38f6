// tqm file compare|match
#include "tools/tqm/Command.h"

#include "paths/FileOperations.h"

#include <stdio.h>

namespace tqmtool {
namespace {

int runCompare(const Args& args)
{
    if (args.size() != 2)
        return UsageError("file", "compare needs two files");
    for (const std::string& path : args) {
        const DWORD attributes = GetFileAttributesA(path.c_str());
        if (attributes == INVALID_FILE_ATTRIBUTES)
            return Fail("%s: not found", path.c_str());
        if (attributes & FILE_ATTRIBUTE_DIRECTORY)
            return Fail("%s: is a folder", path.c_str());
    }
    if (TQMCompareFiles(args[0].c_str(), args[1].c_str())) {
        printf("identical\n");
        return kExitOk;
    }
    printf("different\n");
    return kExitNegative;
}

int runMatch(const Args& args)
{
    if (args.size() < 2)
        return UsageError("file", "match needs a pattern and at least one name");
    int misses = 0;
    for (size_t i = 1; i < args.size(); ++i) {
        const bool match = TQMWildcardCompare(args[0].c_str(), args[i].c_str()) != FALSE;
        printf("%-8s %s\n", match ? "match" : "no match", args[i].c_str());
        if (!match)
            ++misses;
    }
    return misses ? kExitNegative : kExitOk;
}

int runFile(const Args& args)
{
    if (args.empty())
        return UsageError("file", "compare or match is needed");
    const Args rest(args.begin() + 1, args.end());
    if (args[0] == "compare")
        return runCompare(rest);
    if (args[0] == "match")
        return runMatch(rest);
    return UsageError("file", "unknown subcommand %s", args[0].c_str());
}

}  // namespace

TQM_REGISTER_COMMAND({"file", "compare files byte by byte; match names against wildcards",
                      "usage: tqm file compare A B\n"
                      "       tqm file match PATTERN NAME...\n\n"
                      "compare  prints \"identical\" (exit 0) or \"different\" (exit 1) for two files;\n"
                      "         a missing file is exit 1 too.\n"
                      "match    tells for each NAME whether it matches PATTERN, where ? stands for\n"
                      "         any one character and * for any run, case ignored. Exit 1 when any\n"
                      "         NAME does not match.\n",
                      runFile});

}  // namespace tqmtool

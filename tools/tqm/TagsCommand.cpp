// tqm tags subst|unsubst PATH [--project DIR] [--device DIR], tqm tags list
#include "tools/tqm/Command.h"

#include "paths/PathTags.h"
#include "paths/logic/PathTagRules.h"

#include <stdio.h>

namespace tqmtool {
namespace {

int runList()
{
    for (const tqm::PathTag& tag : tqm::kUnSubstTags)
        printf("%-16s %s\n", tag.name, TQMUnSubstAppPathTags(tag.name).GetString());
    printf("%-16s (the project: --project DIR, else the projects directory)\n", tqm::kProjDirTag);
    printf("%-16s (the device: --device DIR)\n", tqm::kDevDirTag);
    printf("%-16s (the same as %s)\n", tqm::kCpuDirTag, tqm::kDevDirTag);
    return kExitOk;
}

int runConversion(bool subst, const Args& args)
{
    const char* what = subst ? "subst" : "unsubst";
    const std::string* path = nullptr;
    const std::string* project = nullptr;
    const std::string* device = nullptr;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (arg == "--project" || arg == "--device") {
            if (i + 1 == args.size())
                return UsageError("tags", "%s needs a folder", arg.c_str());
            (arg == "--project" ? project : device) = &args[++i];
        } else if (arg.size() > 1 && arg[0] == '-' && arg[1] == '-') {
            return UsageError("tags", "unknown option %s", arg.c_str());
        } else if (path) {
            return UsageError("tags", "%s takes one PATH", what);
        } else {
            path = &arg;
        }
    }
    if (!path)
        return UsageError("tags", "%s needs a PATH", what);

    CString result;
    if (project || device) {
        const char* projDir = project ? project->c_str() : nullptr;
        const char* devDir = device ? device->c_str() : nullptr;
        result = subst ? TQMSubstAppPathTags(path->c_str(), projDir, devDir)
                       : TQMUnSubstAppPathTags(path->c_str(), projDir, devDir);
    } else {
        result = subst ? TQMSubstAppPathTags(path->c_str()) : TQMUnSubstAppPathTags(path->c_str());
    }
    printf("%s\n", result.GetString());
    if (result.GetLength() >= MAX_PATH)
        fprintf(stderr, "tqm tags: note: the result has %d characters; the buffer forms leave a caller's "
                        "MAX_PATH buffer untouched\n", result.GetLength());
    return kExitOk;
}

int runTags(const Args& args)
{
    if (args.empty())
        return UsageError("tags", "subst, unsubst or list is needed");
    const Args rest(args.begin() + 1, args.end());
    if (args[0] == "list" && rest.empty())
        return runList();
    if (args[0] == "subst" || args[0] == "unsubst")
        return runConversion(args[0] == "subst", rest);
    return UsageError("tags", "unknown subcommand %s", args[0].c_str());
}

}  // namespace

TQM_REGISTER_COMMAND({"tags", "store paths with path tags and expand them again",
                      "usage: tqm tags subst PATH [--project DIR] [--device DIR]\n"
                      "       tqm tags unsubst PATH [--project DIR] [--device DIR]\n"
                      "       tqm tags list\n\n"
                      "subst    PATH as the suite stores it: its leading directory replaced by a\n"
                      "         tag such as <$ProjectsDir> (Program Files first, then templates,\n"
                      "         libraries, projects, user, local, programs, the folder above\n"
                      "         them, documents). With --device, a path in DIR becomes\n"
                      "         <$DevDir>...; with --project (or --device), a path in the\n"
                      "         project DIR (else the projects directory) becomes <$ProjDir>....\n"
                      "unsubst  a stored PATH expanded again against the directories as they\n"
                      "         are now. <$ProjDir>, <$DevDir> and <$CpuDir> expand only with\n"
                      "         --project or --device (<$ProjDir> to the projects directory when\n"
                      "         only --device is given). A PATH without a known tag is printed\n"
                      "         unchanged.\n"
                      "list     every tag and what it expands to now.\n\n"
                      "Tags and directories compare without regard to case, over their own\n"
                      "length: with projects in C:\\Projects, C:\\Projects2\\a becomes\n"
                      "<$ProjectsDir>2\\a, as stored files have always had it.\n",
                      runTags});

}  // namespace tqmtool

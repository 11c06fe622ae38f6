// tqm project-libs FILE - the libraries a project uses.
#include "tools/tqm/CatalogueText.h"
#include "tools/tqm/Command.h"

#include "libcatalog/LibraryLists.h"

#include <stdio.h>

namespace tqmtool {
namespace {

int runProjectLibs(const Args& args)
{
    if (args.size() != 1)
        return UsageError("project-libs", args.empty() ? "a project file is needed" : "too many arguments");
    HGLOBAL block = TQMGetProjectLibraries(args[0].c_str());
    if (!block)
        return Fail("no project file for %s", args[0].c_str());
    const std::vector<std::string> files = TakeListBlock(block);
    for (const std::string& file : files)
        printf("%s\n", file.c_str());
    if (files.empty())
        fprintf(stderr, "tqm: the project uses no libraries\n");
    return kExitOk;
}

}  // namespace

TQM_REGISTER_COMMAND({"project-libs", "the libraries a project uses",
                      "usage: tqm project-libs FILE\n\n"
                      "Prints the description files of the libraries the project uses, one full path\n"
                      "a line, with their path tags expanded. FILE is the project file (\".tarn5pj\")\n"
                      "or a controller file (\".tarn5pc\") in one of the project's controller folders.\n"
                      "A project file without \"NumberOfLibs\" uses every installed library.\n\n"
                      "Exits 1 when there is no project file.\n",
                      runProjectLibs});

}  // namespace tqmtool

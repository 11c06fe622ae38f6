// tqm libs [--all] - the installed libraries.
#include "tools/tqm/CatalogueText.h"
#include "tools/tqm/Command.h"

#include "libcatalog/LibraryLists.h"
#include "paths/InstallDirs.h"

#include <stdio.h>

namespace tqmtool {
namespace {

int runLibs(const Args& args)
{
    bool all = false;
    for (const std::string& arg : args) {
        if (arg == "--all")
            all = true;
        else
            return UsageError("libs", "unexpected argument \"%s\"", arg.c_str());
    }
    HGLOBAL block = TQMGetInstalledLibraries(all ? FALSE : TRUE);
    if (!block)
        return Fail("out of memory");
    std::vector<LibraryRow> rows;
    for (const std::string& path : TakeListBlock(block))
        rows.push_back(DescribeLibrary(path));
    const std::string libsDir = TQMGetLibsDir().GetString();
    if (rows.empty()) {
        printf("No libraries installed in %s\n", libsDir.c_str());
        return kExitOk;
    }
    PrintLibraryTable(rows, libsDir);
    return kExitOk;
}

}  // namespace

TQM_REGISTER_COMMAND({"libs", "the installed function-block libraries",
                      "usage: tqm libs [--all]\n\n"
                      "Lists the libraries installed below the libraries directory (their \".tarnlin\"\n"
                      "descriptions), one row each: display name, the language it is shown in (\"*\":\n"
                      "the preferred library language), ID, version, distributor and the description's\n"
                      "path relative to the libraries directory.\n\n"
                      "Of a library installed twice only the copy the suite uses is listed: the higher\n"
                      "version, or with equal versions the one in its own install folder.\n"
                      "  --all   every description, duplicates included\n",
                      runLibs});

}  // namespace tqmtool

// tqm check-id ID OWNNAME [PROJECT] - other libraries with a library's identity.
#include "tools/tqm/CatalogueText.h"
#include "tools/tqm/Command.h"

#include "libcatalog/LibraryLists.h"

#include <stdio.h>

namespace tqmtool {
namespace {

int runCheckId(const Args& args)
{
    if (args.size() < 2 || args.size() > 3)
        return UsageError("check-id", args.size() < 2 ? "an ID and the library's own name are needed"
                                                      : "too many arguments");
    const char* project = args.size() == 3 ? args[2].c_str() : nullptr;
    const std::vector<std::string> lines = TakeListBlock(TQMCheckLibraryID(args[0].c_str(), args[1].c_str(), project));
    if (lines.empty()) {
        printf("No other library carries the ID %s\n", args[0].c_str());
        return kExitOk;
    }
    printf("%zu other %s the ID %s:\n", lines.size(), lines.size() == 1 ? "library carries" : "libraries carry",
           args[0].c_str());
    for (const std::string& line : lines) {
        // name, ID, version and distributor, each ended by a tab
        std::string fields[4];
        size_t start = 0;
        for (std::string& field : fields) {
            const size_t tab = line.find('\t', start);
            field = line.substr(start, tab == std::string::npos ? std::string::npos : tab - start);
            start = tab == std::string::npos ? line.size() : tab + 1;
        }
        printf("  %s  version %s  from %s\n", fields[0].empty() ? "(no name)" : fields[0].c_str(),
               fields[2].c_str(), fields[3].empty() ? "(no distributor)" : fields[3].c_str());
    }
    return kExitNegative;
}

}  // namespace

TQM_REGISTER_COMMAND({"check-id", "other libraries that carry a library's ID",
                      "usage: tqm check-id ID OWNNAME [PROJECT]\n\n"
                      "Looks for libraries whose [Library] ID is ID (without regard to case) among\n"
                      "the installed ones and, with PROJECT (a project or controller file), those the\n"
                      "project uses - all but the library whose description is named OWNNAME\n"
                      "(without folder and extension). Prints each one's name, version and\n"
                      "distributor.\n\n"
                      "Exits 0 when no other library carries ID, 1 when some do (a clash).\n",
                      runCheckId});

}  // namespace tqmtool

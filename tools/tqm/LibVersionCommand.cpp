// tqm libversion TEXT... - library version texts as numbers.
#include "tools/tqm/Command.h"

#include "libcatalog/LibraryLists.h"

#include <stdio.h>

namespace tqmtool {
namespace {

int runLibVersion(const Args& args)
{
    if (args.empty())
        return UsageError("libversion", "a version text is needed");
    bool allWellFormed = true;
    for (const std::string& text : args) {
        DWORD value = 0;
        const bool wellFormed = TQMParseLibraryVersion(text.c_str(), &value) != FALSE;
        printf("%-16s %9lu  %u.%u.%u  %s\n", text.c_str(), static_cast<unsigned long>(value),
               static_cast<unsigned>(value / 1000000), static_cast<unsigned>(value / 1000 % 1000),
               static_cast<unsigned>(value % 1000), wellFormed ? "well-formed" : "malformed");
        allWellFormed = allWellFormed && wellFormed;
    }
    return allWellFormed ? kExitOk : kExitNegative;
}

}  // namespace

TQM_REGISTER_COMMAND({"libversion", "library version texts as the catalogue compares them",
                      "usage: tqm libversion TEXT...\n\n"
                      "Prints, for each TEXT, its version number (major * 1,000,000 + minor * 1,000 +\n"
                      "build), the three parts, and whether the text is well-formed. A text is dotted\n"
                      "(2.1.30, V2.1.30) or the nine-digit number itself (002001030). A malformed text\n"
                      "still has the number of what was read before the fault, which is what the\n"
                      "catalogue compares.\n\n"
                      "Exits 1 when any TEXT is malformed.\n",
                      runLibVersion});

}  // namespace tqmtool

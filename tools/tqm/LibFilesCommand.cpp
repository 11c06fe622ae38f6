// tqm libfiles DESC - the file set of a library.
#include "tools/tqm/CatalogueText.h"
#include "tools/tqm/Command.h"

#include "libcatalog/LibraryFiles.h"

#include <stdio.h>
#include <string.h>

namespace tqmtool {
namespace {

int runLibFiles(const Args& args)
{
    if (args.size() != 1)
        return UsageError("libfiles", args.empty() ? "a description file is needed" : "too many arguments");
    HGLOBAL messageBlock = nullptr;
    const std::vector<std::string> files = TakeListBlock(TQMGetLibraryFiles(args[0].c_str(), &messageBlock));
    const std::vector<std::string> messages = TakeListBlock(messageBlock);
    for (const std::string& file : files)
        printf("%s\n", file.c_str());
    bool error = false;
    for (const std::string& message : messages) {
        printf("%s\n", message.c_str());
        error = error || !strncmp(message.c_str(), "Error:", 6);
    }
    return error ? kExitNegative : kExitOk;
}

}  // namespace

TQM_REGISTER_COMMAND({"libfiles", "every file of a library, with the problems found",
                      "usage: tqm libfiles DESC\n\n"
                      "Prints the files of the library described by DESC - a \".tarnlin\" or \".lin\"\n"
                      "description, a family file \".dff\" or a definition file \".def\" - one full path\n"
                      "a line, as the library collects them for copying or installing: the listed\n"
                      "files, the families' files, language folders, and the files the object files\n"
                      "and sources name. Then the messages raised on the way (\"Error: ...\",\n"
                      "\"Warning: ...\").\n\n"
                      "Exits 1 when any \"Error:\" line was raised. DESC must be a file (not -): the\n"
                      "library's files are found beside it.\n",
                      runLibFiles});

}  // namespace tqmtool

// Library list blocks and library rows for tqm.
#include "tools/tqm/CatalogueText.h"

#include "config/Profile.h"
#include "framework/Handles.h"
#include "libcatalog/LibraryLanguages.h"
#include "libcatalog/logic/ListBlock.h"

#include <stdio.h>
#include <string.h>

#include <algorithm>

namespace tqmtool {

std::vector<std::string> TakeListBlock(HGLOBAL block)
{
    tqm::UniqueGlobal owner(block);
    if (!owner)
        return {};
    tqm::GlobalLock lock(owner.get());
    if (!lock.get())
        return {};
    return tqm::DecodeListBlock(lock.as<const char>(), GlobalSize(owner.get()));
}

LibraryRow DescribeLibrary(const std::string& descriptionFile)
{
    const char* file = descriptionFile.c_str();
    char code[3];
    const BOOL preferred = TQMGetUsableLibLanguage(file, code);
    LibraryRow row;
    row.name = TQMGetProfileString(code, "Name", "", file).GetString();
    row.language = std::string(code) + (preferred ? "*" : "");
    row.id = TQMGetProfileString("Library", "ID", "", file).GetString();
    row.version = TQMGetProfileString("Library", "Version", "", file).GetString();
    row.distributor = TQMGetProfileString("Distributor", "Name", "", file).GetString();
    row.path = descriptionFile;
    return row;
}

void PrintLibraryTable(const std::vector<LibraryRow>& rows, const std::string& base)
{
    auto shown = [&](const std::string& path) {
        if (!base.empty() && path.size() > base.size() + 1 && !_strnicmp(path.c_str(), base.c_str(), base.size()) &&
            path[base.size()] == '\\')
            return path.substr(base.size() + 1);
        return path;
    };
    size_t widths[5] = {strlen("NAME"), strlen("LANG"), strlen("ID"), strlen("VERSION"), strlen("DISTRIBUTOR")};
    for (const LibraryRow& row : rows) {
        widths[0] = std::max(widths[0], row.name.size());
        widths[1] = std::max(widths[1], row.language.size());
        widths[2] = std::max(widths[2], row.id.size());
        widths[3] = std::max(widths[3], row.version.size());
        widths[4] = std::max(widths[4], row.distributor.size());
    }
    auto print = [&](const std::string& name, const std::string& language, const std::string& id,
                     const std::string& version, const std::string& distributor, const std::string& path) {
        printf("%-*s  %-*s  %-*s  %-*s  %-*s  %s\n", static_cast<int>(widths[0]), name.c_str(),
               static_cast<int>(widths[1]), language.c_str(), static_cast<int>(widths[2]), id.c_str(),
               static_cast<int>(widths[3]), version.c_str(), static_cast<int>(widths[4]), distributor.c_str(),
               path.c_str());
    };
    print("NAME", "LANG", "ID", "VERSION", "DISTRIBUTOR", "PATH");
    for (const LibraryRow& row : rows)
        print(row.name, row.language, row.id, row.version, row.distributor, shown(row.path));
}

}  // namespace tqmtool

// TQMGetInstalledLibraries: the descriptions below the libraries directory.
#include "libcatalog/LibraryLists.h"

#include "config/IniSystemFold.h"
#include "libcatalog/CatalogueCall.h"
#include "libcatalog/CatalogueFiles.h"
#include "libcatalog/LibraryListBlock.h"
#include "libcatalog/ProfileSection.h"
#include "libcatalog/logic/DuplicateLibraries.h"
#include "libcatalog/logic/FoldedNameSet.h"
#include "libcatalog/logic/LibraryMembers.h"
#include "libcatalog/logic/LibraryVersion.h"
#include "paths/InstallDirs.h"

namespace tqm {
namespace {

// Adds the descriptions in folder and, depth first, in its subfolders.
// Matches are taken by their exact extension: the system's search also
// matches short names, so "*.tarnlin" could find a "*.tarnlinx". Linked
// folders are entered like any other (a libraries folder moved to another
// disk and linked back); visited ends the cycles that links can make.
void collectDescriptions(const std::string& folder, std::vector<std::string>& list, FoldedNameSet& known,
                         VisitedFolders& visited)
{
    ForEachMatch(folder + "\\*.tarnlin", [&](const WIN32_FIND_DATAA& data) {
        if (!IsFolder(data) && HasExtension(data.cFileName, ".tarnlin")) {
            std::string path = folder + "\\" + data.cFileName;
            if (known.Insert(path))
                list.push_back(std::move(path));
        }
        return true;
    });
    ForEachMatch(folder + "\\*.*", [&](const WIN32_FIND_DATAA& data) {
        if (!IsFolder(data))
            return true;
        const std::string subfolder = folder + "\\" + data.cFileName;
        if (visited.Enter(subfolder, IsLinkedFolder(data)))
            collectDescriptions(subfolder, list, known, visited);
        return true;
    });
}

// The entries duplicate removal compares, read once per description.
InstalledLibrary readLibraryEntries(const std::string& path, const std::string& libsDir)
{
    ProfileSection library;
    library.Read(path.c_str(), "Library");
    InstalledLibrary entries;
    entries.path = path;
    entries.id = library.Value("ID", "");
    uint32_t version = 0;
    ParseLibraryVersion(library.Value("Version", ""), &version);
    entries.version = version;
    entries.folder = libsDir + "\\" + library.Value("InstallDir", "");
    return entries;
}

}  // namespace

std::vector<std::string> InstalledLibraryFiles(bool removeDuplicates)
{
    const std::string libsDir = TQMGetLibsDir().GetString();
    std::vector<std::string> list;
    FoldedNameSet known(ini::SystemNameFold());
    VisitedFolders visited;
    visited.Enter(libsDir, false);
    collectDescriptions(libsDir, list, known, visited);
    if (!removeDuplicates)
        return list;

    std::vector<InstalledLibrary> table;
    table.reserve(list.size());
    for (const std::string& path : list)
        table.push_back(readLibraryEntries(path, libsDir));
    std::vector<std::string> kept;
    for (size_t i : ResolveDuplicateLibraries(table, ini::SystemNameFold()))
        kept.push_back(std::move(list[i]));
    return kept;
}

}  // namespace tqm

HGLOBAL WINAPI TQMGetInstalledLibraries(BOOL removeDuplicates)
{
    return tqm::CatalogueCall<HGLOBAL>(nullptr, [&] {
        return tqm::MakeLibraryListBlock(tqm::InstalledLibraryFiles(removeDuplicates != FALSE));
    });
}

// TQMCheckLibraryID: the other libraries that carry an identity.
#include "libcatalog/LibraryLists.h"

#include "config/IniSystemFold.h"
#include "config/Profile.h"
#include "libcatalog/CatalogueCall.h"
#include "libcatalog/DescriptionReaders.h"
#include "libcatalog/LibraryLanguages.h"
#include "libcatalog/LibraryListBlock.h"
#include "libcatalog/ProfileSection.h"
#include "libcatalog/logic/FoldedNameSet.h"

namespace tqm {
namespace {

// The line of one clashing library: display name, ID, version and
// distributor, each followed by a tab. The path is not part of it.
std::string clashLine(const std::string& path, const char* id, const ProfileSection& library)
{
    char code[3];
    TQMGetUsableLibLanguage(path.c_str(), code);
    CString line;
    line.Format("%s\t%s\t%s\t%s\t", TQMGetProfileString(code, "Name", "", path.c_str()).GetString(), id,
                library.Value("Version", ""),
                TQMGetProfileString("Distributor", "Name", "", path.c_str()).GetString());
    return std::string(line.GetString(), line.GetLength());
}

std::vector<std::string> clashes(const char* id, const char* ownName, const char* projectFile)
{
    std::vector<std::string> candidates = InstalledLibraryFiles(false);
    std::vector<std::string> used;
    if (projectFile && *projectFile && ProjectLibraryFiles(projectFile, used))
        candidates.insert(candidates.end(), used.begin(), used.end());

    const ini::NameFold& fold = ini::SystemNameFold();
    FoldedNameSet kept(fold);
    std::vector<std::string> lines;
    for (const std::string& path : candidates) {
        if (fold.Equal(BaseNameOf(path).c_str(), ownName))
            continue;
        ProfileSection library;
        library.Read(path.c_str(), "Library");
        if (!fold.Equal(library.Value("ID", ""), id) || !kept.Insert(path))
            continue;
        lines.push_back(clashLine(path, id, library));
    }
    return lines;
}

}  // namespace
}  // namespace tqm

HGLOBAL WINAPI TQMCheckLibraryID(const char* id, const char* ownName, const char* projectFile)
{
    return tqm::CatalogueCall<HGLOBAL>(nullptr, [&]() -> HGLOBAL {
        const std::vector<std::string> lines = tqm::clashes(id ? id : "", ownName ? ownName : "", projectFile);
        return lines.empty() ? nullptr : tqm::MakeLibraryListBlock(lines);
    });
}

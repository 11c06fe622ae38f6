// TQMGetLibraryFiles: read the description, complete the set, hand it over.
#include "libcatalog/LibraryFiles.h"

#include "libcatalog/CatalogueCall.h"
#include "libcatalog/DescriptionReaders.h"
#include "libcatalog/FileSetCompletion.h"
#include "libcatalog/LibraryListBlock.h"
#include "paths/logic/PathText.h"

#include <shlwapi.h>

namespace tqm {
namespace {

// The description's path as a full path: the set holds full paths only.
std::string fullPathOf(const char* path)
{
    if (!PathIsRelativeA(path))
        return path;
    char full[MAX_PATH];
    const DWORD length = GetFullPathNameA(path, MAX_PATH, full, nullptr);
    return (length > 0 && length < MAX_PATH) ? std::string(full, length) : std::string(path);
}

// Reads the description by its kind; false when the call ends here (an
// unreadable definition file or an unknown kind).
bool readDescription(const std::string& path, LibraryFileSet& set)
{
    switch (DescriptionKindOf(path)) {
    case DescriptionKind::Current:
        ReadCurrentDescription(path, set);
        return true;
    case DescriptionKind::Older:
        ReadOlderDescription(path, set);
        return true;
    case DescriptionKind::FamilyFile:
        ReadFamilyFile(path, set);
        return true;
    case DescriptionKind::Definition:
        return ReadDefinitionFile(path, set);
    case DescriptionKind::Unknown:
        break;
    }
    // Names three kinds though ".tarnlin" is read too: the text is kept as it stands.
    set.Raise("Error: Invalid file type, expected .LIN .DFF or .DEF: %s", path.c_str());
    return false;
}

// Two descriptions name a file they need without listing it.
void addFixedFiles(const std::string& path, LibraryFileSet& set)
{
    const CString name = FileNameOf(path.c_str());
    const std::string folder = FolderOf(path);
    if (!name.CompareNoCase("orva1.lin"))
        set.AddFile(folder + "\\Orvasect.txt");
    else if (!name.CompareNoCase("linkbase.lin"))
        set.AddFile(folder + "\\Link.lmi");
}

}  // namespace
}  // namespace tqm

HGLOBAL WINAPI TQMGetLibraryFiles(const char* descriptionFile, HGLOBAL* messages)
{
    using namespace tqm;
    if (!descriptionFile || !*descriptionFile)
        return nullptr;
    return CatalogueCall<HGLOBAL>(nullptr, [&]() -> HGLOBAL {
        const std::string path = fullPathOf(descriptionFile);
        LibraryFileSet set;
        set.AddFile(path);
        if (readDescription(path, set)) {
            CompleteLibraryFileSet(FolderOf(path), set);
            addFixedFiles(path, set);
        }
        if (messages && !set.Messages().empty())
            *messages = MakeLibraryListBlock(set.Messages());
        const std::vector<std::string> files = set.Files();
        return files.empty() ? nullptr : MakeLibraryListBlock(files);
    });
}

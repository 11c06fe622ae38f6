// The convertible-library scan and its stop flag.
#include "libcatalog/ConvertibleLibraries.h"

#include "config/IniFile.h"
#include "config/IniSystemFold.h"
#include "config/Profile.h"
#include "config/Tokenizer.h"
#include "libcatalog/CatalogueCall.h"
#include "libcatalog/CatalogueFiles.h"
#include "libcatalog/DescriptionReaders.h"
#include "libcatalog/LibraryListBlock.h"
#include "libcatalog/ProfileSection.h"
#include "libcatalog/logic/ExcludedFamilies.h"
#include "libcatalog/logic/FoldedNameSet.h"
#include "libcatalog/logic/LibraryMembers.h"
#include "paths/InstallDirs.h"
#include "paths/logic/PathText.h"

#include <stdio.h>

#include <atomic>

namespace tqm {
namespace {

// Set by the stop function on any thread, polled by the scan; nothing else
// is ordered by it.
std::atomic<bool> s_stopRequested{false};

bool stopRequested() { return s_stopRequested.load(std::memory_order_relaxed); }

// Subfolders that hold a library's languages rather than libraries.
const char* const kLanguageFolders[] = {"English", "French", "Italian", "German", "HP"};

bool exists(const std::string& path, const char* ext)
{
    return IsExistingFile(ChangeFileExt(path.c_str(), ext));
}

class ConvertibleScan
{
public:
    ConvertibleScan(bool recurse) : m_recurse(recurse) {}

    // Scans the tree below folder: folder and, with recurse, its subfolders,
    // each folder once; false once stopped.
    bool ScanTree(const std::string& folder)
    {
        m_visited = VisitedFolders();
        m_visited.Enter(folder, false);
        return Scan(folder);
    }
    std::vector<std::string>& Candidates() { return m_candidates; }

private:
    // What one folder's scan learns on the way.
    struct FolderState
    {
        FolderState() : languages(ini::SystemNameFold()), familyDefinitions(ini::SystemNameFold()) {}
        FoldedNameSet languages;          // language names of its ".lin" files
        FoldedNameSet familyDefinitions;  // ".def" files converted with their family file
    };

    // Calls take for each file of pattern's exact extension; false once stopped.
    template <typename Take>
    bool forEachFile(const std::string& folder, const char* ext, Take take);

    void takeDescription(const std::string& path, const char* name, FolderState& state);
    void takeFamilyFile(const std::string& folder, const std::string& path, FolderState& state);
    void takeDefinition(const std::string& path, const FolderState& state);
    bool scanSubfolders(const std::string& folder, const FolderState& state);
    // Scans folder (and, with recurse, its subfolders); false once stopped.
    bool Scan(const std::string& folder);

    bool m_recurse;
    VisitedFolders m_visited;
    std::vector<std::string> m_candidates;
};

template <typename Take>
bool ConvertibleScan::forEachFile(const std::string& folder, const char* ext, Take take)
{
    if (stopRequested())
        return false;
    // The system's search matches short names too ("*.def" finds "a.default"):
    // only the exact extension counts.
    return ForEachMatch(folder + "\\*" + ext, [&](const WIN32_FIND_DATAA& data) {
        if (stopRequested())
            return false;
        if (!IsFolder(data) && HasExtension(data.cFileName, ext))
            take(folder + "\\" + data.cFileName, data.cFileName);
        return true;
    }) && !stopRequested();
}

void ConvertibleScan::takeDescription(const std::string& path, const char* name, FolderState& state)
{
    if (TQMGetProfileString("Library", "Type", "", path.c_str()).CompareNoCase("Hpak") != 0)
        return;
    if (!_stricmp(name, "Velmo.lin"))
        return;
    // Listed even when converted already: the user decides about those.
    m_candidates.push_back(path);
    CTQMIniFile ini;
    if (!ini.Read(path.c_str()))
        return;
    const int section = ini.GetSectionIndex("LANGUAGES");
    if (section < 0)
        return;
    const int entries = ini.GetNumEntries(section);
    for (int i = 0; i < entries; ++i) {
        if (!_strnicmp(ini.GetEntryName(section, i), "Lang", 4))
            state.languages.Insert(ini.GetEntryValue(section, i));
    }
}

void ConvertibleScan::takeFamilyFile(const std::string& folder, const std::string& path, FolderState& state)
{
    if (!exists(path, ".lin") && !exists(path, ".tarnlin"))
        m_candidates.push_back(path);
    ProfileSection families;
    families.Read(path.c_str(), "__Library");
    char key[32];
    for (uint32_t n = 0;; ++n) {
        snprintf(key, sizeof(key), "File%u", n);
        const char* family = families.Value(key, "");
        if (!*family)
            break;
        const std::string definition = folder + "\\" + family + ".def";
        if (!state.familyDefinitions.Contains(definition) && !exists(definition, ".tarnlin"))
            state.familyDefinitions.Insert(definition);
    }
}

void ConvertibleScan::takeDefinition(const std::string& path, const FolderState& state)
{
    if (exists(path, ".lin"))
        return;
    CTQMIniFile ini;
    if (!ini.Read(path.c_str()))
        return;
    if (IsExcludedFamilyName(BaseNameOf(path).c_str()) || state.familyDefinitions.Contains(path))
        return;
    if (!exists(path, ".tarnlin"))
        m_candidates.push_back(path);
}

bool ConvertibleScan::scanSubfolders(const std::string& folder, const FolderState& state)
{
    if (stopRequested())
        return false;
    return ForEachMatch(folder + "\\*.*", [&](const WIN32_FIND_DATAA& data) {
        if (stopRequested())
            return false;
        if (!IsFolder(data))
            return true;
        if (state.languages.Contains(data.cFileName))
            return true;
        for (const char* language : kLanguageFolders) {
            if (!_stricmp(data.cFileName, language))
                return true;
        }
        // Linked folders are entered too; a folder met again is not.
        const std::string subfolder = folder + "\\" + data.cFileName;
        return !m_visited.Enter(subfolder, IsLinkedFolder(data)) || Scan(subfolder);
    }) && !stopRequested();
}

bool ConvertibleScan::Scan(const std::string& folder)
{
    if (stopRequested())
        return false;
    FolderState state;
    const bool completed =
        forEachFile(folder, ".lin",
                    [&](const std::string& path, const char* name) { takeDescription(path, name, state); }) &&
        forEachFile(folder, ".dff",
                    [&](const std::string& path, const char*) { takeFamilyFile(folder, path, state); }) &&
        forEachFile(folder, ".def", [&](const std::string& path, const char*) { takeDefinition(path, state); });
    if (!completed)
        return false;
    return !m_recurse || scanSubfolders(folder, state);
}

// True when folder lies in the libraries directory. Deliberately a plain
// prefix test over the directory's length, as the suite has always made it,
// so a sibling such as "Libs2" counts as inside too.
bool isInLibraries(const std::string& folder, const CString& libsDir)
{
    return !libsDir.IsEmpty() &&
           ini::SystemNameFold().EqualPrefix(folder.c_str(), libsDir, static_cast<size_t>(libsDir.GetLength()));
}

HGLOBAL scanFolders(const char* folders, bool recurse)
{
    const CString libsDir = TQMGetLibsDir();
    ConvertibleScan scan(recurse);
    CTQMTokenizer tokens;
    for (const char* token = tokens.GetFirstToken(folders, '\t'); *token; token = tokens.GetNextToken()) {
        const std::string folder = WithoutTrailingBackslashes(token).GetString();
        if (!isInLibraries(folder, libsDir) && !scan.ScanTree(folder))
            break;
        if (!tokens.HasMoreTokens())
            break;
    }
    if (stopRequested())
        return nullptr;
    return MakeLibraryListBlock(scan.Candidates());
}

}  // namespace
}  // namespace tqm

HGLOBAL WINAPI TQMGetConvertableLibraries(const char* folders, BOOL recurse)
{
    tqm::s_stopRequested.store(false, std::memory_order_relaxed);
    return tqm::CatalogueCall<HGLOBAL>(nullptr, [&] { return tqm::scanFolders(folders, recurse != FALSE); });
}

void WINAPI TQMStopGetConvertableLibraries() { tqm::s_stopRequested.store(true, std::memory_order_relaxed); }

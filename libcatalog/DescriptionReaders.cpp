// The four description readers.
#include "libcatalog/DescriptionReaders.h"

#include "config/IniFile.h"
#include "config/IniSystemFold.h"
#include "libcatalog/CatalogueFiles.h"
#include "libcatalog/logic/LanguageNames.h"
#include "libcatalog/logic/LibraryMembers.h"
#include "libcatalog/logic/NumberedEntries.h"
#include "paths/PathNames.h"
#include "paths/logic/PathText.h"

#include <stdio.h>
#include <string.h>

#include <algorithm>

namespace tqm {
namespace {

// Reads the document; on failure raises why, with the path.
bool readDocument(CTQMIniFile& ini, const std::string& path, LibraryFileSet& set)
{
    if (ini.Read(path.c_str()))
        return true;
    const int line = ini.GetErrLine();
    if (line == -1)
        set.Raise("Error: Can't open file: %s", path.c_str());
    else
        set.Raise("Error: Bad syntax in file (line %u): %s", static_cast<unsigned>(line), path.c_str());
    return false;
}

bool checkLibraryType(CTQMIniFile& ini, const std::string& path, LibraryFileSet& set)
{
    const char* type = ini.GetEntryValue("Library", "Type", "");
    if (!_stricmp(type, "Hpak"))
        return true;
    set.Raise("Error: Not an HPAK library file (Type=%s): %s", type, path.c_str());
    return false;
}

uint32_t countOf(CTQMIniFile& ini, const char* section)
{
    return ParseCount(ini.GetEntryValue(section, "Count", ""));
}

// The numbers n, sorted, of the entries prefix + n in the first section of
// the name (the one lookups by name find).
std::vector<uint32_t> numberedEntries(CTQMIniFile& ini, const char* section, const char* prefix)
{
    std::vector<uint32_t> numbers;
    const int index = ini.GetSectionIndex(section);
    if (index < 0)
        return numbers;
    const int entries = ini.GetNumEntries(index);
    for (int i = 0; i < entries; ++i) {
        uint32_t n = 0;
        if (ParseNumberedName(ini.GetEntryName(index, i), prefix, ini::SystemNameFold(), &n))
            numbers.push_back(n);
    }
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

// Calls take(n, value) for every n below count: the value of prefix + n, ""
// for a missing entry. Far more missing entries than a file could mean are
// not visited one by one: they are summed up in one message at level
// ("Error" or "Warning").
template <typename Take>
void forEachCounted(CTQMIniFile& ini, const char* section, const char* prefix, uint32_t count, const char* level,
                    const std::string& path, LibraryFileSet& set, Take take)
{
    char name[32];
    const uint32_t skipped =
        WalkNumberedEntries(count, numberedEntries(ini, section, prefix), [&](uint32_t n, bool present) {
            snprintf(name, sizeof(name), "%s%u", prefix, n);
            take(n, present ? ini.GetEntryValue(section, name, "") : "");
        });
    if (skipped)
        set.Raise("%s: %u more missing [%s] entries below Count=%u: %s", level, skipped, section, count,
                  path.c_str());
}

void readFamilies(CTQMIniFile& ini, const std::string& path, bool older, LibraryFileSet& set)
{
    const uint32_t count = countOf(ini, "Families");
    if (count != 0) {
        forEachCounted(ini, "Families", "Fam", count, "Error", path, set, [&](uint32_t n, const char* value) {
            if (*value)
                set.AddFamily(value);
            else
                set.Raise("Error: Missing [Families] Fam%u= entry: %s", n, path.c_str());
        });
        return;
    }
    if (!older)
        return;
    const std::string familyFile = ChangeFileExt(path.c_str(), ".dff").GetString();
    if (IsExistingFile(familyFile.c_str()))
        ReadFamilyFile(familyFile, set);
    else
        set.AddFamily(BaseNameOf(path));
}

void readLanguages(CTQMIniFile& ini, const std::string& path, bool older, LibraryFileSet& set)
{
    uint32_t count = countOf(ini, "Languages");
    if (older && count == 0) {
        // In memory only: an older description without languages is English.
        ini.SetEntryValue("Languages", "Lang0", "English");
        count = 1;
    }
    forEachCounted(ini, "Languages", "Lang", count, "Warning", path, set, [&](uint32_t n, const char* value) {
        if (!*value) {
            set.Raise("Warning: Missing [Languages] Lang%u= entry: %s", n, path.c_str());
            return;
        }
        if (!older) {
            set.AddLanguage(value, value);
            return;
        }
        const char* code = LanguageCodeForName(value);
        if (!*code)
            set.Raise("Warning: Unknown language (%s): %s", value, path.c_str());
        set.AddLanguage(value, code);
    });
}

// [Files]: older descriptions skip "readme.txt" and let generated ".sxg"
// files be missing.
void readFiles(CTQMIniFile& ini, const std::string& path, bool older, LibraryFileSet& set)
{
    const std::string folder = FolderOf(path);
    forEachCounted(ini, "Files", "File", countOf(ini, "Files"), "Error", path, set,
                   [&](uint32_t n, const char* value) {
                       if (!*value) {
                           set.Raise("Error: Missing file name, [Files] File%u=: %s", n, path.c_str());
                           return;
                       }
                       if (!TQMIsValidFileName(value, TRUE)) {
                           // The path is not part of this message; callers have always had it so.
                           set.Raise("Error: Invalid file name, [Files] File%u=%s: ", n, value);
                           return;
                       }
                       if (older && !_stricmp(value, "readme.txt"))
                           return;
                       const std::string full = folder + "\\" + value;
                       if (IsExistingFile(full.c_str()))
                           set.AddFile(full);
                       else if (!(older && HasExtension(value, ".sxg")))
                           set.Raise("Error: Library file '%s' not found", full.c_str());
                   });
}

// A path relative to the description's folder made full, on a drive or a
// network path alike.
std::string inFolder(const std::string& folder, const char* relative) { return FullPathInFolder(folder, relative); }

// [SheredFiles] (the file format's spelling): files shared with other
// libraries, taken when they exist.
void readSharedFiles(CTQMIniFile& ini, const std::string& folder, LibraryFileSet& set)
{
    const int section = ini.GetSectionIndex("SheredFiles");
    if (section < 0)
        return;
    const int entries = ini.GetNumEntries(section);
    for (int i = 0; i < entries; ++i) {
        const char* value = ini.GetEntryValue(section, i);
        if (!TQMIsValidPathName(value, FALSE) || !_stricmp(value, "readme.txt"))
            continue;
        const std::string full = inFolder(folder, value);
        if (IsExistingFile(full.c_str()))
            set.AddFile(full);
    }
}

// [FileCheck]: entry names are paths whose last component may hold
// wildcards, though not before its extension's dot.
void readFileChecks(CTQMIniFile& ini, const std::string& folder, LibraryFileSet& set)
{
    const int section = ini.GetSectionIndex("FileCheck");
    if (section < 0)
        return;
    const int entries = ini.GetNumEntries(section);
    for (int i = 0; i < entries; ++i) {
        const std::string name = ini.GetEntryName(section, i);
        if (!TQMIsValidPathName(name.c_str(), TRUE))
            continue;
        const size_t wildcard = name.find_first_of("*?");
        const size_t lastDot = name.rfind('.');
        if (wildcard != std::string::npos && lastDot != std::string::npos && wildcard < lastDot)
            continue;
        const std::string full = inFolder(folder, name.c_str());
        if (wildcard == std::string::npos) {
            if (IsExistingFile(full.c_str()))
                set.AddFile(full);
            continue;
        }
        const std::string matchFolder = FolderOf(full);
        ForEachMatch(full, [&](const WIN32_FIND_DATAA& data) {
            if (!IsFolder(data))
                set.AddFile(matchFolder + "\\" + data.cFileName);
            return true;
        });
    }
}

}  // namespace

DescriptionKind DescriptionKindOf(const std::string& path)
{
    const char* p = path.c_str();
    if (HasExtension(p, ".tarnlin"))
        return DescriptionKind::Current;
    if (HasExtension(p, ".lin"))
        return DescriptionKind::Older;
    if (HasExtension(p, ".dff"))
        return DescriptionKind::FamilyFile;
    if (HasExtension(p, ".def"))
        return DescriptionKind::Definition;
    return DescriptionKind::Unknown;
}

bool ReadCurrentDescription(const std::string& path, LibraryFileSet& set)
{
    CTQMIniFile ini;
    if (!readDocument(ini, path, set))
        return false;
    readFiles(ini, path, false, set);
    if (!checkLibraryType(ini, path, set))
        return false;
    readFamilies(ini, path, false, set);
    readLanguages(ini, path, false, set);
    return true;
}

bool ReadOlderDescription(const std::string& path, LibraryFileSet& set)
{
    CTQMIniFile ini;
    if (!readDocument(ini, path, set) || !checkLibraryType(ini, path, set))
        return false;
    readFamilies(ini, path, true, set);
    readLanguages(ini, path, true, set);
    readFiles(ini, path, true, set);
    const std::string folder = FolderOf(path);
    readSharedFiles(ini, folder, set);
    readFileChecks(ini, folder, set);
    return true;
}

bool ReadFamilyFile(const std::string& path, LibraryFileSet& set)
{
    CTQMIniFile ini;
    if (!ini.Read(path.c_str())) {
        // A fault in the first line reads as "cannot open" here: deliberate,
        // the message has always been so.
        const int line = ini.GetErrLine();
        if (line <= 0)
            set.Raise("Error: Can't open file: %s", path.c_str());
        else
            set.Raise("Error: Bad syntax in .DFF file (line %u), Families unknown: %s", static_cast<unsigned>(line),
                      path.c_str());
        return false;
    }
    // The list ends at the first missing or empty entry; this reader alone
    // keeps a family from being listed twice.
    char name[32];
    for (uint32_t n = 0;; ++n) {
        snprintf(name, sizeof(name), "File%u", n);
        const char* family = ini.GetEntryValue("__Library", name, "");
        if (!*family)
            break;
        if (!set.HasFamily(family))
            set.AddFamily(family);
    }
    return true;
}

bool ReadDefinitionFile(const std::string& path, LibraryFileSet& set)
{
    CTQMIniFile ini;
    if (!readDocument(ini, path, set))
        return false;
    set.AddFamily(BaseNameOf(path));
    return true;
}

std::string BaseNameOf(const std::string& path)
{
    std::string name = FileNameOf(path.c_str()).GetString();
    const size_t dot = name.rfind('.');
    if (dot != std::string::npos && dot > 0)
        name.erase(dot);
    return name;
}

std::string FolderOf(const std::string& path) { return ParentDir(path.c_str()).GetString(); }

}  // namespace tqm

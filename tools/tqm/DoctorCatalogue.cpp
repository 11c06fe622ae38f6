// What the doctor knows of the installed libraries: the catalogue's own
// lists, and the entries of each description it looks at, read once a run.
//
// A description is read whole, once, with the library's INI reader, and its
// entries are taken from that document: looking each one up by itself would
// read the file six times over (ID, version, folder, the languages and the
// help file), which on a large installation costs more than all the other
// checks together. The language is chosen by the catalogue's rule (the
// preferred one when the library lists it after its first, else the first,
// else "en"). A description that the INI reader refuses is read entry by
// entry through the catalogue's own functions instead, which skip the lines
// they cannot read, so the doctor sees what the suite's programs see.
#include "tools/tqm/CatalogueText.h"
#include "tools/tqm/Doctor.h"

#include "config/IniFile.h"
#include "config/IniSystemFold.h"
#include "config/Profile.h"
#include "libcatalog/LibraryLanguages.h"
#include "libcatalog/LibraryLists.h"
#include "libcatalog/logic/DuplicateLibraries.h"
#include "libcatalog/logic/LibraryVersion.h"
#include "paths/InstallDirs.h"
#include "paths/PathNames.h"

#include <windows.h>

#include <errno.h>
#include <stdio.h>
#include <stdint.h>
#include <stdlib.h>

namespace tqmtool {
namespace doctor {
namespace {

// text folded as the library compares names and IDs.
std::string folded(std::string text)
{
    const tqm::ini::NameFold& fold = tqm::ini::SystemNameFold();
    for (char& c : text)
        c = static_cast<char>(fold(c));
    return text;
}

std::string helpPath(const std::string& description, const std::string& helpFile)
{
    if (helpFile.empty())
        return std::string();
    return std::string(TQMGetParentDir(description.c_str()).GetString()) + "\\" + helpFile;
}

LibraryEntries readWhole(const std::string& description, CTQMIniFile& ini, const std::string& preferred)
{
    LibraryEntries entries;
    entries.id = ini.GetEntryValue("Library", "ID", "");
    entries.version = ini.GetEntryValue("Library", "Version", "");
    entries.installDir = ini.GetEntryValue("Library", "InstallDir", "");
    const int count = ProfileNumber(ini.GetEntryValue("Languages", "Count", ""), 0);
    std::string chosen = count > 0 ? ini.GetEntryValue("Languages", "Lang0", "") : "";
    for (int n = 1; n < count; ++n) {
        char key[32];
        snprintf(key, sizeof(key), "Lang%d", n);
        if (!_stricmp(ini.GetEntryValue("Languages", key, ""), preferred.c_str())) {
            chosen = preferred;
            break;
        }
    }
    entries.language = (chosen.empty() ? std::string("en") : chosen).substr(0, 2);
    entries.helpFile = helpPath(description, ini.GetEntryValue(entries.language.c_str(), "HelpFile", ""));
    return entries;
}

LibraryEntries readByEntry(const std::string& description)
{
    const char* file = description.c_str();
    LibraryEntries entries;
    entries.id = TQMGetProfileString("Library", "ID", "", file).GetString();
    entries.version = TQMGetProfileString("Library", "Version", "", file).GetString();
    entries.installDir = TQMGetProfileString("Library", "InstallDir", "", file).GetString();
    char code[3] = "";
    TQMGetUsableLibLanguage(file, code);
    entries.language = code;
    char help[MAX_PATH] = "";
    if (TQMGetLibHelpFilePath(file, help))
        entries.helpFile = help;
    return entries;
}

}  // namespace

int ProfileNumber(const char* text, int defaultValue)
{
    while (*text == ' ' || *text == '\t')
        ++text;
    if (!*text)
        return defaultValue;
    char* end = nullptr;
    errno = 0;
    const long long value = strtoll(text, &end, 10);
    while (*end == ' ' || *end == '\t')
        ++end;
    if (*end || errno || value < INT32_MIN || value > INT32_MAX)
        return defaultValue;
    return static_cast<int>(value);
}

InstalledLibraries ReadInstalledLibraries()
{
    InstalledLibraries installed;
    installed.preferredLanguage = TQMGetLibLanguage().GetString();
    installed.all = TakeListBlock(TQMGetInstalledLibraries(FALSE));
    // The copies in use, chosen by the catalogue's own rule on the entries the
    // doctor reads anyway: TQMGetInstalledLibraries(TRUE) would walk the tree
    // and read every description once more for the same answer.
    const std::string libsDir = TQMGetLibsDir().GetString();
    std::vector<tqm::InstalledLibrary> table;
    table.reserve(installed.all.size());
    for (const std::string& description : installed.all) {
        const LibraryEntries& entries = installed.EntriesOf(description);
        uint32_t version = 0;
        tqm::ParseLibraryVersion(entries.version.c_str(), &version);
        table.push_back({description, entries.id, version, libsDir + "\\" + entries.installDir});
    }
    for (size_t i : tqm::ResolveDuplicateLibraries(table, tqm::ini::SystemNameFold()))
        installed.kept.push_back(installed.all[i]);
    return installed;
}

const LibraryEntries& InstalledLibraries::EntriesOf(const std::string& description) const
{
    const std::string key = folded(description);
    auto found = m_entries.find(key);
    if (found != m_entries.end())
        return found->second;
    CTQMIniFile ini;
    LibraryEntries entries =
        ini.Read(description.c_str()) ? readWhole(description, ini, preferredLanguage) : readByEntry(description);
    return m_entries.emplace(key, std::move(entries)).first->second;
}

std::string InstalledLibraries::KeptWithId(const std::string& id) const
{
    if (m_keptById.empty()) {
        // The catalogue keeps one copy of an ID.
        for (size_t i = 0; i < kept.size(); ++i)
            m_keptById.emplace(folded(EntriesOf(kept[i]).id), i);
    }
    const auto found = m_keptById.find(folded(id));
    return found == m_keptById.end() ? std::string() : kept[found->second];
}

}  // namespace doctor
}  // namespace tqmtool

// The doctor's installed libraries: each description's file set with the
// messages the catalogue raises on it, the copies set aside as duplicates
// with the reason their twin wins, and help files of the usable language.
#include "tools/tqm/CatalogueText.h"
#include "tools/tqm/Doctor.h"

#include "libcatalog/LibraryFiles.h"
#include "libcatalog/LibraryLists.h"
#include "paths/FileOperations.h"
#include "paths/InstallDirs.h"
#include "paths/PathNames.h"

#include <windows.h>

#include <string.h>

#include <unordered_set>

namespace tqmtool {
namespace doctor {
namespace {

DWORD versionNumber(const LibraryEntries& entries)
{
    DWORD version = 0;
    TQMParseLibraryVersion(entries.version.c_str(), &version);  // a malformed text counts as far as it reads
    return version;
}

std::string shownVersion(const LibraryEntries& entries)
{
    return entries.version.empty() ? "no version" : "version " + entries.version;
}

// Why the catalogue keeps winner rather than loser, by the rule of its
// duplicate removal: the higher version; of equal ones installed in the same
// folder the copy that lies in it; else the one its walk meets first.
std::string whyKept(const std::string& winnerPath, const LibraryEntries& winner, const LibraryEntries& loser)
{
    const DWORD winnerVersion = versionNumber(winner);
    const DWORD loserVersion = versionNumber(loser);
    if (winnerVersion > loserVersion)
        return "the higher version stays";
    if (winnerVersion == loserVersion) {
        const std::string libsDir = TQMGetLibsDir().GetString();
        const std::string folder = libsDir + "\\" + winner.installDir;
        const std::string loserFolder = libsDir + "\\" + loser.installDir;
        if (!_stricmp(folder.c_str(), loserFolder.c_str()) &&
            !_strnicmp(winnerPath.c_str(), folder.c_str(), folder.size()))
            return "of equal versions the copy in its own install folder (" + folder + ") stays";
        return "of equal versions the copy found first stays";
    }
    return "the catalogue keeps the copy it met first among several";
}

void checkFileSet(const std::string& description, Findings& findings)
{
    HGLOBAL messageBlock = nullptr;
    TakeListBlock(TQMGetLibraryFiles(description.c_str(), &messageBlock));
    for (const std::string& message : TakeListBlock(messageBlock)) {
        const bool error = !strncmp(message.c_str(), "Error:", 6);
        const bool warning = !strncmp(message.c_str(), "Warning:", 8);
        std::string reason = message;
        if (error || warning)
            reason = message.substr(error ? 6 : 8);
        while (!reason.empty() && reason[0] == ' ')
            reason.erase(0, 1);
        findings.push_back(
            {error ? Severity::Error : Severity::Warning, Group::Libraries, description, reason, message});
    }
}

void checkHelpFile(const std::string& description, const LibraryEntries& entries, Findings& findings)
{
    if (entries.helpFile.empty())
        findings.push_back({Severity::Note, Group::Libraries, description,
                            "names no help file for the language it is shown in (" + entries.language + ")",
                            std::string()});
    else if (!TQMFileExists(entries.helpFile.c_str()))
        findings.push_back({Severity::Warning, Group::Libraries, description,
                            "the help file of the language it is shown in (" + entries.language +
                                ") is missing: " + entries.helpFile,
                            std::string()});
}

void checkSetAside(const std::string& loser, const InstalledLibraries& installed, Findings& findings)
{
    const LibraryEntries& entries = installed.EntriesOf(loser);
    const std::string winner = installed.KeptWithId(entries.id);
    std::string reason = "set aside as a duplicate (ID " + (entries.id.empty() ? "empty" : entries.id) + ", " +
                         shownVersion(entries) + ")";
    if (!winner.empty()) {
        const LibraryEntries& kept = installed.EntriesOf(winner);
        reason += ": the catalogue uses " + winner + " (" + shownVersion(kept) + ") instead; " +
                  whyKept(winner, kept, entries);
    }
    findings.push_back({Severity::Warning, Group::Libraries, loser, reason, std::string()});
}

}  // namespace

void CheckLibraries(const InstalledLibraries& installed, Findings& findings, const Progress& progress)
{
    // Both lists come from the same walk, so a path is spelt the same in each.
    const std::unordered_set<std::string> kept(installed.kept.begin(), installed.kept.end());
    for (size_t i = 0; i < installed.all.size(); ++i) {
        const std::string& description = installed.all[i];
        if (progress)
            progress("libraries", i, installed.all.size(), TQMGetParentDir(description.c_str()).GetString());
        checkFileSet(description, findings);
        if (kept.count(description))
            checkHelpFile(description, installed.EntriesOf(description), findings);
        else
            checkSetAside(description, installed, findings);
    }
}

}  // namespace doctor
}  // namespace tqmtool

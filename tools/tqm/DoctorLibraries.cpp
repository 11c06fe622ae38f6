// The doctor's installed libraries: each description's file set with the
// messages the catalogue raises on it, the copies set aside as duplicates
// with the reason their twin wins, and help files of the usable language.
#include "tools/tqm/CatalogueText.h"
#include "tools/tqm/Doctor.h"

#include "config/Profile.h"
#include "libcatalog/LibraryFiles.h"
#include "libcatalog/LibraryLanguages.h"
#include "libcatalog/LibraryLists.h"
#include "paths/FileOperations.h"
#include "paths/InstallDirs.h"
#include "paths/PathNames.h"

#include <windows.h>

#include <ctype.h>
#include <string.h>

#include <unordered_set>

namespace tqmtool {
namespace doctor {
namespace {

std::string folded(std::string text)
{
    for (char& c : text)
        c = static_cast<char>(tolower(static_cast<unsigned char>(c)));
    return text;
}

std::string entryOf(const std::string& description, const char* key)
{
    return TQMGetProfileString("Library", key, "", description.c_str()).GetString();
}

DWORD versionOf(const std::string& description)
{
    DWORD version = 0;
    TQMParseLibraryVersion(entryOf(description, "Version").c_str(), &version);  // a malformed text counts as read
    return version;
}

std::string shownVersion(const std::string& description)
{
    const std::string text = entryOf(description, "Version");
    return text.empty() ? "no version" : "version " + text;
}

// Why the catalogue keeps winner rather than loser, by the rule of its
// duplicate removal: the higher version; of equal ones the copy that lies in
// its own install folder; else the one its walk meets first.
std::string whyKept(const std::string& winner, const std::string& loser)
{
    const DWORD winnerVersion = versionOf(winner);
    const DWORD loserVersion = versionOf(loser);
    if (winnerVersion > loserVersion)
        return "the higher version stays";
    if (winnerVersion == loserVersion) {
        const std::string libsDir = TQMGetLibsDir().GetString();
        const std::string folder = libsDir + "\\" + entryOf(winner, "InstallDir");
        const std::string loserFolder = libsDir + "\\" + entryOf(loser, "InstallDir");
        if (!_stricmp(folder.c_str(), loserFolder.c_str()) && !_strnicmp(winner.c_str(), folder.c_str(), folder.size()))
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

void checkHelpFile(const std::string& description, Findings& findings)
{
    char help[MAX_PATH] = "";
    if (TQMGetLibHelpFilePath(description.c_str(), help)) {
        if (!TQMFileExists(help))
            findings.push_back({Severity::Warning, Group::Libraries, description,
                                "the help file of the language it is shown in is missing: " + std::string(help),
                                std::string()});
        return;
    }
    char code[3] = "";
    TQMGetUsableLibLanguage(description.c_str(), code);
    findings.push_back({Severity::Note, Group::Libraries, description,
                        "names no help file for the language it is shown in (" + std::string(code) + ")",
                        std::string()});
}

void checkSetAside(const std::string& loser, const InstalledLibraries& installed, Findings& findings)
{
    const std::string id = entryOf(loser, "ID");
    std::string winner;
    for (size_t i = 0; i < installed.kept.size() && winner.empty(); ++i) {
        if (!_stricmp(installed.keptIds[i].c_str(), id.c_str()))
            winner = installed.kept[i];
    }
    std::string reason = "set aside as a duplicate (ID " + (id.empty() ? "empty" : id) + ", " + shownVersion(loser) + ")";
    if (!winner.empty())
        reason += ": the catalogue uses " + winner + " (" + shownVersion(winner) + ") instead; " + whyKept(winner, loser);
    findings.push_back({Severity::Warning, Group::Libraries, loser, reason, std::string()});
}

}  // namespace

InstalledLibraries ReadInstalledLibraries()
{
    InstalledLibraries installed;
    installed.all = TakeListBlock(TQMGetInstalledLibraries(FALSE));
    installed.kept = TakeListBlock(TQMGetInstalledLibraries(TRUE));
    for (const std::string& description : installed.kept)
        installed.keptIds.push_back(entryOf(description, "ID"));
    return installed;
}

void CheckLibraries(const InstalledLibraries& installed, Findings& findings, const Progress& progress)
{
    std::unordered_set<std::string> kept;
    for (const std::string& description : installed.kept)
        kept.insert(folded(description));
    for (size_t i = 0; i < installed.all.size(); ++i) {
        const std::string& description = installed.all[i];
        if (progress)
            progress("libraries", i, installed.all.size(), TQMGetParentDir(description.c_str()).GetString());
        checkFileSet(description, findings);
        if (kept.count(folded(description)))
            checkHelpFile(description, findings);
        else
            checkSetAside(description, installed, findings);
    }
}

}  // namespace doctor
}  // namespace tqmtool

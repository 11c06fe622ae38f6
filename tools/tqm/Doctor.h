// The doctor: one walk over the whole installation through the library's own
// functions, and every problem found on the way, with its cause.
//
// Findings fall into five groups, checked in this order:
//   directories  every directory of the suite: there, writable, not removable
//   settings     "Global" in the registry against the mirror file
//                QM5Global.ini; the options file VMXOptions.ini reads
//   libraries    each installed library's file set and its messages, copies
//                set aside as duplicates, help files of the usable language
//   projects     each project file's libraries and how their paths are stored
//   conversion   old libraries below the projects and libraries directories
//
// Severities: an error is something the suite fails on now (a missing file, a
// directory it cannot write); a warning is something that works today by
// luck or will break on the next move (an untagged path, a setting the two
// stores disagree on); a note is worth knowing and needs no action.
#pragma once

#include <stddef.h>

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

namespace tqmtool {
namespace doctor {

enum class Severity
{
    Error,
    Warning,
    Note
};

enum class Group
{
    Directories,
    Settings,
    Libraries,
    Projects,
    Conversion
};

constexpr Group kAllGroups[] = {Group::Directories, Group::Settings, Group::Libraries, Group::Projects,
                                Group::Conversion};

struct Finding
{
    Severity severity;
    Group group;
    std::string subject;  // a path, or a setting as "Global\Name"
    std::string reason;   // in plain words
    std::string message;  // the library's own message line ("Error: ..."), where there is one
};

using Findings = std::vector<Finding>;

// "error", "warning", "note".
const char* SeverityName(Severity severity);
// The name --only takes and JSON carries: "directories", ...
const char* GroupName(Group group);
// The heading of the text report: "Directories", ...
const char* GroupTitle(Group group);
// The group of a name as GroupName gives it (any case); false when unknown.
bool ParseGroup(const std::string& name, Group& group);

// Called while libraries and projects are walked: what is walked
// ("libraries"), how many are done of how many, and the current folder.
using Progress = std::function<void(const char* what, size_t done, size_t total, const std::string& folder)>;

// The checks of one group each; they append to findings.
void CheckDirectories(Findings& findings);
void CheckSettings(Findings& findings);
void CheckConversion(Findings& findings);

// What the doctor needs of one description, read once per run.
struct LibraryEntries
{
    std::string id;          // [Library] ID
    std::string version;     // [Library] Version, as written
    std::string installDir;  // [Library] InstallDir
    std::string language;    // the language the library is shown in (TQMGetUsableLibLanguage)
    std::string helpFile;    // that language's help file, full path; empty when none is named
};

// Libraries and projects share what the catalogue says is installed, and
// the entries of every description they look at.
struct InstalledLibraries
{
    std::vector<std::string> all;   // every description, duplicates included
    std::vector<std::string> kept;  // the copies in use
    std::string preferredLanguage;  // TQMGetLibLanguage

    // The entries of a description, read on first use.
    const LibraryEntries& EntriesOf(const std::string& description) const;
    // The copy in use whose ID is id (without regard to case); empty when none.
    std::string KeptWithId(const std::string& id) const;

private:
    mutable std::unordered_map<std::string, LibraryEntries> m_entries;  // by folded path
    mutable std::unordered_map<std::string, size_t> m_keptById;         // folded ID -> index in kept
};
InstalledLibraries ReadInstalledLibraries();
void CheckLibraries(const InstalledLibraries& installed, Findings& findings, const Progress& progress);
void CheckProjects(const InstalledLibraries& installed, Findings& findings, const Progress& progress);

// A number as the profile lookup reads it (TQMGetProfileInt): a plain decimal
// in the 32-bit range, else defaultValue.
int ProfileNumber(const char* text, int defaultValue);

// Every file below folder whose name ends in extension (".tarn5pj"), depth
// first: a folder's files, then its subfolders. Linked folders are entered
// as the catalogue enters them, each folder once.
std::vector<std::string> FilesBelow(const std::string& folder, const char* extension);

// Runs the checks of every group, or of only one.
Findings RunDoctor(const Group* only, const Progress& progress);

struct Tally
{
    size_t errors = 0;
    size_t warnings = 0;
    size_t notes = 0;
};
Tally CountFindings(const Findings& findings);
// "2 errors, 1 warning, 0 notes".
std::string FormatTally(const Tally& tally);

// The text report: the findings under the headings of the groups checked,
// then the tally; one line when there is nothing to report.
std::string FormatReport(const Findings& findings, const Group* only);
// The same findings as one JSON document (UTF-8).
std::string FormatJson(const Findings& findings, const Group* only);

}  // namespace doctor
}  // namespace tqmtool

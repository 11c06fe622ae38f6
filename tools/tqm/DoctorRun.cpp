// The doctor's walk: the checks of every group, or of one, in order.
#include "tools/tqm/Doctor.h"

#include "framework/Handles.h"
#include "libcatalog/VisitedFolders.h"
#include "libcatalog/logic/LibraryMembers.h"

#include <windows.h>

#include <string.h>

namespace tqmtool {
namespace doctor {
namespace {

// Files below folder, depth first, its own before its subfolders'. Linked
// folders are entered, as the catalogue's walks enter them (a projects
// folder moved to another disk and linked back); visited ends the cycles
// that links can make.
void collectFiles(const std::string& folder, const char* extension, std::vector<std::string>& files,
                  tqm::VisitedFolders& visited)
{
    WIN32_FIND_DATAA data;
    tqm::UniqueFind search(FindFirstFileA((folder + "\\*").c_str(), &data));
    if (!search)
        return;
    std::vector<std::string> subfolders;
    do {
        if (!strcmp(data.cFileName, ".") || !strcmp(data.cFileName, ".."))
            continue;
        if (tqm::IsFolder(data)) {
            const std::string subfolder = folder + "\\" + data.cFileName;
            if (visited.Enter(subfolder, tqm::IsLinkedFolder(data)))
                subfolders.push_back(subfolder);
        } else if (tqm::HasExtension(data.cFileName, extension)) {
            files.push_back(folder + "\\" + data.cFileName);
        }
    } while (FindNextFileA(search.get(), &data));
    for (const std::string& subfolder : subfolders)
        collectFiles(subfolder, extension, files, visited);
}

}  // namespace

std::vector<std::string> FilesBelow(const std::string& folder, const char* extension)
{
    std::vector<std::string> files;
    tqm::VisitedFolders visited;
    visited.Enter(folder, false);
    collectFiles(folder, extension, files, visited);
    return files;
}

Findings RunDoctor(const Group* only, const Progress& progress)
{
    auto wanted = [&](Group group) { return !only || *only == group; };
    Findings findings;
    if (wanted(Group::Directories))
        CheckDirectories(findings);
    if (wanted(Group::Settings))
        CheckSettings(findings);
    if (wanted(Group::Libraries) || wanted(Group::Projects)) {
        const InstalledLibraries installed = ReadInstalledLibraries();
        if (wanted(Group::Libraries))
            CheckLibraries(installed, findings, progress);
        if (wanted(Group::Projects))
            CheckProjects(installed, findings, progress);
    }
    if (wanted(Group::Conversion))
        CheckConversion(findings);
    return findings;
}

}  // namespace doctor
}  // namespace tqmtool

// The doctor's walk: the checks of every group, or of one, in order.
#include "tools/tqm/Doctor.h"

#include "framework/Handles.h"
#include "libcatalog/logic/LibraryMembers.h"

#include <windows.h>

#include <string.h>

namespace tqmtool {
namespace doctor {
namespace {

void collectFiles(const std::string& folder, const char* extension, std::vector<std::string>& files)
{
    WIN32_FIND_DATAA data;
    tqm::UniqueFind search(FindFirstFileA((folder + "\\*").c_str(), &data));
    if (!search)
        return;
    std::vector<std::string> subfolders;
    do {
        if (!strcmp(data.cFileName, ".") || !strcmp(data.cFileName, ".."))
            continue;
        if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
            if (!(data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT))
                subfolders.push_back(folder + "\\" + data.cFileName);
        } else if (tqm::HasExtension(data.cFileName, extension)) {
            files.push_back(folder + "\\" + data.cFileName);
        }
    } while (FindNextFileA(search.get(), &data));
    for (const std::string& subfolder : subfolders)
        collectFiles(subfolder, extension, files);
}

}  // namespace

std::vector<std::string> FilesBelow(const std::string& folder, const char* extension)
{
    std::vector<std::string> files;
    collectFiles(folder, extension, files);
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

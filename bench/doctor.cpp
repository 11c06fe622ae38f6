// Doctor benchmark: "tqm doctor" over the catalogue benchmark's installation
// (2,000 descriptions, 20% of them second copies) and 200 projects of 10
// library entries each.
//
// The baseline is what any look at every library must do at least:
// TQMGetInstalledLibraries(TRUE) and then the file set (TQMGetLibraryFiles)
// of every library it lists. Target: the whole doctor run, all five groups
// (the second copies' file sets included), at most 3x that.
#include "bench/BenchClock.h"
#include "bench/CatalogueInstallation.h"
#include "config/QM5Profile.h"
#include "libcatalog/LibraryFiles.h"
#include "libcatalog/LibraryLists.h"
#include "paths/FileOperations.h"
#include "tools/tqm/CatalogueText.h"
#include "tools/tqm/Doctor.h"

#include <windows.h>

#include <stdio.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace tqmbench;

namespace {

const int kProjects = 200;
const int kEntriesPerProject = 10;

// Projects naming installed libraries by tag, as the suite stores them.
bool writeProjects(const std::string& projects)
{
    bool ok = true;
    for (int p = 0; p < kProjects && ok; ++p) {
        std::string text = "[Project]\r\nName=Bench" + std::to_string(p) + "\r\n\r\n[LibraryFiles]\r\nNumberOfLibs=" +
                           std::to_string(kEntriesPerProject) + "\r\n";
        for (int e = 0; e < kEntriesPerProject; ++e) {
            const int library = (p * kEntriesPerProject + e) % kLibraries;
            char entry[160];
            snprintf(entry, sizeof(entry), "Lib%d=<$LibsDir>\\Group%d\\Lib%d\\Lib%04d.tarnlin;1;0;;\r\n", e,
                     library / kLibrariesPerGroup, library, library);
            text += entry;
        }
        const std::string name = "Bench" + std::to_string(p);
        ok = writeIn(projects + "\\" + name, name + ".tarn5pj", text);
    }
    return ok;
}

// The least any look at every library does: the list, and each file set.
size_t listAndFileSets()
{
    const std::vector<std::string> kept = tqmtool::TakeListBlock(TQMGetInstalledLibraries(TRUE));
    size_t files = 0;
    for (const std::string& description : kept) {
        HGLOBAL messages = nullptr;
        files += tqmtool::TakeListBlock(TQMGetLibraryFiles(description.c_str(), &messages)).size();
        tqmtool::TakeListBlock(messages);
    }
    return files + kept.size();
}

}  // namespace

int main()
{
    char temp[MAX_PATH];
    GetTempPathA(MAX_PATH, temp);
    const std::string dir = std::string(temp) + "tqm-bench-doctor-" + std::to_string(GetCurrentProcessId());
    const std::string libs = dir + "\\Libs";
    const std::string projects = dir + "\\Projects";
    if (!writeInstallation(libs) || !writeProjects(projects)) {
        fprintf(stderr, "cannot write the benchmark files in %s\n", dir.c_str());
        return 1;
    }

    // The libraries and projects directories point at the benchmark's for the run.
    const CString savedLibsDir = TQMGetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "LibsDir", "");
    const CString savedProjectsDir = TQMGetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "ProjectsDir", "");
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "LibsDir", libs.c_str());
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "ProjectsDir", projects.c_str());

    listAndFileSets();  // warm the file cache
    // Baseline and doctor take turns, so that a change in the machine's load
    // falls on both; the fastest run of each counts.
    double baseline = 1e30;
    double doctor = 1e30;
    tqmtool::doctor::Findings findings;
    for (int round = 0; round < 3; ++round) {
        baseline = std::min(baseline, BestOf(1, [] { listAndFileSets(); }));
        doctor = std::min(doctor, BestOf(1, [&] {
                              findings = tqmtool::doctor::RunDoctor(nullptr, tqmtool::doctor::Progress());
                          }));
    }

    // Where the time goes, roughly: each group alone, best of two runs
    // (libraries and projects each include the listing they share).
    double groups[5] = {};
    int g = 0;
    for (tqmtool::doctor::Group group : tqmtool::doctor::kAllGroups)
        groups[g++] = BestOf(2, [&] { tqmtool::doctor::RunDoctor(&group, tqmtool::doctor::Progress()); });

    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "LibsDir", savedLibsDir);
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "ProjectsDir", savedProjectsDir);

    size_t projectFindings = 0;
    for (const tqmtool::doctor::Finding& finding : findings)
        projectFindings += finding.group == tqmtool::doctor::Group::Projects;
    printf("installation: %d descriptions, %d of them second copies; %d projects of %d library entries\n",
           kLibraries + kSecondCopies, kSecondCopies, kProjects, kEntriesPerProject);
    printf("findings: %s (%zu about projects)\n",
           tqmtool::doctor::FormatTally(tqmtool::doctor::CountFindings(findings)).c_str(), projectFindings);
    printf("\nbaseline: TQMGetInstalledLibraries(TRUE) and TQMGetLibraryFiles of each library listed, %.1f ms = 1.00\n",
           baseline * 1e3);
    printf("  tqm doctor, every group                  %6.2f x baseline   (target <= 3)   %.0f ms\n",
           doctor / baseline, doctor * 1e3);
    g = 0;
    for (tqmtool::doctor::Group group : tqmtool::doctor::kAllGroups) {
        printf("    --only %-12s                    %6.2f x baseline   (for scale)\n",
               tqmtool::doctor::GroupName(group), groups[g++] / baseline);
    }

    TQMDelete(dir.c_str(), FALSE);
    // Every entry names an installed library by its tag: no project finding is expected.
    return projectFindings == 0 ? 0 : 1;
}

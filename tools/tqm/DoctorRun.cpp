// The doctor's walk: the checks of every group, or of one, in order.
#include "tools/tqm/Doctor.h"

namespace tqmtool {
namespace doctor {

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

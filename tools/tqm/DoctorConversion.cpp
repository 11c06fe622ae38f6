// The doctor's old libraries: descriptions of the previous generation below
// the projects and libraries directories that still wait for conversion.
//
// Below the projects directory the library's own scan finds them. It skips
// the libraries directory on purpose (installed libraries are never
// candidates), so there the doctor looks for what the catalogue cannot see:
// an old ".lin" description of an "Hpak" library without its ".tarnlin".
#include "tools/tqm/CatalogueText.h"
#include "tools/tqm/Doctor.h"

#include "config/Profile.h"
#include "libcatalog/ConvertibleLibraries.h"
#include "libcatalog/logic/LibraryMembers.h"
#include "paths/FileOperations.h"
#include "paths/InstallDirs.h"
#include "paths/PathNames.h"

#include <windows.h>

namespace tqmtool {
namespace doctor {
namespace {

std::string currentFormOf(const std::string& path)
{
    return TQMChangeFileExt(path.c_str(), ".tarnlin").GetString();
}

// An old ".lin" description of an Hpak library without its ".tarnlin".
bool isUnconverted(const std::string& path)
{
    return !TQMFileExists(currentFormOf(path).c_str()) &&
           !TQMGetProfileString("Library", "Type", "", path.c_str()).CompareNoCase("Hpak");
}

void add(Findings& findings, Severity severity, const std::string& path, const std::string& reason)
{
    findings.push_back({severity, Group::Conversion, path, reason, std::string()});
}

}  // namespace

void CheckConversion(Findings& findings)
{
    const std::string projects = TQMGetProjectsDir().GetString();
    for (const std::string& candidate : TakeListBlock(TQMGetConvertableLibraries(projects.c_str(), TRUE))) {
        // The scan lists every old description, converted or not.
        if (tqm::HasExtension(candidate.c_str(), ".lin") && TQMFileExists(currentFormOf(candidate).c_str()))
            add(findings, Severity::Note, candidate,
                "an old description left beside its converted " + currentFormOf(candidate));
        else
            add(findings, Severity::Warning, candidate,
                "an old library waiting for conversion: the suite's programs do not use it until it is converted");
    }
    for (const std::string& description : FilesBelow(TQMGetLibsDir().GetString(), ".lin")) {
        if (isUnconverted(description))
            add(findings, Severity::Warning, description,
                "an old description in the libraries directory without its \".tarnlin\": the catalogue does not "
                "see this library until it is converted");
    }
}

}  // namespace doctor
}  // namespace tqmtool

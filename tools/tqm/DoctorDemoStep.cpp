// tqm demo, step "The doctor": three things broken on purpose in the demo
// installation - a library's file deleted, a machine-wide setting that the
// mirror file holds differently, and a project that stores a library by its
// absolute path - then what "tqm doctor" says, one of them mended the way
// the doctor suggests, and the doctor again. The other two are put back
// afterwards, so the demo can run again.
#include "tools/tqm/Demo.h"
#include "tools/tqm/DemoFiles.h"
#include "tools/tqm/Doctor.h"

#include "config/QM5Profile.h"
#include "framework/Handles.h"
#include "paths/Environment.h"
#include "paths/FileOperations.h"
#include "paths/InstallDirs.h"
#include "paths/PathTags.h"

#include <windows.h>

#include <stdio.h>
#include <string.h>

namespace tqmtool {
namespace {

using namespace doctor;

const char kTimersSource[] = "Libs\\Std\\Timers\\Timers.src";  // in the demo tree
const char kSetting[] = "DemoUnits";

std::string libsDir() { return TQMGetLibsDir().GetString(); }
std::string projectFile() { return std::string(TQMGetProjectsDir().GetString()) + "\\Plant\\Plant.tarn5pj"; }
std::string mirrorFile() { return std::string(TQMGetLocalDir().GetString()) + "\\QM5Global.ini"; }
std::string timersDescription() { return libsDir() + "\\Std\\Timers\\Timers.tarnlin"; }

bool restoreTimersSource()
{
    for (size_t i = 0; i < kDemoFilesCount; ++i) {
        if (strcmp(kDemoFiles[i].path, kTimersSource))
            continue;
        const std::string path = libsDir() + "\\Std\\Timers\\Timers.src";
        tqm::UniqueFile file(CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
        DWORD written = 0;
        return file && WriteFile(file.get(), kDemoFiles[i].data, static_cast<DWORD>(kDemoFiles[i].size), &written,
                                 nullptr);
    }
    return false;
}

bool storeTimersEntry(const std::string& path)
{
    const std::string value = path + ";1;0;;";
    return WritePrivateProfileStringA("LibraryFiles", "Lib1", value.c_str(), projectFile().c_str()) != FALSE;
}

bool breakThree()
{
    printf("Breaking three things on purpose:\n"
           "  1. deleting Std\\Timers\\Timers.src, a file the Timers library lists\n"
           "  2. setting Global\\%s to \"mm\", then changing it to \"inch\" in the mirror file only\n"
           "  3. storing the project Plant's Timers library by its absolute path\n",
           kSetting);
    bool ok = DeleteFileA((libsDir() + "\\Std\\Timers\\Timers.src").c_str()) != FALSE;
    ok = TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", kSetting, "mm") && ok;
    ok = WritePrivateProfileStringA("Global", kSetting, "inch", mirrorFile().c_str()) && ok;
    return storeTimersEntry(timersDescription()) && ok;
}

bool found(const Findings& findings, Severity severity, const std::string& subject, const char* part)
{
    for (const Finding& finding : findings) {
        if (finding.severity == severity && !_stricmp(finding.subject.c_str(), subject.c_str()) &&
            finding.reason.find(part) != std::string::npos)
            return true;
    }
    return false;
}

bool doctorStep(const std::string&)
{
    if (!TQMFileExists(projectFile().c_str()) || !TQMFileExists(timersDescription().c_str())) {
        printf("The demo installation is missing (the catalogue step installs it).\n");
        return false;
    }
    // Every program of the suite makes its folders at start; so does the demo.
    TQMCreateEnvironment();
    bool ok = breakThree();

    printf("\n> tqm doctor\n");
    const Findings before = RunDoctor(nullptr, Progress());
    printf("%s", FormatReport(before, nullptr).c_str());
    ok = found(before, Severity::Error, timersDescription(), "Timers.src' not found") && ok;
    ok = found(before, Severity::Warning, std::string("Global\\") + kSetting, "differs") && ok;
    ok = found(before, Severity::Warning, projectFile(), "store it as <$LibsDir>") && ok;

    const std::string tagged = TQMSubstAppPathTags(timersDescription().c_str()).GetString();
    printf("\nMending the project the way the doctor says: Lib1 stored as %s\n", tagged.c_str());
    ok = storeTimersEntry(tagged) && ok;

    printf("\n> tqm doctor --only projects\n");
    const Group projects = Group::Projects;
    const Findings after = RunDoctor(&projects, Progress());
    printf("%s", FormatReport(after, &projects).c_str());
    ok = !found(after, Severity::Warning, projectFile(), "store it as") && ok;

    printf("\nPutting the other two back: Timers.src restored, Global\\%s removed.\n", kSetting);
    ok = restoreTimersSource() && ok;
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", kSetting, nullptr);
    return ok;
}

}  // namespace

TQM_REGISTER_DEMO_STEP({55, "The doctor", doctorStep});

}  // namespace tqmtool

// tqm demo, step "Versions and paths": the library's version and code, the
// Windows family, names checked by the suite's rules, path conversions, and a
// copy compared with its original in the demo folder.
#include "tools/tqm/Demo.h"

#include "paths/FileOperations.h"
#include "paths/PathNames.h"
#include "paths/Versions.h"
#include "paths/logic/PathNameRules.h"
#include "paths/logic/VersionCode.h"
#include "ui/VersionInfo.h"

#include <stdio.h>

#include <string>

namespace tqmtool {
namespace {

void showVersions()
{
    CVersionInfo info;
    if (info.Init("Tqmlib52.dll")) {
        const CString productVersion = info.StringFileInfo("ProductVersion");
        CVersionInfo fixed;
        fixed.Init("Tqmlib52.dll");
        const VS_FIXEDFILEINFO* pFixed = fixed.GetFixedFileInfo();
        if (pFixed)
            printf("Tqmlib52.dll: product version %s, version code %d\n", productVersion.GetString(),
                   tqm::VersionCode(pFixed->dwFileVersionMS, pFixed->dwFileVersionLS));
    }
    printf("tqm.exe: file version %s, version code %d\n", TQMGetAppVersionString().GetString(),
           TQMGetAppVersionInt());
    const int family = TQMGetWindowsVersion();
    printf("Windows family: %d (%s)\n", family, tqm::DescribeWindowsFamily(family));
    const int vmx = TQMGetVMXVersion();
    if (vmx < 0)
        printf("Project manager Vmx52.exe: not installed beside tqm\n");
    else
        printf("Project manager Vmx52.exe: version code %d\n", vmx);
}

void showNames()
{
    printf("\nNames checked by the suite's rules:\n");
    for (const char* name : {"Plant 1", "C:\\Projects\\Plant 1\\plc.tarn5pc", "..\\..\\Libraries", "a..b",
                             "COM1.txt", "AUX.txt", "Pump|Valve"}) {
        const tqm::PathNameVerdict verdict = tqm::CheckPathName(name, false);
        if (verdict.valid())
            printf("  %-34s valid\n", name);
        else
            printf("  %-34s invalid: %s\n", name, tqm::DescribePathNameFault(verdict.fault));
    }
}

void showConversions(const std::string& projectDir)
{
    printf("\nPaths against the project folder %s:\n", projectDir.c_str());
    for (const char* path : {"plc.cfg", ".\\Sources\\main.st", "..\\..\\Libraries\\Motion.tarnlin", "\\Temp\\x"}) {
        const CString full = TQMGetFullPath(projectDir.c_str(), path);
        printf("  %-34s full %s\n", path, full.GetString());
        printf("  %-34s back %s\n", "", TQMGetRelativePath(projectDir.c_str(), full).GetString());
    }
}

bool showCopy(const std::string& demoDir)
{
    const std::string dir = demoDir + "\\Versions and paths";
    TQMCreateDir(dir.c_str());
    const std::string original = dir + "\\plc.cfg";
    FILE* file = fopen(original.c_str(), "wb");
    if (!file)
        return false;
    fputs("[Controller]\r\nType=Tarn 5\r\n", file);
    fclose(file);

    const CString untitled = TQMGetNextUntitledFileName(dir.c_str(), "Backup");
    const std::string copy = dir + "\\" + untitled.GetString() + ".cfg";
    printf("\nIn %s:\n", dir.c_str());
    const BOOL copied = TQMCopy(original.c_str(), copy.c_str());
    printf("  copy plc.cfg to %s.cfg: %s\n", untitled.GetString(), copied ? "done" : "failed");
    printf("  compare: %s\n", TQMCompareFiles(original.c_str(), copy.c_str()) ? "identical" : "different");
    printf("  Backup*.CFG matches %s: %s\n", TQMGetFileName(copy.c_str()).GetString(),
           TQMWildcardCompare("Backup*.CFG", TQMGetFileName(copy.c_str())) ? "yes" : "no");
    const BOOL refused = !TQMCopy((dir + "\\..\\plc.cfg").c_str(), copy.c_str());
    printf("  a copy from \"..\\plc.cfg\" is refused: %s\n", refused ? "yes" : "no");
    const BOOL deleted = TQMDelete(copy.c_str(), FALSE);
    printf("  delete %s.cfg: %s\n", untitled.GetString(), deleted ? "done" : "failed");
    return copied && refused && deleted;
}

bool runStep(const std::string& demoDir)
{
    showVersions();
    showNames();
    showConversions(demoDir + "\\Projects\\Plant 1");
    return showCopy(demoDir);
}

}  // namespace

TQM_REGISTER_DEMO_STEP({30, "Versions and paths", runStep});

}  // namespace tqmtool

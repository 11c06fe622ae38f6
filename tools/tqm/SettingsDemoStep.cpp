// tqm demo, step "Installation and settings": the suite's directories and
// where each configurable one came from, a setting written and read back,
// and a project path stored with a tag and expanded again.
#include "tools/tqm/Demo.h"
#include "tools/tqm/SuiteDirs.h"

#include "config/QM5Profile.h"
#include "paths/InstallDirs.h"
#include "paths/PathTags.h"

#include <stdio.h>

#include <string>

namespace tqmtool {
namespace {

bool showSettingRoundTrip()
{
    printf("\nA setting of the user, below HKCU\\Software\\%s:\n", TQMGetQM5BaseRegistryKey().GetString());
    const BOOL written = TQMSetQM5ProfileInt(HKEY_CURRENT_USER, "Demo", "Runs", 42) &&
                         TQMSetQM5ProfileString(HKEY_CURRENT_USER, "Demo", "Greeting", "Hello from tqm");
    const UINT runs = TQMGetQM5ProfileInt(HKEY_CURRENT_USER, "Demo", "Runs", 0);
    const CString greeting = TQMGetQM5ProfileString(HKEY_CURRENT_USER, "Demo", "Greeting", "");
    printf("  written Demo/Runs = 42 and Demo/Greeting = \"Hello from tqm\": %s\n", written ? "done" : "failed");
    printf("  read back: Runs = %u, Greeting = \"%s\"\n", runs, greeting.GetString());
    const BOOL removed = TQMSetQM5ProfileString(HKEY_CURRENT_USER, "Demo", nullptr, nullptr);
    const CString after = TQMGetQM5ProfileString(HKEY_CURRENT_USER, "Demo", "Greeting", "(gone)");
    printf("  section Demo removed: %s; Greeting now reads %s\n", removed ? "yes" : "no", after.GetString());
    TQMSetQM5ProfileString(HKEY_CURRENT_USER, "Demo", nullptr, nullptr);  // the empty key the read made
    return written && runs == 42 && greeting == "Hello from tqm" && after == "(gone)";
}

bool showTags(const std::string& demoDir)
{
    printf("\nPaths stored with tags and expanded again:\n");
    const CString library = TQMGetLibsDir() + "\\Std\\Motion.tarnlin";
    const CString stored = TQMSubstAppPathTags(library);
    const CString expanded = TQMUnSubstAppPathTags(stored);
    printf("  %s\n    stored as %s\n    read as   %s\n", library.GetString(), stored.GetString(),
           expanded.GetString());

    const std::string project = demoDir + "\\Projects\\Plant 1";
    const std::string controller = project + "\\Controller 1";
    const CString source = (controller + "\\main.st").c_str();
    const CString tagged = TQMSubstAppPathTags(source, project.c_str(), controller.c_str());
    const CString relative = (project + "\\plc.cfg").c_str();
    const CString taggedProject = TQMSubstAppPathTags(relative, project.c_str(), controller.c_str());
    printf("  in project %s, device %s:\n", project.c_str(), controller.c_str());
    printf("    main.st stored as %s, plc.cfg as %s\n", tagged.GetString(), taggedProject.GetString());
    const CString moved = TQMUnSubstAppPathTags(taggedProject, "D:\\Moved\\Plant 1", nullptr);
    printf("    after a move to D:\\Moved\\Plant 1, plc.cfg reads %s\n", moved.GetString());
    return expanded == library && tagged == "<$DevDir>\\main.st" && moved == "D:\\Moved\\Plant 1\\plc.cfg";
}

bool runStep(const std::string& demoDir)
{
    printf("The suite's directories:\n");
    PrintSuiteDirs(ListSuiteDirs());
    const bool settings = showSettingRoundTrip();
    const bool tags = showTags(demoDir);
    return settings && tags;
}

}  // namespace

TQM_REGISTER_DEMO_STEP({35, "Installation and settings", runStep});

}  // namespace tqmtool

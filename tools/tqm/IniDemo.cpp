// tqm demo, step "INI documents": a library description written, read,
// edited and looked up, and a damaged file's error line.
#include "tools/tqm/Demo.h"
#include "tools/tqm/IniReport.h"

#include "config/IniFile.h"
#include "config/Profile.h"
#include "framework/StdioFile.h"

#include <stdio.h>

#include <string>

namespace tqmtool {
namespace {

void showFile(const std::string& path)
{
    CStdioFile file;
    if (!file.Open(path.c_str(), CStdioFile::modeRead | CStdioFile::typeText))
        return;
    CString line;
    while (file.ReadString(line))
        printf("    | %s\n", line.GetString());
}

bool iniStep(const std::string& demoDir)
{
    std::string path = demoDir + "\\DemoMotion.tarnlin";

    CTQMIniFile ini;
    ini.SetFileComment("; Description of the demo library Motion\n");
    ini.SetEntryValue("Library", "Type", "Hpak");
    ini.SetEntryValue("Library", "ID", "DEMO.MOTION");
    ini.SetEntryValue("Library", "Version", "1.2.0");
    ini.SetEntryValue("Languages", "Count", "2");
    ini.SetEntryValue("Languages", "Lang0", "en");
    ini.SetEntryValue("Languages", "Lang1", "de");
    ini.SetEntryValue("en", "Name", "Motion control");
    ini.SetEntryValue("de", "Name", "Bewegungssteuerung");
    if (!ini.Write(path.c_str())) {
        printf("cannot write %s\n", path.c_str());
        return false;
    }
    printf("Wrote %s:\n", path.c_str());
    showFile(path);

    CTQMIniFile back;
    if (!back.Read(path.c_str())) {
        printf("cannot read it back\n");
        return false;
    }
    printf("Read back: %d sections; [Library] has %d entries; Version=%s\n", back.GetNumSections(),
           back.GetNumEntries("library"), back.GetEntryValue("LIBRARY", "version"));

    back.SetEntryValue("Library", "Version", "1.3.0");
    back.SetEntryValue("Distributor", "Name", "Tarn-Holmvik");
    back.RemoveSection("de");
    back.Write(path.c_str());
    printf("Edited (new version, a distributor, German name removed) and written again.\n");

    CString version = TQMGetProfileString("Library", "Version", "?", path.c_str());
    int nLanguages = TQMGetProfileInt("Languages", "Count", 0, path.c_str());
    CString missing = TQMGetProfileString("Library", "InstallDir", "(default)", path.c_str());
    printf("Profile lookups: Version=%s, Languages/Count=%d, InstallDir=%s\n", version.GetString(), nLanguages,
           missing.GetString());

    std::string broken = demoDir + "\\Broken.tarnlin";
    CStdioFile file;
    if (file.Open(broken.c_str(), CStdioFile::modeCreate | CStdioFile::modeWrite | CStdioFile::typeText)) {
        file.WriteString("[Library]\nType=Hpak\nVersion 1.0\n[Files]\n");
        file.Close();
    }
    CTQMIniFile damaged;
    if (damaged.Read(broken.c_str())) {
        printf("a damaged file read without complaint\n");
        return false;
    }
    printf("A damaged file: %s\n", FormatReadFailure(broken, DescribeReadFailure(broken.c_str(), damaged)).c_str());
    return true;
}

}  // namespace

TQM_REGISTER_DEMO_STEP({10, "INI documents", iniStep});

}  // namespace tqmtool

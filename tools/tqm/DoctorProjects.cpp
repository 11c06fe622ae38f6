// The doctor's projects: every project file below the projects directory,
// the libraries it names in [LibraryFiles] and how their paths are stored.
//
// A project names each library by its description file, in the first field
// of "Lib0", "Lib1", ... A path that begins with "." is relative to the
// project's folder, one that begins with a tag (<$StdLibDir>, <$ProjDir>, ...)
// is expanded against the directories as they are now; both survive a move.
// An absolute path does not, when it lies inside one of the suite's folders:
// the folder moves with the installation and the path keeps pointing at the
// old place.
#include "tools/tqm/Doctor.h"

#include "config/IniFile.h"
#include "config/Profile.h"
#include "config/Tokenizer.h"
#include "paths/FileOperations.h"
#include "paths/InstallDirs.h"
#include "paths/PathNames.h"
#include "paths/PathTags.h"

#include <windows.h>

#include <ctype.h>
#include <stdio.h>
#include <string.h>

namespace tqmtool {
namespace doctor {
namespace {

bool isAbsolute(const std::string& path)
{
    const bool drive = path.size() >= 3 && isalpha(static_cast<unsigned char>(path[0])) && path[1] == ':' &&
                       (path[2] == '\\' || path[2] == '/');
    return drive || !path.compare(0, 2, "\\\\");
}

bool sameText(const std::string& a, const std::string& b) { return !_stricmp(a.c_str(), b.c_str()); }

class ProjectCheck
{
public:
    ProjectCheck(const std::string& project, const InstalledLibraries& installed, Findings& findings)
        : m_project(project), m_folder(TQMGetParentDir(project.c_str()).GetString()), m_installed(installed),
          m_findings(findings)
    {
    }

    void Run()
    {
        // The project is read whole once; one the INI reader refuses is read
        // entry by entry, as the catalogue reads it, skipping what it cannot.
        CTQMIniFile ini;
        const bool whole = ini.Read(m_project.c_str()) != 0;
        auto value = [&](const char* key) -> std::string {
            if (whole)
                return ini.GetEntryValue("LibraryFiles", key, "");
            return TQMGetProfileString("LibraryFiles", key, "", m_project.c_str()).GetString();
        };
        const int count = ProfileNumber(value("NumberOfLibs").c_str(), -1);
        if (count < 0)
            return;  // the project uses every installed library
        for (int i = 0; i < count; ++i) {
            char key[32];
            snprintf(key, sizeof(key), "Lib%d", i);
            const std::string stored = value(key);
            if (stored.empty())
                continue;
            CTQMTokenizer fields;
            const char* first = fields.GetFirstToken(stored.c_str(), ';');
            if (first && *first)
                checkEntry(key, first);
        }
    }

private:
    void add(Severity severity, const std::string& reason)
    {
        m_findings.push_back({severity, Group::Projects, m_project, reason, std::string()});
    }

    // The entry's path as the catalogue reads it, and what is wrong with how
    // it is stored. False when the path cannot be expanded at all.
    bool resolve(const std::string& key, const std::string& stored, std::string& path)
    {
        if (stored[0] == '.') {
            path = TQMGetFullPath(m_folder.c_str(), stored.c_str()).GetString();
            return true;
        }
        path = TQMUnSubstAppPathTags(stored.c_str(), m_folder.c_str(), nullptr).GetString();
        if (stored[0] == '<' && path == stored) {
            add(Severity::Error, key + "=" + stored + ": the path begins with a tag the library does not know");
            return false;
        }
        if (isAbsolute(stored)) {
            const std::string tagged = TQMSubstAppPathTags(stored.c_str(), m_folder.c_str(), nullptr).GetString();
            if (tagged != stored)
                add(Severity::Warning, key + "=" + stored +
                                           ": an absolute path inside one of the suite's folders breaks when the "
                                           "installation moves; store it as " + tagged);
            else
                add(Severity::Note, key + "=" + stored + ": an absolute path outside every folder of the suite");
        }
        return true;
    }

    void checkEntry(const std::string& key, const std::string& stored)
    {
        std::string path;
        if (!resolve(key, stored, path))
            return;
        if (!TQMFileExists(path.c_str())) {
            add(Severity::Error, key + "=" + stored + ": the library's description " + path + " does not exist");
            return;
        }
        checkIdentity(key, path);
    }

    // A library whose ID an installed copy in use carries too: programs that
    // look the ID up find the other one.
    void checkIdentity(const std::string& key, const std::string& path)
    {
        const std::string& id = m_installed.EntriesOf(path).id;
        if (id.empty())
            return;
        const std::string kept = m_installed.KeptWithId(id);
        if (kept.empty() || sameText(kept, path))
            return;
        add(Severity::Warning, key + "=" + path + ": its ID " + id + " is also carried by the installed library " +
                                   kept + " (version " + m_installed.EntriesOf(kept).version + ")");
    }

    const std::string& m_project;
    const std::string m_folder;
    const InstalledLibraries& m_installed;
    Findings& m_findings;
};

}  // namespace

void CheckProjects(const InstalledLibraries& installed, Findings& findings, const Progress& progress)
{
    const std::vector<std::string> projects = FilesBelow(TQMGetProjectsDir().GetString(), ".tarn5pj");
    for (size_t i = 0; i < projects.size(); ++i) {
        if (progress)
            progress("projects", i, projects.size(), TQMGetParentDir(projects[i].c_str()).GetString());
        ProjectCheck(projects[i], installed, findings).Run();
    }
}

}  // namespace doctor
}  // namespace tqmtool

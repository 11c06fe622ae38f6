// The doctor's directories: every directory "tqm dirs" lists, whether it is
// there, whether a file can be made in it, and whether it sits on a drive that
// can be unplugged.
#include "tools/tqm/Doctor.h"
#include "tools/tqm/SuiteDirs.h"
#include "tools/tqm/SystemMessageText.h"

#include "framework/Handles.h"
#include "paths/FileOperations.h"
#include "paths/InstallDirs.h"
#include "paths/PathNames.h"

#include <windows.h>

#include <string.h>

namespace tqmtool {
namespace doctor {
namespace {

// The directories TQMCreateEnvironment makes: a program of the suite expects
// them. The other shell-folder directories are made by whoever first stores
// something there, so their absence is only worth a note.
const char* const kEnvironmentDirs[] = {"ProjectsDir", "LibsDir", "AppsDir", "TemplatesDir", "LocalDir", "UserDir"};

bool isEnvironmentDir(const std::string& name)
{
    for (const char* dir : kEnvironmentDirs) {
        if (name == dir)
            return true;
    }
    return false;
}

bool isDirectory(const std::string& path)
{
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// What a configurable directory falls back to when its setting is empty.
std::string defaultOf(const std::string& name)
{
    if (name == "AppsDir") {
        char path[MAX_PATH] = "";
        GetModuleFileNameA(GetModuleHandleA("Tqmlib52.dll"), path, MAX_PATH);
        return TQMGetParentDir(path).GetString();
    }
    const std::string base = TQMGetCommonDocumentsDir().GetString();
    if (name == "ProjectsDir")
        return base + "\\Projects";
    if (name == "LibsDir")
        return base + "\\Libs";
    if (name == "TemplatesDir")
        return base + "\\Templates";
    return std::string();
}

// Makes a file in dir and removes it again; empty when both worked, else why not.
std::string tryWriting(const std::string& dir)
{
    const std::string probe = dir + "\\~tqm-doctor-" + std::to_string(GetCurrentProcessId()) + ".tmp";
    {
        tqm::UniqueFile file(CreateFileA(probe.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                         FILE_ATTRIBUTE_TEMPORARY, nullptr));
        if (!file)
            return "making a file there failed: " + SystemMessage(GetLastError());
    }
    if (!DeleteFileA(probe.c_str()))
        return "a file made there could not be removed (" + probe + "): " + SystemMessage(GetLastError());
    return std::string();
}

void add(Findings& findings, Severity severity, const std::string& path, const std::string& reason)
{
    findings.push_back({severity, Group::Directories, path, reason, std::string()});
}

void checkDirectory(const SuiteDir& dir, const std::string& names, Findings& findings)
{
    if (!isDirectory(dir.path)) {
        const std::string fallback = dir.origin == "setting" ? defaultOf(dir.name) : std::string();
        if (!fallback.empty() && isDirectory(fallback))
            add(findings, Severity::Error, dir.path,
                names + " is set to a folder that does not exist, while its default " + fallback +
                    " does: the setting has probably outlived a move (\"tqm dirs set " + dir.name +
                    " \"\"\" returns to the default)");
        else if (isEnvironmentDir(dir.name))
            add(findings, Severity::Warning, dir.path, names + " does not exist (\"tqm env create\" makes it)");
        else
            add(findings, Severity::Note, dir.path, names + " does not exist yet");
        return;
    }
    const std::string problem = tryWriting(dir.path);
    if (!problem.empty())
        add(findings, Severity::Error, dir.path, names + " cannot be written: " + problem);
    if (TQMIsOnRemovableDrive(dir.path.c_str()))
        add(findings, Severity::Warning, dir.path,
            names + " is on a removable drive: the installation breaks whenever it is not plugged in");
}

}  // namespace

void CheckDirectories(Findings& findings)
{
    // Two names may stand for one folder (UserDir and UserLocalAppDataDir are
    // the same by design); each folder is checked once, under all its names.
    std::vector<SuiteDir> dirs;
    std::vector<std::string> names;
    for (const SuiteDir& dir : ListSuiteDirs()) {
        if (dir.name == "VMXOptionsFile")  // a file; the settings check reads it
            continue;
        bool known = false;
        for (size_t i = 0; i < dirs.size() && !known; ++i) {
            if (!_stricmp(dirs[i].path.c_str(), dir.path.c_str())) {
                names[i] += (names[i].find(" (also ") == std::string::npos ? " (also " : ", ") + dir.name;
                known = true;
            }
        }
        if (!known) {
            dirs.push_back(dir);
            names.push_back(dir.name);
        }
    }
    for (size_t i = 0; i < dirs.size(); ++i) {
        if (names[i].find(" (also ") != std::string::npos)
            names[i] += ")";
        checkDirectory(dirs[i], names[i], findings);
    }
}

}  // namespace doctor
}  // namespace tqmtool

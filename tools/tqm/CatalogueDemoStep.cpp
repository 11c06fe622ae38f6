// tqm demo, step "Library catalogue": the demo installation (tools/tqm/demo)
// installed into the libraries and projects directories, and what the
// catalogue sees in it: installed libraries with a duplicate resolved, a
// project's libraries, one library's file set with its messages, usable
// languages and help files, an identity clash, and the convertible scan.
#include "tools/tqm/CatalogueText.h"
#include "tools/tqm/Demo.h"
#include "tools/tqm/DemoFiles.h"

#include "framework/Handles.h"
#include "libcatalog/ConvertibleLibraries.h"
#include "libcatalog/LibraryFiles.h"
#include "libcatalog/LibraryLanguages.h"
#include "libcatalog/LibraryLists.h"
#include "libcatalog/logic/ObjectFileWriter.h"
#include "paths/InstallDirs.h"
#include "paths/PathNames.h"

#include <stdio.h>
#include <string.h>

#include <algorithm>

namespace tqmtool {
namespace {

bool writeFile(const std::string& path, const void* data, size_t size)
{
    TQMCreateDir(TQMGetParentDir(path.c_str()));
    tqm::UniqueFile file(CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    DWORD written = 0;
    return file && WriteFile(file.get(), data, static_cast<DWORD>(size), &written, nullptr) && written == size;
}

// Where a file of the demo tree goes: "Libs\..." into the libraries
// directory, "Projects\..." into the projects directory, the rest into the
// demo folder.
std::string targetOf(const std::string& relative, const std::string& demoDir)
{
    const size_t slash = relative.find('\\');
    const std::string top = relative.substr(0, slash);
    const std::string rest = relative.substr(slash + 1);
    if (top == "Libs")
        return std::string(TQMGetLibsDir().GetString()) + "\\" + rest;
    if (top == "Projects")
        return std::string(TQMGetProjectsDir().GetString()) + "\\" + rest;
    return demoDir + "\\" + relative;
}

// The object files of the motion library, made by the library's fixture writer.
bool writeObjectFiles(const std::string& motionDir)
{
    tqm::ObjectFileLayout motion;
    motion.dependencies = {"Motion.src", "MotionTypes.inc", "Ramp.tab"};
    motion.references = {{"CamTable", "CamData.bin"}};
    tqm::ObjectFileLayout axis;
    axis.shortHeader = true;  // a version-220 file with the older header size
    axis.dependencies = {"Axis.src", "MotionTypes.inc"};
    const std::vector<uint8_t> motionBytes = tqm::WriteObjectFile(motion);
    const std::vector<uint8_t> axisBytes = tqm::WriteObjectFile(axis);
    return writeFile(motionDir + "\\Motion.obj", motionBytes.data(), motionBytes.size()) &&
           writeFile(motionDir + "\\Axis.obj", axisBytes.data(), axisBytes.size());
}

bool install(const std::string& demoDir)
{
    size_t written = 0;
    for (size_t i = 0; i < kDemoFilesCount; ++i) {
        const EmbeddedFile& file = kDemoFiles[i];
        if (writeFile(targetOf(file.path, demoDir), file.data, file.size))
            ++written;
    }
    const std::string libsDir = TQMGetLibsDir().GetString();
    const bool objects = writeObjectFiles(libsDir + "\\Std\\Motion");
    printf("Installed %zu files and 2 object files: libraries in %s,\nthe project Plant in %s,\n"
           "old libraries in %s\\Old libraries\n",
           written, libsDir.c_str(), TQMGetProjectsDir().GetString(), demoDir.c_str());
    return written == kDemoFilesCount && objects;
}

// path without the folder base and its backslash, when it lies below it.
std::string below(const std::string& path, const std::string& base)
{
    if (path.size() > base.size() && !_strnicmp(path.c_str(), base.c_str(), base.size()) && path[base.size()] == '\\')
        return path.substr(base.size() + 1);
    return path;
}

bool isIn(const std::vector<std::string>& list, const std::string& path)
{
    return std::find(list.begin(), list.end(), path) != list.end();
}

bool showInstalled(const std::string& libsDir)
{
    const std::vector<std::string> all = TakeListBlock(TQMGetInstalledLibraries(FALSE));
    const std::vector<std::string> kept = TakeListBlock(TQMGetInstalledLibraries(TRUE));
    printf("\nInstalled libraries (%zu descriptions; of a library installed twice the copy in use):\n", all.size());
    std::vector<LibraryRow> rows;
    for (const std::string& path : kept)
        rows.push_back(DescribeLibrary(path));
    PrintLibraryTable(rows, libsDir);
    for (const std::string& path : all) {
        if (!isIn(kept, path)) {
            const LibraryRow row = DescribeLibrary(path);
            printf("  set aside: %s %s in %s (same ID %s)\n", row.name.c_str(), row.version.c_str(),
                   below(path, libsDir).c_str(), row.id.c_str());
        }
    }
    return isIn(kept, libsDir + "\\Std\\Motion\\Motion.tarnlin") &&
           !isIn(kept, libsDir + "\\Usr\\Motion-1.9\\Motion.tarnlin");
}

bool showProject(const std::string& controllerFile)
{
    HGLOBAL block = TQMGetProjectLibraries(controllerFile.c_str());
    printf("\nLibraries of the project, asked with its controller file %s:\n", controllerFile.c_str());
    const std::vector<std::string> files = TakeListBlock(block);
    for (const std::string& file : files)
        printf("  %s\n", file.c_str());
    return files.size() == 3;
}

bool showFileSet(const std::string& motionDir)
{
    const std::string description = motionDir + "\\Motion.tarnlin";
    HGLOBAL messageBlock = nullptr;
    const std::vector<std::string> files = TakeListBlock(TQMGetLibraryFiles(description.c_str(), &messageBlock));
    const std::vector<std::string> messages = TakeListBlock(messageBlock);
    printf("\nThe file set of Std\\Motion\\Motion.tarnlin (%zu files, in %s):\n", files.size(), motionDir.c_str());
    for (const std::string& file : files)
        printf("  %s\n", below(file, motionDir).c_str());
    for (const std::string& message : messages)
        printf("  %s\n", below(message, motionDir).c_str());
    return files.size() > 10 && messages.size() == 1;
}

void showLanguage(const std::string& description, const std::string& libsDir)
{
    char code[3];
    const BOOL preferred = TQMGetUsableLibLanguage(description.c_str(), code);
    char help[MAX_PATH] = "";
    TQMGetLibHelpFilePath(description.c_str(), help);
    printf("  %-26s %s (%s)  help %s\n", below(description, libsDir).c_str(), code,
           preferred ? "the preferred language" : "a fallback", *help ? below(help, libsDir).c_str() : "(none)");
}

bool showClash(const std::string& controllerFile)
{
    const std::vector<std::string> lines =
        TakeListBlock(TQMCheckLibraryID("DEMO.MOTION", "Motion", controllerFile.c_str()));
    printf("\nOther libraries that carry Motion's ID DEMO.MOTION (the project's included):\n");
    for (std::string line : lines) {
        std::replace(line.begin(), line.end(), '\t', '|');
        printf("  %s\n", line.c_str());
    }
    return lines.size() == 1;
}

bool showConvertible(const std::string& oldDir)
{
    const std::vector<std::string> candidates = TakeListBlock(TQMGetConvertableLibraries(oldDir.c_str(), TRUE));
    printf("\nOld libraries that still need converting, below %s:\n", oldDir.c_str());
    for (const std::string& candidate : candidates)
        printf("  %s\n", below(candidate, oldDir).c_str());
    return candidates.size() == 3;
}

bool catalogueStep(const std::string& demoDir)
{
    if (!install(demoDir))
        return false;
    const std::string libsDir = TQMGetLibsDir().GetString();
    const std::string controllerFile = std::string(TQMGetProjectsDir().GetString()) + "\\Plant\\Cpu1\\Cpu1.tarn5pc";
    bool ok = showInstalled(libsDir);
    ok = showProject(controllerFile) && ok;
    ok = showFileSet(libsDir + "\\Std\\Motion") && ok;
    printf("\nUsable languages (preferred library language: %s) and help files:\n", TQMGetLibLanguage().GetString());
    showLanguage(libsDir + "\\Std\\Motion\\Motion.tarnlin", libsDir);
    showLanguage(libsDir + "\\Std\\Timers\\Timers.tarnlin", libsDir);
    ok = showClash(controllerFile) && ok;
    ok = showConvertible(demoDir + "\\Old libraries") && ok;
    return ok;
}

}  // namespace

TQM_REGISTER_DEMO_STEP({50, "Library catalogue", catalogueStep});

}  // namespace tqmtool

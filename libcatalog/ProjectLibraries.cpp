// TQMGetProjectLibraries: the descriptions a project file names.
#include "libcatalog/LibraryLists.h"

#include "config/IniSystemFold.h"
#include "config/Profile.h"
#include "config/Tokenizer.h"
#include "libcatalog/CatalogueCall.h"
#include "libcatalog/LibraryListBlock.h"
#include "libcatalog/ProfileSection.h"
#include "libcatalog/logic/FoldedNameSet.h"
#include "libcatalog/logic/LibraryMembers.h"
#include "libcatalog/logic/NumberedEntries.h"
#include "paths/FileOperations.h"
#include "paths/PathNames.h"
#include "paths/PathTags.h"

#include <stdio.h>

namespace tqm {
namespace {

// The project file itself; for a controller file P\Demo\Cpu1\x.tarn5pc it is
// P\Demo\Demo.tarn5pj.
CString projectFileOf(const char* path)
{
    if (!HasExtension(path, ".tarn5pc"))
        return path;
    const CString projectDir = TQMGetParentDir(TQMGetParentDir(path));
    CString projectFile;
    projectFile.Format("%s\\%s.tarn5pj", projectDir.GetString(), TQMGetFileName(projectDir).GetString());
    return projectFile;
}

// A library's description as the project file names it, made full.
std::string descriptionPath(const char* field, const CString& projectDir)
{
    if (field[0] == '.')
        return TQMGetFullPath(projectDir, field).GetString();
    return TQMUnSubstAppPathTags(field, projectDir, nullptr).GetString();
}

}  // namespace

bool ProjectLibraryFiles(const char* projectFile, std::vector<std::string>& files)
{
    files.clear();
    if (!projectFile)
        return false;
    const CString project = projectFileOf(projectFile);
    if (!TQMFileExists(project))
        return false;
    const int numberOfLibs = TQMGetProfileInt("LibraryFiles", "NumberOfLibs", -1, project);
    if (numberOfLibs < 0) {
        files = InstalledLibraryFiles(true);
        return true;
    }

    ProfileSection section;
    section.Read(project, "LibraryFiles");
    const CString projectDir = TQMGetParentDir(project);
    FoldedNameSet known(ini::SystemNameFold());
    char key[32];
    // Only entries present can name a library: a count beyond them adds nothing.
    WalkNumberedEntries(static_cast<uint32_t>(numberOfLibs), section.NumberedKeys("Lib"), [&](uint32_t n, bool present) {
        if (!present)
            return;
        snprintf(key, sizeof(key), "Lib%u", n);
        CTQMTokenizer fields;
        const char* first = fields.GetFirstToken(section.Value(key, ""), ';');
        if (!*first)
            return;
        std::string path = descriptionPath(first, projectDir);
        if (known.Insert(path))
            files.push_back(std::move(path));
    });
    return true;
}

}  // namespace tqm

HGLOBAL WINAPI TQMGetProjectLibraries(const char* projectFile)
{
    return tqm::CatalogueCall<HGLOBAL>(nullptr, [&]() -> HGLOBAL {
        std::vector<std::string> files;
        if (!tqm::ProjectLibraryFiles(projectFile, files))
            return nullptr;
        return tqm::MakeLibraryListBlock(files);
    });
}

// Completing a library's file set: families, languages, objects, sources.
#include "libcatalog/FileSetCompletion.h"

#include "config/Profile.h"
#include "libcatalog/CatalogueFiles.h"
#include "libcatalog/DescriptionReaders.h"
#include "libcatalog/logic/LibraryMembers.h"
#include "libcatalog/logic/ObjectFile.h"
#include "libcatalog/logic/SourceDirectives.h"
#include "paths/PathNames.h"

namespace tqm {
namespace {

// The size of the blocks a source file is read in.
constexpr size_t kSourceBlock = 64 * 1024;

// Adds every file (not folder, not backup) that matches pattern in folder; a
// pattern with folders of its own finds its files in those.
void addMatches(const std::string& folder, const std::string& pattern, LibraryFileSet& set)
{
    const std::string full = folder + "\\" + pattern;
    const std::string matchFolder = FolderOf(full);
    ForEachMatch(full, [&](const WIN32_FIND_DATAA& data) {
        if (!IsFolder(data) && !HasExtension(data.cFileName, ".bak"))
            set.AddFile(matchFolder + "\\" + data.cFileName);
        return true;
    });
}

// A family or language name used as a name in a language folder: without
// folders or wildcards, else it names nothing of this library.
bool isBareName(const std::string& name)
{
    return !name.empty() && !TQMHasDir(name.c_str()) &&
           name.find_first_of("*?") == std::string::npos;
}

// A help file name in a family file: a valid file name.
bool isPlainName(const std::string& name) { return TQMIsValidFileName(name.c_str(), TRUE) != FALSE; }

void addLanguageFiles(const std::string& folder, const std::string& family, const std::string& language,
                      LibraryFileSet& set)
{
    const std::string languageFolder = folder + "\\" + language;
    addMatches(languageFolder, family + ".*", set);
    const std::string familyFile = languageFolder + "\\" + family + ".dff";
    if (!IsExistingFile(familyFile.c_str()))
        return;
    const CString help = TQMGetProfileString("__Library", "Help", "", familyFile.c_str());
    if (help.IsEmpty())
        return;
    if (!isPlainName(help.GetString())) {
        set.Raise("Warning: Invalid help file name (%s) in file: %s", help.GetString(), familyFile.c_str());
        return;
    }
    const std::string helpFile = languageFolder + "\\" + help.GetString();
    if (IsExistingFile(helpFile.c_str()))
        set.AddFile(helpFile);
}

// A name from a directive, as a full path from folder.
std::string resolveName(const std::string& folder, const std::string& name)
{
    if (!TQMHasDir(name.c_str()))
        return folder + "\\" + name;
    return FullPathInFolder(folder, name);
}

// name with ext appended when its last component has no extension.
std::string withDefaultExtension(const std::string& name, const char* ext)
{
    const size_t lastSeparator = name.find_last_of("\\/:");
    const size_t lastDot = name.rfind('.');
    const bool hasExtension = lastDot != std::string::npos &&
                              (lastSeparator == std::string::npos || lastDot > lastSeparator);
    return hasExtension ? name : name + ext;
}

void readObjectFile(const std::string& path, LibraryFileSet& set)
{
    CatalogueFile file;
    if (!file.Open(path.c_str()))
        return;
    const ObjectFileNames found = ReadObjectFileNames(file);
    const std::string folder = FolderOf(path);
    // Every recorded name without a folder part, whatever else it holds: the
    // compiler wrote it, so it names a file the object was made from.
    for (const std::string& name : found.names) {
        if (!name.empty() && !TQMHasDir(name.c_str()))
            set.AddFile(folder + "\\" + name);
    }
    switch (found.fault) {
    case ObjectFileFault::None:
        break;
    case ObjectFileFault::UnsupportedVersion:
        set.Raise("Error: Unsupported object file version (%u): %s", found.version, path.c_str());
        break;
    case ObjectFileFault::BadChecksum:
        set.Raise("Error: Bad checksum in object file: %s", path.c_str());
        break;
    case ObjectFileFault::Unreadable:
        set.Raise("Error: Can't read file: %s", path.c_str());
        break;
    }
}

// A source file being scanned: its directives and the next one to take.
struct OpenSource
{
    std::string folder;
    std::vector<SourceDirective> directives;
    size_t next = 0;
};

// The directives of a source file, read block by block; false on a read
// error (the directives before it are kept).
bool scanSourceFile(CatalogueFile& file, std::vector<SourceDirective>& directives)
{
    SourceDirectiveScanner scanner;
    // A block, or the whole of a smaller file.
    std::vector<uint8_t> block(file.Size() < kSourceBlock ? static_cast<size_t>(file.Size()) + 1 : kSourceBlock);
    bool ok = true;
    for (uint64_t offset = 0;; offset += block.size()) {
        size_t got = 0;
        ok = file.Read(offset, block.data(), block.size(), &got);
        scanner.Feed(reinterpret_cast<const char*>(block.data()), got);
        if (!ok || got < block.size())
            break;
    }
    directives = scanner.Finish();
    return ok;
}

OpenSource openSource(const std::string& path, LibraryFileSet& set)
{
    OpenSource source;
    source.folder = FolderOf(path);
    CatalogueFile file;
    if (!file.Open(path.c_str()))
        return source;
    if (ClassifyLibraryMember(path.c_str()) == LibraryMemberKind::Enciphered) {
        // Enciphered text holds no readable directives; only its signature is checked.
        uint8_t head[kEncipheredSignatureSize];
        size_t got = 0;
        if (!file.Read(0, head, sizeof(head), &got)) {
            set.Raise("Error: Can't read file: %s", path.c_str());
            return source;
        }
        if (!HasEncipheredSignature(reinterpret_cast<const char*>(head), got))
            set.Raise("Error: Invalid encrypted file signature: %s", path.c_str());
        return source;
    }
    if (!scanSourceFile(file, source.directives))
        set.Raise("Error: Can't read file: %s", path.c_str());
    return source;
}

// Scans a source and, depth first, every new file it includes, whatever its
// extension but an object file's (those are read as object files by the
// walk). The open sources live on a stack of their own, so deep inclusion
// chains cannot exhaust the thread's stack.
void scanSource(const std::string& path, LibraryFileSet& set)
{
    std::vector<OpenSource> open;
    open.push_back(openSource(path, set));
    while (!open.empty()) {
        OpenSource& top = open.back();
        if (top.next == top.directives.size()) {
            open.pop_back();
            continue;
        }
        const SourceDirective directive = top.directives[top.next++];
        if (!TQMIsValidPathName(directive.name.c_str(), FALSE))
            continue;
        if (directive.kind != SourceDirectiveKind::Include) {
            const std::string name = withDefaultExtension(directive.name, DefaultDirectiveExtension(directive.kind));
            const std::string full = resolveName(top.folder, name);
            if (IsExistingFile(full.c_str()))
                set.AddFile(full);
            continue;
        }
        const std::string full = resolveName(top.folder, directive.name);
        if (!set.AddFile(full) || ClassifyLibraryMember(full.c_str()) == LibraryMemberKind::ObjectFile)
            continue;
        set.MarkDone(set.FileCount() - 1);
        open.push_back(openSource(full, set));
    }
}

}  // namespace

void CompleteLibraryFileSet(const std::string& folder, LibraryFileSet& set)
{
    const std::vector<std::string> families = set.Families();
    for (const std::string& family : families)
        addMatches(folder, family + ".*", set);
    for (const std::string& family : families) {
        for (const LibraryLanguage& language : set.Languages()) {
            if (isBareName(family) && isBareName(language.name))
                addLanguageFiles(folder, family, language.name, set);
        }
    }

    for (size_t i = 0; i < set.FileCount(); ++i) {
        const std::string path = set.FileAt(i);
        const LibraryMemberKind kind = ClassifyLibraryMember(path.c_str());
        // A family file leaves the set even when a source included it.
        if (kind == LibraryMemberKind::FamilyFile) {
            set.RemoveFileAt(i);
            continue;
        }
        if (!set.MarkDone(i))
            continue;
        switch (kind) {
        case LibraryMemberKind::ObjectFile:
            readObjectFile(path, set);
            break;
        case LibraryMemberKind::Source:
        case LibraryMemberKind::Enciphered:
            scanSource(path, set);
            break;
        default:
            break;
        }
    }
}

}  // namespace tqm

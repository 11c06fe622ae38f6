// LibraryFileSet - the working record of one TQMGetLibraryFiles call: the
// files of a library, the messages raised on the way, its families and its
// languages.
//
// Files are full paths, each held once (compared without regard to case). The
// list doubles as the completion's work list (FileSetCompletion.h): entries
// appended while it is walked are walked too, and each remembers whether it
// was dealt with already. A file taken out of the set stays known to it, so
// it is never added again in the same call.
#pragma once

#include "libcatalog/logic/FoldedNameSet.h"

#include <stdarg.h>

#include <string>
#include <vector>

namespace tqm {

struct LibraryLanguage
{
    std::string name;  // as the description writes it: "English", or a code in current descriptions
    std::string code;  // two letters; empty for a language nobody knows
};

class LibraryFileSet
{
public:
    LibraryFileSet();

    // Files ---------------------------------------------------------------
    // Adds path unless the set knows it; true when it was added.
    bool AddFile(const std::string& path);
    bool KnowsFile(const std::string& path) const { return m_known.Contains(path); }
    size_t FileCount() const { return m_files.size(); }
    const std::string& FileAt(size_t i) const { return m_files[i].path; }
    // Takes the entry out of the result; it stays known.
    void RemoveFileAt(size_t i) { m_files[i].removed = true; }
    // Marks the entry as dealt with; false when it was already.
    bool MarkDone(size_t i);
    // The files in the order they were added, without the removed ones.
    std::vector<std::string> Files() const;

    // Messages ------------------------------------------------------------
    // Appends a message line formatted in printf style ("Error: ..." or "Warning: ...").
    void Raise(const char* format, ...) __attribute__((format(printf, 2, 3)));
    const std::vector<std::string>& Messages() const { return m_messages; }

    // Families and languages ---------------------------------------------
    void AddFamily(const std::string& family)
    {
        m_families.push_back(family);
        m_familyNames.Insert(family);
    }
    bool HasFamily(const std::string& family) const { return m_familyNames.Contains(family); }
    const std::vector<std::string>& Families() const { return m_families; }
    void AddLanguage(const std::string& name, const std::string& code) { m_languages.push_back({name, code}); }
    const std::vector<LibraryLanguage>& Languages() const { return m_languages; }

private:
    struct Entry
    {
        std::string path;
        bool removed;
        bool done;
    };

    std::vector<Entry> m_files;
    FoldedNameSet m_known;
    std::vector<std::string> m_messages;
    std::vector<std::string> m_families;
    FoldedNameSet m_familyNames;
    std::vector<LibraryLanguage> m_languages;
};

}  // namespace tqm

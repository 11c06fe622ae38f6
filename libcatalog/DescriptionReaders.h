// The readers of a library's description: current ".tarnlin" and older ".lin"
// descriptions, family files ".dff" and definition files ".def". Each adds
// what it finds to the file set (files, families, languages) and raises a
// message line for every problem; none writes to the file it reads.
#pragma once

#include "libcatalog/LibraryFileSet.h"

#include <string>

namespace tqm {

enum class DescriptionKind
{
    Current,     // .tarnlin
    Older,       // .lin
    FamilyFile,  // .dff
    Definition,  // .def
    Unknown
};

// The kind by the extension after the last "." of path, without regard to case.
DescriptionKind DescriptionKindOf(const std::string& path);

// Each returns false when the file could not be read or is not a library's
// description; the messages raised and what was found stay in the set.
bool ReadCurrentDescription(const std::string& path, LibraryFileSet& set);
bool ReadOlderDescription(const std::string& path, LibraryFileSet& set);
bool ReadFamilyFile(const std::string& path, LibraryFileSet& set);
bool ReadDefinitionFile(const std::string& path, LibraryFileSet& set);

// The file name without folder and extension.
std::string BaseNameOf(const std::string& path);
// The folder that holds path, without a trailing backslash.
std::string FolderOf(const std::string& path);

}  // namespace tqm

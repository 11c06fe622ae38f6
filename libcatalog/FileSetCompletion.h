// CompleteLibraryFileSet - the files a library's members name, added to its
// file set until no new ones turn up.
//
// After the description has been read:
//  1. Each family's files in the description's folder ("Motion.*", but no
//     ".bak" backups), then the language step for each family and language
//     (below).
//  2. A walk over the set, new entries included, by each file's kind
//     (logic/LibraryMembers.h): family files leave the set, object files add
//     the names they record, sources add what their directives name, and
//     everything else stays as it is.
//
// The family step takes a family name as it stands, whatever characters it
// holds. The language step: a library keeps the files of one language in a
// subfolder named as its description names the language ("English" in older
// descriptions, "en" in current ones); families and languages whose names
// hold folders or wildcards have none. For family F and language L, every
// "L\F.*" but backups joins the set, and when "L\F.dff" names a help file in
// [__Library] "Help", that file joins too when it exists. A help name that is
// not a plain file name raises "Warning: Invalid help file name (%s) in
// file: %s".
//
// Sources: "$INCLUDE name", when name is a valid path name, adds the named
// file (a bare name lies in the source's folder, any other is made full
// against it, path tags included, on drives and network paths alike) and
// scans it at once, before the rest of the including file, whatever its
// extension - only an object file is left to the walk, which reads it as one;
// a file already in the set is not scanned again, which ends cycles. Files
// are read block by block, whatever their size. "$LIB" and "$USE" name
// object files (".obl" and ".obj" when the name has none) found the same way;
// they join the set only when they exist there, since units from elsewhere are
// not this library's files. Object files: each recorded name without a folder
// part joins the set, in the object file's folder, whatever else it holds.
#pragma once

#include "libcatalog/LibraryFileSet.h"

#include <string>

namespace tqm {

// folder is the description's folder.
void CompleteLibraryFileSet(const std::string& folder, LibraryFileSet& set);

}  // namespace tqm

// ResolveDuplicateLibraries - which copy of a library installed twice stays.
//
// Two description files with the same ID (compared without regard to case;
// two empty IDs are equal too) describe the same library. The list is walked
// from its head; each entry A still in the list is compared with the first
// other entry B of its ID, searched from the head, and one of the two goes:
//   - of two different versions, the lower one;
//   - of equal versions installed in the same folder (libraries directory +
//     InstallDir, the same without case): the one whose description does not
//     lie in that folder; when A's does, B goes; when only B's does, A goes;
//   - otherwise B, so the entry met first in the walk stays.
// A stays in the walk's sight only until its own turn: a third copy is
// compared when its turn comes. An entry removed ahead of the walk is skipped.
//
// Each library's entries are read once, before the walk, into a table, so a
// call reads every description file once however many copies there are.
#pragma once

#include "config/logic/IniNames.h"

#include <stdint.h>

#include <string>
#include <vector>

namespace tqm {

struct InstalledLibrary
{
    std::string path;     // the description file
    std::string id;       // [Library] ID
    uint32_t version;     // [Library] Version as ParseLibraryVersion reads it, malformed or not
    std::string folder;   // libraries directory + "\" + [Library] InstallDir
};

// The positions in libraries of the entries that stay, in list order.
std::vector<size_t> ResolveDuplicateLibraries(const std::vector<InstalledLibrary>& libraries,
                                              const ini::NameFold& fold);

}  // namespace tqm

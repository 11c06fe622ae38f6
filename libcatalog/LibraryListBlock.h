// MakeLibraryListBlock - a list as the catalogue hands it over: a movable,
// zero-initialised global memory block of NUL-terminated strings, closed by
// one more NUL (see logic/ListBlock.h). The caller frees it with GlobalFree.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tqm {

// The block; NULL when memory cannot be allocated or locked (a block already
// allocated is freed first).
HGLOBAL MakeLibraryListBlock(const std::vector<std::string>& items);

}  // namespace tqm

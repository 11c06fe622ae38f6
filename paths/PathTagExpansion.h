// The one place where TQMGetFullPath hands a tagged path ("<$LibsDir>\x") to
// the path tags.
#pragma once

#include "framework/CString.h"

#ifdef TQMLIB_BUILD
namespace tqm {
// path with its leading path tags expanded.
CString ExpandPathTags(const char* path);
}  // namespace tqm
#endif

#include "paths/PathTagExpansion.h"

#include "paths/PathTags.h"

namespace tqm {

CString ExpandPathTags(const char* path) { return TQMUnSubstAppPathTags(path); }

}  // namespace tqm

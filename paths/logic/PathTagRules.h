// PathTag, SubstPathTags, UnSubstPathTags - the text side of the suite's path
// tags.
//
// A stored path begins with a tag such as "<$ProjectsDir>" in place of the
// directory it lay in, and is expanded against the directories as they are
// when it is read. A tag stands only at the very start of a path, followed
// directly by the rest (normally "\..."). Tags and directory prefixes compare
// without regard to ASCII case over exactly their own length: the first
// match wins, and no separator is required after a directory, so
// C:\Projects2\a is stored as <$ProjectsDir>2\a when the projects directory
// is C:\Projects. Stored files depend on these rules and on the orders in the
// tables below; keep them.
//
// The directories come from a lookup the caller supplies; it is asked only
// for the directories a path actually needs, in table order.
#pragma once

#include "framework/CString.h"

#include <functional>

namespace tqm {

// The directories a tag can stand for.
enum class PathTagDir
{
    Programs,    // the Program Files folder
    Templates,
    Libs,
    Projects,
    User,        // the user's local application data folder of the suite
    Local,
    Apps,
    AppsParent,  // the folder above the programs
    Docs,
};

struct PathTag
{
    const char* name;  // "<$LibsDir>"
    PathTagDir dir;    // the directory it stands for
    const char* below; // a subfolder appended to it ("\Std"), or ""
};

// The tags substitution produces, in the order it tries their directories:
// the Program Files folder first (so an installation below it is stored with
// "<$ProgramsDir>", never "<$AppsDir>"), the documents folder last.
extern const PathTag kSubstTags[9];
// The tags expansion knows, in the order it compares them. The four library
// subfolder tags are only ever read; substitution writes "<$LibsDir>\Std\...".
extern const PathTag kUnSubstTags[13];

// The tags only the forms with a project and a device directory know.
extern const char kProjDirTag[];  // "<$ProjDir>"
extern const char kDevDirTag[];   // "<$DevDir>"
extern const char kCpuDirTag[];   // "<$CpuDir>", read as "<$DevDir>"

using PathTagDirLookup = std::function<CString(PathTagDir)>;

// path with its leading directory replaced by the first tag of kSubstTags
// whose directory begins it (empty directories are skipped); path unchanged
// when none does.
CString SubstPathTags(const char* path, const PathTagDirLookup& lookup);

// path with a leading tag of kUnSubstTags replaced by its directory; path
// unchanged when it does not begin with "<" or with a known tag.
CString UnSubstPathTags(const char* path, const PathTagDirLookup& lookup);

// The same with a project and a device directory: a path in devDir (when
// given and not empty) becomes "<$DevDir>...", then a path in projDir (the
// projects directory when projDir is NULL) "<$ProjDir>..."; otherwise as
// above. An empty projDir matches every path, which callers have always got.
CString SubstPathTags(const char* path, const char* projDir, const char* devDir, const PathTagDirLookup& lookup);

// Expands "<$DevDir>" and "<$CpuDir>" to devDir (when given and not empty)
// and "<$ProjDir>" to projDir (the projects directory when NULL); otherwise
// as above.
CString UnSubstPathTags(const char* path, const char* projDir, const char* devDir, const PathTagDirLookup& lookup);

}  // namespace tqm

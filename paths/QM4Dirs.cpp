// The directories with a trailing backslash, as callers of the previous
// generation expect them.
#include "paths/InstallDirs.h"

#include <string.h>

namespace {

// Appends one backslash where the MAX_PATH buffer has room for it.
char* withBackslash(char* dst)
{
    const size_t length = strlen(dst);
    if (length + 1 < MAX_PATH) {
        dst[length] = '\\';
        dst[length + 1] = '\0';
    }
    return dst;
}

}  // namespace

char* WINAPI GetQM4AppsDir(char* dst)
{
    if (!dst)
        return dst;
    TQMGetAppsDir(dst);
    return withBackslash(dst);
}

char* WINAPI GetQM4LocalDir(char* dst)
{
    if (!dst)
        return dst;
    TQMGetLocalDir(dst);
    return withBackslash(dst);
}

char* WINAPI GetQM4ProjectsDir(char* dst)
{
    if (!dst)
        return dst;
    TQMGetProjectsDir(dst);
    return withBackslash(dst);
}

#include "paths/DirBuffer.h"

#include "diag/TarnAssert.h"

#include <windows.h>

#include <string.h>

#undef TARN_SOURCE
#define TARN_SOURCE "Misc"

namespace tqm {

int CopyDirToBuffer(const CString& path, char* dst)
{
    int len = path.GetLength();
    TARN_ASSERT(len < MAX_PATH);
    // The caller's buffer holds MAX_PATH characters: a longer path (a shell
    // folder near the limit with the suite's subfolder added) is reported
    // and cut rather than written past the buffer's end.
    if (len >= MAX_PATH)
        len = MAX_PATH - 1;
    if (!dst)
        return len;
    memcpy(dst, path.GetString(), len);
    dst[len] = '\0';
    return len;
}

}  // namespace tqm

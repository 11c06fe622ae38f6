// The one place where the directory functions hand a path they built to the
// caller's buffer.
#pragma once

#include "framework/CString.h"

#ifdef TQMLIB_BUILD
namespace tqm {
// Copies path into dst, a buffer of MAX_PATH characters, and returns the
// number of characters written. A path of MAX_PATH characters or more is
// reported as a failed assertion and cut to fit.
int CopyDirToBuffer(const CString& path, char* dst);
}  // namespace tqm
#endif

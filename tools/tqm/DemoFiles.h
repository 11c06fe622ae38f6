// The demo installation's files (tools/tqm/demo), carried in tqm.exe so that
// "tqm demo" can install them wherever it runs. The build generates the list.
#pragma once

#include <stddef.h>

namespace tqmtool {

struct EmbeddedFile
{
    const char* path;  // relative, backslash-separated: "Libs\Std\Motion\Motion.tarnlin"
    const char* data;
    size_t size;
};

extern const EmbeddedFile kDemoFiles[];
extern const size_t kDemoFilesCount;

}  // namespace tqmtool

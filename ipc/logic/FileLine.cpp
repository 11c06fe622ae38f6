// Cutting a line from a chunk of a text file.
#include "ipc/logic/FileLine.h"

#include <string.h>

LONG tqm::CutFileLine(char* text, DWORD got)
{
    if (char* lineFeed = strchr(text, '\n'))
        *lineFeed = '\0';
    const size_t length = strlen(text);
    char* out = text;
    for (const char* in = text; *in; ++in) {
        if (*in != '\r')
            *out++ = *in;
    }
    *out = '\0';
    return static_cast<LONG>(length) - static_cast<LONG>(got) + 1;
}

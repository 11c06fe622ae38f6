// TQMParseLibraryVersion.
#include "libcatalog/LibraryLists.h"

#include "libcatalog/logic/LibraryVersion.h"

BOOL WINAPI TQMParseLibraryVersion(const char* text, DWORD* value)
{
    uint32_t number = 0;
    const bool wellFormed = tqm::ParseLibraryVersion(text, &number);
    if (value)
        *value = number;
    return wellFormed ? TRUE : FALSE;
}

// The library's module and the process's resource source.
//
// AfxGetResourceHandle names the module that the string-id forms of the
// debug output load their formats from. It starts as the program's own
// executable; a program whose strings live in a resource DLL sets it.
#pragma once

#include <windows.h>

#include "framework/Export.h"

// The module the string-id forms of the debug output load their formats from.
TQM_CPPAPI HINSTANCE AfxGetResourceHandle();
// Makes hResource that module (a program whose strings live in a resource DLL).
TQM_CPPAPI void AfxSetResourceHandle(HINSTANCE hResource);

#ifdef TQMLIB_BUILD
namespace tqm {
// The library's own module handle (valid from the first static constructor on).
HINSTANCE LibraryInstance();

// Makes the library the resource source for the lifetime of the object.
class LibraryResourceScope
{
public:
    LibraryResourceScope();
    ~LibraryResourceScope();
    LibraryResourceScope(const LibraryResourceScope&) = delete;
    LibraryResourceScope& operator=(const LibraryResourceScope&) = delete;

private:
    HINSTANCE m_hSaved;
};
}  // namespace tqm
#endif

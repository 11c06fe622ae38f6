// Export macros of Tqmlib52.
//
// TQM_CLASS   an exported class
// TQM_CPPAPI  an exported C++ function (the CString overloads, framework hooks)
// TQM_CAPI    a plain function. The library build leaves it without an
//             attribute: plain functions are exported through the module-
//             definition file, which gives stdcall functions their undecorated
//             names; an attribute would export the decorated name as well.
#pragma once

#if !defined(_WIN32)
// A build of the library's text handling for another system (the fuzzing
// set) has no DLL.
#define TQM_CLASS
#define TQM_CPPAPI
#define TQM_CAPI
#elif defined(TQMLIB_BUILD)
#define TQM_CLASS __declspec(dllexport)
#define TQM_CPPAPI __declspec(dllexport)
#define TQM_CAPI
#else
#define TQM_CLASS __declspec(dllimport)
#define TQM_CPPAPI __declspec(dllimport)
#define TQM_CAPI __declspec(dllimport)
#endif

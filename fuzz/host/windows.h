// The Windows types the library's text handling is written with, for
// building it on another system (the fuzzing set). Types and constants
// only: nothing here stands in for a function of the system, so code that
// calls one does not build here.
#pragma once

#include <stddef.h>
#include <stdint.h>

typedef int BOOL;
typedef unsigned char BYTE;
typedef unsigned short WORD;
typedef uint32_t DWORD;
typedef unsigned int UINT;
typedef int32_t LONG;
typedef uint64_t ULONGLONG;
typedef void* HANDLE;
typedef struct HINSTANCE__* HINSTANCE;
typedef char* LPSTR;
typedef const char* LPCSTR;

#define TRUE 1
#define FALSE 0
#define MAX_PATH 260

#define WINAPI
#define __stdcall
#define __cdecl

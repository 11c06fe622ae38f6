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
typedef uintptr_t ULONG_PTR;
typedef intptr_t LONG_PTR;
typedef LONG_PTR LRESULT;
typedef void* HANDLE;
typedef struct HINSTANCE__* HINSTANCE;
typedef char* LPSTR;
typedef const char* LPCSTR;

typedef struct tagRECT
{
    LONG left, top, right, bottom;
} RECT;
typedef struct tagPOINT
{
    LONG x, y;
} POINT;
typedef struct tagSIZE
{
    LONG cx, cy;
} SIZE;

#define TRUE 1
#define FALSE 0
#define MAX_PATH 260

#define WINAPI
#define __stdcall
#define __cdecl

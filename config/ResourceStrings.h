// fSString, _fString - messages and captions from the library's own string
// table (res/StringIds.h).
//
// A missing string is a fault of the build, not of the caller: the process
// ends with "Fatal error ID#<id>" (shown in a box, or handed to the message-
// box hook when a program without a user has installed one).
#pragma once

#include <windows.h>

#include "framework/Export.h"

// Loads string id into buf (at most size - 1 characters and a NUL); returns buf.
extern "C" TQM_CAPI char* WINAPI fSString(unsigned short id, char* buf, int size);

// The same into one of two static buffers of 255 characters, used in turn: a
// result stays valid until two more calls have been made. Shared by all
// threads - copy the text at once or call from one thread only.
extern "C" TQM_CAPI const char* WINAPI _fString(unsigned short id);

// The levels of the lines a program hands to the project manager's message
// window (TQMDisplayMessage), and how they travel in a copy-data message.
#pragma once

#include <windows.h>

namespace tqm {

enum MessageLevel
{
    kMessageLevelWarning = 1,
    kMessageLevelError = 2,
};

// The level a line is shown with: a positive level as given; otherwise 2 for
// a text beginning "Error " or "Fatal ", 1 for one beginning "Warning" (case
// ignored), else the level as given.
int DisplayMessageLevel(const char* text, int level);

// The copy-data word of a message line: 0xAAAA0000 plus the level, reckoned
// in 32 bits, so that both builds send the same word for any level.
DWORD DisplayMessageWord(int level);
// The level back from a copy-data word; false for a word no level in
// -65536..65535 gives (another sender's copy-data message).
bool ReadDisplayMessageWord(ULONG_PTR word, int* level);

}  // namespace tqm

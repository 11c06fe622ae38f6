// Message levels and their copy-data word.
#include "ipc/logic/MessageLevel.h"

#include "config/logic/AsciiCase.h"

namespace {

constexpr DWORD kMessageTag = 0xAAAA0000;

}  // namespace

int tqm::DisplayMessageLevel(const char* text, int level)
{
    if (level > 0 || !text)
        return level;
    // The blank belongs to the word: "Error: x" keeps its level.
    if (tqm::StartsWithNoCase(text, "Error ") || tqm::StartsWithNoCase(text, "Fatal "))
        return kMessageLevelError;
    if (tqm::StartsWithNoCase(text, "Warning"))
        return kMessageLevelWarning;
    return level;
}

DWORD tqm::DisplayMessageWord(int level) { return kMessageTag + static_cast<DWORD>(level); }

bool tqm::ReadDisplayMessageWord(ULONG_PTR word, int* level)
{
    if (word != static_cast<DWORD>(word))  // beyond 32 bits, in the 64-bit build
        return false;
    const int value = static_cast<int>(static_cast<DWORD>(word) - kMessageTag);
    if (value < -65536 || value > 65535)
        return false;
    *level = value;
    return true;
}

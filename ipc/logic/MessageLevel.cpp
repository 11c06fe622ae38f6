// Message levels and their copy-data word.
#include "ipc/logic/MessageLevel.h"

namespace {

constexpr DWORD kMessageTag = 0xAAAA0000;

// True when text begins with prefix, ASCII letters compared without case.
bool beginsWithNoCase(const char* text, const char* prefix)
{
    for (; *prefix; ++text, ++prefix) {
        char a = *text >= 'a' && *text <= 'z' ? static_cast<char>(*text - 'a' + 'A') : *text;
        char b = *prefix >= 'a' && *prefix <= 'z' ? static_cast<char>(*prefix - 'a' + 'A') : *prefix;
        if (a != b)
            return false;
    }
    return true;
}

}  // namespace

int tqm::DisplayMessageLevel(const char* text, int level)
{
    if (level > 0 || !text)
        return level;
    // The blank belongs to the word: "Error: x" keeps its level.
    if (beginsWithNoCase(text, "Error ") || beginsWithNoCase(text, "Fatal "))
        return kMessageLevelError;
    if (beginsWithNoCase(text, "Warning"))
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

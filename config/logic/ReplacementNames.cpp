// Names and patience of file replacements.
#include "config/logic/ReplacementNames.h"

#include <stdio.h>
#include <string.h>

namespace tqm {
namespace {

const char kMark[] = ".~";
const char kEnd[] = ".tmp";

// Names compare as the file system compares them: ASCII letters without
// regard to case.
bool sameLetters(const char* a, const char* b, size_t count)
{
    for (size_t i = 0; i < count; ++i) {
        const char ca = (a[i] >= 'a' && a[i] <= 'z') ? static_cast<char>(a[i] - 32) : a[i];
        const char cb = (b[i] >= 'a' && b[i] <= 'z') ? static_cast<char>(b[i] - 32) : b[i];
        if (ca != cb)
            return false;
        if (ca == 0)
            return true;
    }
    return true;
}

bool isHexDigit(char ch) { return (ch >= '0' && ch <= '9') || (ch >= 'A' && ch <= 'F') || (ch >= 'a' && ch <= 'f'); }

// The hex digits at text, up to 8 of them; the position after them, or
// nullptr when there are none or too many.
const char* readHex(const char* text, unsigned long* pValue)
{
    const char* p = text;
    unsigned long value = 0;
    while (isHexDigit(*p)) {
        if (p - text == 8)
            return nullptr;
        const char ch = *p++;
        value = value * 16 + static_cast<unsigned long>(ch <= '9' ? ch - '0' : (ch | 0x20) - 'a' + 10);
    }
    if (p == text)
        return nullptr;
    *pValue = value;
    return p;
}

}  // namespace

std::string ReplacementTempName(const char* targetName, DWORD processId, unsigned serial)
{
    char suffix[32];
    snprintf(suffix, sizeof(suffix), "%s%lX-%X%s", kMark, static_cast<unsigned long>(processId), serial, kEnd);
    return std::string(targetName) + suffix;
}

bool ParseReplacementTempName(const char* fileName, const char* targetName, DWORD* pProcessId)
{
    const size_t nTarget = strlen(targetName);
    if (strlen(fileName) < nTarget + 2 || !sameLetters(fileName, targetName, nTarget) ||
        strncmp(fileName + nTarget, kMark, 2) != 0)
        return false;
    unsigned long processId = 0;
    unsigned long serial = 0;
    const char* p = readHex(fileName + nTarget + 2, &processId);
    if (!p || *p != '-' || !(p = readHex(p + 1, &serial)) || strlen(p) != 4 || !sameLetters(p, kEnd, 4))
        return false;
    *pProcessId = static_cast<DWORD>(processId);
    return true;
}

DWORD ReplaceRetryDelayMs(int attempt)
{
    // 1, 2, 4, 8, 16, then 32 ms: 15 tries, 479 ms in all.
    if (attempt < 1 || attempt > 15)
        return 0;
    return attempt <= 5 ? 1u << (attempt - 1) : 32u;
}

}  // namespace tqm

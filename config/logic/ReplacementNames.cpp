// Names and patience of file replacements.
#include "config/logic/ReplacementNames.h"

#include "config/logic/AsciiCase.h"

#include <stdio.h>
#include <string.h>

namespace tqm {
namespace {

const char kMark[] = ".~";
const char kEnd[] = ".tmp";

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
    if (strlen(fileName) < nTarget + 2 || !StartsWithNoCase(fileName, targetName) ||
        strncmp(fileName + nTarget, kMark, 2) != 0)
        return false;
    unsigned long processId = 0;
    unsigned long serial = 0;
    const char* p = readHex(fileName + nTarget + 2, &processId);
    if (!p || *p != '-' || !(p = readHex(p + 1, &serial)) || !EqualNoCase(p, kEnd))
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

// Library version texts.
#include "libcatalog/logic/LibraryVersion.h"

#include "config/logic/Blanks.h"

#include <string.h>

namespace tqm {
namespace {

bool isDigit(char ch) { return ch >= '0' && ch <= '9'; }

// The decimal number at *p, moving p past its digits; saturates far above 999.
uint32_t readDecimal(const char*& p)
{
    uint32_t value = 0;
    for (; isDigit(*p); ++p) {
        if (value < 100000000u)
            value = value * 10 + static_cast<uint32_t>(*p - '0');
    }
    return value;
}

// Numbers above 999 become 999 and make the text malformed.
uint32_t limitPart(uint32_t part, bool& wellFormed)
{
    if (part <= 999)
        return part;
    wellFormed = false;
    return 999;
}

}  // namespace

bool ParseLibraryVersion(const char* text, uint32_t* value)
{
    *value = 0;
    if (!text || !*text)
        return false;

    if (isDigit(text[0]) && !strchr(text, '.')) {
        if (strlen(text) != 9)
            return false;
        const char* p = text;
        *value = readDecimal(p);
        return *p == '\0';
    }

    const char* p = text;
    while (*p && !isDigit(*p))
        ++p;
    if (!*p)
        return false;
    while (IsRuntimeSpace(static_cast<unsigned char>(*p)))
        ++p;

    bool wellFormed = true;
    uint32_t major = readDecimal(p);
    uint32_t minor = 0;
    uint32_t build = 0;
    if (*p == '.') {
        ++p;
        minor = readDecimal(p);
        if (*p == '.') {
            ++p;
            build = readDecimal(p);
            if (*p)
                wellFormed = false;
        } else if (*p) {
            wellFormed = false;
        }
    } else {
        wellFormed = false;
    }
    major = limitPart(major, wellFormed);
    minor = limitPart(minor, wellFormed);
    build = limitPart(build, wellFormed);
    *value = major * 1000000u + minor * 1000u + build;
    return wellFormed;
}

}  // namespace tqm

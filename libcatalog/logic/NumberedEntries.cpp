// Counts and numbered entry names.
#include "libcatalog/logic/NumberedEntries.h"

namespace tqm {

uint32_t ParseCount(const char* text)
{
    if (!text)
        return 0;
    uint64_t value = 0;
    for (; *text >= '0' && *text <= '9'; ++text) {
        value = value * 10 + static_cast<uint64_t>(*text - '0');
        if (value > UINT32_MAX)
            return UINT32_MAX;
    }
    return static_cast<uint32_t>(value);
}

bool ParseNumberedName(const char* name, const char* prefix, const ini::NameFold& fold, uint32_t* number)
{
    for (; *prefix; ++name, ++prefix) {
        if (!*name || fold(*name) != fold(*prefix))
            return false;
    }
    if (*name < '0' || *name > '9' || (name[0] == '0' && name[1] != '\0'))
        return false;
    uint64_t value = 0;
    for (; *name; ++name) {
        if (*name < '0' || *name > '9')
            return false;
        value = value * 10 + static_cast<uint64_t>(*name - '0');
        if (value > UINT32_MAX)
            return false;
    }
    *number = static_cast<uint32_t>(value);
    return true;
}

}  // namespace tqm

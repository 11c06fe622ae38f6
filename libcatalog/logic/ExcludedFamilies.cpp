// The excluded family names: one table, the only place they are written.
#include "libcatalog/logic/ExcludedFamilies.h"

#include "config/logic/IniNames.h"

namespace tqm {
namespace {

// The in-house families of Tarn-Holmvik's own libraries.
const char* const kExcludedFamilyNames[] = {"THSYSTEM", "THBASIC", "THCOMM", "THMOTION", "THIOBUS", "THDIAG"};

}  // namespace

bool IsExcludedFamilyName(const char* name)
{
    if (!name)
        return false;
    const ini::NameFold ascii;
    for (const char* excluded : kExcludedFamilyNames) {
        if (ascii.Equal(name, excluded))
            return true;
    }
    return false;
}

}  // namespace tqm

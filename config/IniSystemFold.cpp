// The system code page's case folding for INI names.
#include "config/IniSystemFold.h"

#include <windows.h>

namespace tqm {
namespace ini {
namespace {

NameFold makeSystemFold()
{
    unsigned char upper[256];
    for (int i = 0; i < 256; ++i)
        upper[i] = static_cast<unsigned char>(i);
    // All bytes but NUL in one call; CharUpperBuffA works in place.
    CharUpperBuffA(reinterpret_cast<char*>(upper + 1), 255);
    // A byte that folded onto NUL would end a name early: keep such a byte as it is.
    for (int i = 1; i < 256; ++i) {
        if (upper[i] == 0)
            upper[i] = static_cast<unsigned char>(i);
    }
    return NameFold(upper);
}

}  // namespace

const NameFold& SystemNameFold()
{
    static const NameFold fold = makeSystemFold();
    return fold;
}

}  // namespace ini
}  // namespace tqm

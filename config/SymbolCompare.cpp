// The case-folding table, TQMToUpper and TQMSymCmp.
#include "config/SymbolCompare.h"

#include "config/logic/SymbolOrder.h"

namespace {

// Filled once while the library is loaded (a static object of the DLL, built
// before DllMain returns) and only read afterwards, so it needs no lock.
struct FoldTable
{
    unsigned char map[256];

    FoldTable()
    {
        for (int i = 0; i < 256; ++i)
            map[i] = static_cast<unsigned char>(i);
        // Entry 255 is 0: deliberate. It terminates the text handed to the
        // system below, and makes byte 255 an end of text in TQMSymCmp.
        map[255] = 0;
        // Entries 1 to 254 as one text, upper-cased by the system.
        ::CharUpperA(reinterpret_cast<char*>(map + 1));
    }
};

const FoldTable g_fold;

}  // namespace

char WINAPI TQMToUpper(unsigned char c) { return static_cast<char>(g_fold.map[c]); }

int WINAPI TQMSymCmp(const char* a, const char* b) { return tqm::CompareSymbols(a, b, g_fold.map); }

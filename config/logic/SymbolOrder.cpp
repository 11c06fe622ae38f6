// Symbol comparison.
#include "config/logic/SymbolOrder.h"

#include <limits.h>
#include <stdint.h>

namespace tqm {
namespace {

bool isDigit(unsigned char c) { return c >= '0' && c <= '9'; }

// Reads a run of digits as an unsigned 32-bit number (wrapping, as the
// suite's programs always have) and moves p past it.
uint32_t readNumber(const unsigned char*& p)
{
    uint32_t n = 0;
    while (isDigit(*p))
        n = n * 10u + static_cast<uint32_t>(*p++ - '0');
    return n;
}

// The difference of two numbers where it fits an int, else the int nearest
// to it, so that its sign always follows the numbers: callers sort with the
// result, and a wrapped difference would put "0" both before and after
// "2147483648".
int numberDifference(uint32_t a, uint32_t b)
{
    int64_t d = int64_t(a) - int64_t(b);
    if (d > INT_MAX)
        return INT_MAX;
    if (d < INT_MIN)
        return INT_MIN;
    return static_cast<int>(d);
}

}  // namespace

int CompareSymbols(const char* a, const char* b, const unsigned char* fold)
{
    auto pa = reinterpret_cast<const unsigned char*>(a ? a : "");
    auto pb = reinterpret_cast<const unsigned char*>(b ? b : "");
    for (;;) {
        unsigned char ca = fold[*pa];
        unsigned char cb = fold[*pb];
        if (isDigit(ca) && isDigit(cb)) {
            uint32_t na = readNumber(pa);
            uint32_t nb = readNumber(pb);
            if (na != nb)
                return numberDifference(na, nb);
            continue;
        }
        // "_" sorts before everything but the end of the text.
        if (ca == '_')
            ca = 1;
        if (cb == '_')
            cb = 1;
        // Bytes compare unsigned, so characters above 127 sort after ASCII.
        if (ca != cb || !ca || !cb)
            return static_cast<int>(ca) - static_cast<int>(cb);
        ++pa;
        ++pb;
    }
}

}  // namespace tqm

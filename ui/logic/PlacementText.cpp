// Reading placement entries and fitting rectangles onto the virtual screen.
#include "ui/logic/PlacementText.h"

#include <ctype.h>
#include <limits.h>

#include <algorithm>

namespace tqm {
namespace {

int clampToInt(long long value) { return static_cast<int>(std::clamp<long long>(value, INT_MIN, INT_MAX)); }

// One number at *pp, after optional blanks; advances past it. False when no
// digit is there.
bool scanInteger(const char*& p, int& value)
{
    const char* q = p;
    while (isspace(static_cast<unsigned char>(*q)))
        ++q;
    const bool bNegative = *q == '-';
    if (*q == '-' || *q == '+')
        ++q;
    if (!isdigit(static_cast<unsigned char>(*q)))
        return false;
    long long magnitude = 0;
    for (; isdigit(static_cast<unsigned char>(*q)); ++q) {
        // Held at a bound past the int range; a saved entry with a huge value
        // still reads as "very far away".
        magnitude = std::min<long long>(magnitude * 10 + (*q - '0'), 1LL << 40);
    }
    value = clampToInt(bNegative ? -magnitude : magnitude);
    p = q;
    return true;
}

}  // namespace

int ScanCommaIntegers(const char* text, int* values, int nMax)
{
    if (!text)
        return 0;
    const char* p = text;
    int nRead = 0;
    while (nRead < nMax) {
        if (nRead > 0) {
            if (*p != ',')
                break;
            ++p;
        }
        if (!scanInteger(p, values[nRead]))
            break;
        ++nRead;
    }
    return nRead;
}

RECT FitOntoVirtualScreen(const RECT& rect, const RECT& virtualScreen)
{
    // In 64 bits: the steps subtract coordinates that may lie anywhere.
    long long left = rect.left, top = rect.top, right = rect.right, bottom = rect.bottom;
    const long long vx = virtualScreen.left, vy = virtualScreen.top;
    const long long screenRight = virtualScreen.right, screenBottom = virtualScreen.bottom;

    // Steps 1 and 2 keep the size only for an origin at 0 (a monitor left of
    // or above the primary one grows the rectangle). This is deliberate: the
    // suite's stored placements were made with this rule, and callers use
    // only the top-left corner.
    if (top < vy) {
        bottom -= top;
        top = vy;
    }
    if (left < vx) {
        right -= left;
        left = vx;
    }
    if (left > screenRight)
        left = vx;
    if (top > screenBottom)
        top = vy;
    if (right > screenRight) {
        left = std::max(left + screenRight - right, vx);
        right = screenRight;
    }
    if (bottom > screenBottom) {
        top = std::max(top + screenBottom - bottom, vy);
        bottom = screenBottom;
    }
    return RECT{clampToInt(left), clampToInt(top), clampToInt(right), clampToInt(bottom)};
}

RECT RectAt(int x, int y, int cx, int cy)
{
    return RECT{x, y, clampToInt(static_cast<long long>(x) + cx), clampToInt(static_cast<long long>(y) + cy)};
}

int SavedExtent(int nLow, int nHigh, int nMinimum)
{
    return clampToInt(std::max<long long>(static_cast<long long>(nHigh) - nLow, nMinimum));
}

}  // namespace tqm

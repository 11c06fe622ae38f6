// Window placement entries: whatever numbers an entry yields, the fitted
// rectangle's top-left corner lies on the virtual screen (a window never
// reopens out of reach), and the restored size is at least the minimum.
// The first bytes choose the virtual screen, the rest is the entry.
#include "FuzzSupport.h"
#include "ui/logic/PlacementText.h"

#include <limits.h>
#include <string.h>

#include <string>

namespace {

// A screen origin and size from two bytes each: origins left of and above
// the primary monitor included.
LONG coordinate(const uint8_t* p) { return static_cast<LONG>((p[0] << 8 | p[1]) - 32768); }
LONG extent(const uint8_t* p) { return static_cast<LONG>(p[0] << 8 | p[1]) + 1; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 8)
        return 0;
    const LONG vx = coordinate(data), vy = coordinate(data + 2);
    const RECT screen{vx, vy, vx + extent(data + 4), vy + extent(data + 6)};
    const std::string entry(reinterpret_cast<const char*>(data + 8), size - 8);

    int v[5] = {0, 0, 0, 0, 0};
    const int n = tqm::ScanCommaIntegers(entry.c_str(), v, 5);
    TQM_FUZZ_CHECK(n >= 0 && n <= 5);
    if (n < 5)
        return 0;
    const RECT fitted = tqm::FitOntoVirtualScreen(RECT{v[1], v[2], v[3], v[4]}, screen);
    TQM_FUZZ_CHECK(fitted.left >= screen.left && fitted.left <= screen.right);
    TQM_FUZZ_CHECK(fitted.top >= screen.top && fitted.top <= screen.bottom);
    TQM_FUZZ_CHECK(tqm::SavedExtent(v[1], v[3], 50) >= 50 && tqm::SavedExtent(v[2], v[4], 50) >= 50);
    const RECT at = tqm::RectAt(fitted.left, fitted.top, v[3], v[4]);
    TQM_FUZZ_CHECK(at.left == fitted.left && at.top == fitted.top);
    return 0;
}

void TqmFuzzSeeds(tqmfuzz::Seeds& seeds)
{
    const std::string primary("\x80\x00\x80\x00\x03\xff\x02\xff", 8);  // 0,0 1024x768
    const std::string leftMonitor("\x7b\x00\x80\x00\x08\xff\x03\xff", 8);  // -1280,0 2304x1024
    seeds.Add("plain", primary + "0,120,80,720,480");
    seeds.Add("maximised", primary + "1,10,10,810,610");
    seeds.Add("off-screen", leftMonitor + "0,5000,-900,5600,-500");
    seeds.Add("huge", primary + "0, 99999999999,-99999999999,+7,8 trailing");
}

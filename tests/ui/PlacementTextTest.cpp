// Reading placement entries and pulling rectangles onto the virtual screen.
#include "ui/logic/PlacementText.h"

#include <gtest/gtest.h>

#include <limits.h>

namespace {

TEST(PlacementText, ScansLikeCommaSeparatedDecimals)
{
    struct Case
    {
        const char* text;
        int nExpected;
        int values[5];
    };
    const Case cases[] = {
        {"1,-10,-20,810,610,99", 5, {1, -10, -20, 810, 610}},
        {" 1, +2,\t3,4,5x", 5, {1, 2, 3, 4, 5}},
        {"1 ,2,3,4,5", 1, {1}},  // no blank before a comma
        {"1,2,x,4,5", 2, {1, 2}},
        {"left,top", 0, {}},
        {"-", 0, {}},
        {"99999999999999999999,-99999999999,0,0,0", 5, {INT_MAX, INT_MIN, 0, 0, 0}},
    };
    for (const Case& c : cases) {
        int values[5] = {-7, -7, -7, -7, -7};
        ASSERT_EQ(c.nExpected, tqm::ScanCommaIntegers(c.text, values, 5)) << c.text;
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(i < c.nExpected ? c.values[i] : -7, values[i]) << c.text << " #" << i;
    }
    EXPECT_EQ(0, tqm::ScanCommaIntegers(nullptr, nullptr, 2));
}

TEST(PlacementText, FitsOntoTheVirtualScreenInTheSuitesOrder)
{
    const RECT primary{0, 0, 1024, 768};
    const RECT leftMonitor{-1280, 0, 1024, 1024};  // a second monitor left of the primary one
    struct Case
    {
        RECT screen, in, out;
    };
    const Case cases[] = {
        {primary, {5000, 100, 5800, 700}, {0, 100, 1024, 700}},   // wholly right: to the left edge
        {primary, {100, 3000, 300, 3200}, {100, 0, 300, 768}},    // wholly below
        {primary, {-300, -200, 100, 100}, {0, 0, 400, 300}},      // above and left: size kept
        {primary, {900, 700, 1100, 800}, {824, 668, 1024, 768}},  // over the corner: pushed back
        // Left of a screen whose origin is not 0: it grows by the origin's
        // distance (the suite's rule); beyond the right it goes to the far left.
        {leftMonitor, {-1500, 50, -1300, 250}, {-1280, 50, 200, 250}},
        {leftMonitor, {1100, 50, 1300, 250}, {-1280, 50, 1024, 250}},
        {{0, -600, 800, 600}, {10, -700, 210, -500}, {10, -600, 210, 200}},
        {primary, {INT_MIN, INT_MIN, INT_MAX, INT_MAX}, {0, 0, 1024, 768}},
    };
    for (const Case& c : cases) {
        const RECT r = tqm::FitOntoVirtualScreen(c.in, c.screen);
        EXPECT_TRUE(EqualRect(&r, &c.out))
            << c.in.left << "," << c.in.top << " -> " << r.left << "," << r.top << "," << r.right << "," << r.bottom;
    }
    EXPECT_EQ(50, tqm::SavedExtent(100, 120, 50));
    EXPECT_EQ(INT_MAX, tqm::SavedExtent(INT_MIN, INT_MAX, 50));
    EXPECT_EQ(INT_MAX, tqm::RectAt(INT_MAX - 5, 0, 100, 20).right);
}

}  // namespace

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
        {"0,100,100,120,110", 5, {0, 100, 100, 120, 110}},
        {"1,-10,-20,810,610,99", 5, {1, -10, -20, 810, 610}},
        {" 1, +2,\t3,4,5", 5, {1, 2, 3, 4, 5}},
        {"1,2,3,4", 4, {1, 2, 3, 4}},
        {"1 ,2,3,4,5", 1, {1}},          // no blank before a comma
        {"1,2,x,4,5", 2, {1, 2}},
        {"1,2,3,4,5x", 5, {1, 2, 3, 4, 5}},
        {"left,top", 0, {}},
        {"", 0, {}},
        {"-", 0, {}},
        {"99999999999999999999,-99999999999,0,0,0", 5, {INT_MAX, INT_MIN, 0, 0, 0}},
    };
    for (const Case& c : cases) {
        int values[5] = {-7, -7, -7, -7, -7};
        ASSERT_EQ(c.nExpected, tqm::ScanCommaIntegers(c.text, values, 5)) << c.text;
        for (int i = 0; i < c.nExpected; ++i)
            EXPECT_EQ(c.values[i], values[i]) << c.text << " #" << i;
        for (int i = c.nExpected; i < 5; ++i)
            EXPECT_EQ(-7, values[i]) << c.text << ": wrote past the numbers read";
    }
    int two[2];
    EXPECT_EQ(2, tqm::ScanCommaIntegers("1,2,3", two, 2));
    EXPECT_EQ(0, tqm::ScanCommaIntegers(nullptr, two, 2));
}

TEST(PlacementText, FitsOntoTheVirtualScreenInTheSuitesOrder)
{
    const RECT primary{0, 0, 1024, 768};
    // A second monitor left of the primary one: the origin is negative.
    const RECT twoMonitors{-1280, 0, 1024, 1024};
    struct Case
    {
        RECT screen;
        RECT in;
        RECT out;
    };
    const Case cases[] = {
        {primary, {100, 100, 120, 110}, {100, 100, 120, 110}},
        {primary, {5000, 100, 5800, 700}, {0, 100, 1024, 700}},   // wholly right: to the left edge
        {primary, {100, 3000, 300, 3200}, {100, 0, 300, 768}},    // wholly below
        {primary, {-300, -200, 100, 100}, {0, 0, 400, 300}},      // above and left: size kept
        {primary, {900, 700, 1100, 800}, {824, 668, 1024, 768}},  // over the corner: pushed back
        {primary, {-10, 0, 2000, 100}, {0, 0, 1024, 100}},        // wider than the screen
        // Left of the virtual screen: grows by the origin's distance (the suite's rule).
        {twoMonitors, {-1500, 50, -1300, 250}, {-1280, 50, 200, 250}},
        {twoMonitors, {-1000, 50, -800, 250}, {-1000, 50, -800, 250}},
        {twoMonitors, {1100, 50, 1300, 250}, {-1280, 50, 1024, 250}},  // beyond the right: to the far left
        {{0, -600, 800, 600}, {10, -700, 210, -500}, {10, -600, 210, 200}},  // a monitor above
        {primary, {INT_MIN, INT_MIN, INT_MAX, INT_MAX}, {0, 0, 1024, 768}},
        {primary, {INT_MAX - 10, 0, INT_MAX, 10}, {0, 0, 1024, 10}},
    };
    for (const Case& c : cases) {
        const RECT r = tqm::FitOntoVirtualScreen(c.in, c.screen);
        EXPECT_EQ(c.out.left, r.left) << c.in.left << "," << c.in.top;
        EXPECT_EQ(c.out.top, r.top) << c.in.left << "," << c.in.top;
        EXPECT_EQ(c.out.right, r.right) << c.in.left << "," << c.in.top;
        EXPECT_EQ(c.out.bottom, r.bottom) << c.in.left << "," << c.in.top;
    }
}

TEST(PlacementText, SavedExtentsKeepTheMinimumWithoutOverflow)
{
    EXPECT_EQ(50, tqm::SavedExtent(100, 120, 50));
    EXPECT_EQ(800, tqm::SavedExtent(10, 810, 50));
    EXPECT_EQ(50, tqm::SavedExtent(300, 100, 50));
    EXPECT_EQ(INT_MAX, tqm::SavedExtent(INT_MIN, INT_MAX, 50));
    const RECT edge = tqm::RectAt(INT_MAX - 5, -10, 100, 20);
    EXPECT_EQ(INT_MAX, edge.right);
    EXPECT_EQ(10, edge.bottom);
}

}  // namespace

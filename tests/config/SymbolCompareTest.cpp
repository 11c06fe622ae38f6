#include "config/SymbolCompare.h"

#include <gtest/gtest.h>

#include <limits.h>

namespace {

int sign(int v) { return (v > 0) - (v < 0); }

TEST(SymbolCompare, FoldingTableFollowsTheSystemAndEndsAt255)
{
    EXPECT_EQ(0, TQMToUpper(0));
    EXPECT_EQ(0, TQMToUpper(255));  // deliberate: byte 255 ends a text
    for (int c = 1; c < 255; ++c) {
        char one[2] = {static_cast<char>(c), '\0'};
        CharUpperA(one);
        EXPECT_EQ(one[0], TQMToUpper(static_cast<unsigned char>(c))) << c;
    }
}

TEST(SymbolCompare, OrdersNamesCaseFoldedNumbersByValueUnderscoreFirst)
{
    struct Case { const char* a; const char* b; int expectedSign; } cases[] = {
        {"abc", "ABC", 0},   {"R2", "R10", -1},  {"a1b", "a01b", 0},   {"X9", "X10", -1},    {"A_B", "AB", -1},
        {"A_", "A", 1},      {"_", "A", -1},     {"a", "ab", -1},      {"", "", 0},          {"R10b", "R10a", 1},
        {"V2.10", "V2.9", 1}, {"x007", "x7", 0}, {"a\xFF" "b", "a\xFF" "c", 0},  // 255 ends the text
        {"z", "\xC9", -1},   // bytes above 127 sort after ASCII
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.expectedSign, sign(TQMSymCmp(c.a, c.b))) << c.a << " vs " << c.b;
        EXPECT_EQ(-c.expectedSign, sign(TQMSymCmp(c.b, c.a))) << c.b << " vs " << c.a;
    }
    EXPECT_EQ(-8, TQMSymCmp("R2", "R10"));  // numbers differ by their difference
}

// A caller sorts with it, so the sign must follow the numbers even where
// their difference does not fit an int: then the result saturates.
TEST(SymbolCompare, NumbersFarApartStillOrderByValue)
{
    struct Case { const char* a; const char* b; int expected; } cases[] = {
        {"0", "2147483648", INT_MIN},      {"2147483648", "0", INT_MAX},
        {"x4294967295", "x0", INT_MAX},    {"1", "2147483648", -2147483647},
        {"2147483647", "0", 2147483647},   {"0", "2147483647", -2147483647},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.expected, TQMSymCmp(c.a, c.b)) << c.a << " vs " << c.b;
}

}  // namespace

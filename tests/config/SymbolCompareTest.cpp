#include "config/SymbolCompare.h"
#include "config/logic/SymbolOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

int sign(int v) { return (v > 0) - (v < 0); }

TEST(SymbolCompare, FoldingTableFollowsTheSystemAndEndsAt255)
{
    EXPECT_EQ('A', TQMToUpper('a'));
    EXPECT_EQ('Z', TQMToUpper('z'));
    EXPECT_EQ('1', TQMToUpper('1'));
    EXPECT_EQ('_', TQMToUpper('_'));
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
    struct Case
    {
        const char* a;
        const char* b;
        int expected;  // sign
    } cases[] = {
        {"abc", "ABC", 0},    {"R2", "R10", -1},     {"a1b", "a01b", 0},  {"X9", "X10", -1},
        {"A_B", "AB", -1},    {"A_", "A", 1},        {"_", "A", -1},      {"a", "ab", -1},
        {"", "", 0},          {"", "a", -1},         {"R10b", "R10a", 1}, {"V2.10", "V2.9", 1},
        {"a\xFF" "b", "a\xFF" "c", 0},  // 255 folds to the end of the text
        {"x007", "x7", 0},    {"4294967295", "4294967295", 0},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.expected, sign(TQMSymCmp(c.a, c.b))) << c.a << " vs " << c.b;
        EXPECT_EQ(-c.expected, sign(TQMSymCmp(c.b, c.a))) << c.b << " vs " << c.a;
    }
}

TEST(SymbolCompare, NumbersCompareByTheirDifference)
{
    EXPECT_EQ(-8, TQMSymCmp("R2", "R10"));
    EXPECT_EQ(990, TQMSymCmp("n1000", "n10"));
}

TEST(SymbolCompare, SortsTheWayAProgramListsItsBlocks)
{
    std::vector<std::string> names = {"Valve10", "valve9", "Valve_B", "ValveA", "pump", "Valve9a"};
    std::sort(names.begin(), names.end(),
              [](const std::string& a, const std::string& b) { return TQMSymCmp(a.c_str(), b.c_str()) < 0; });
    EXPECT_EQ((std::vector<std::string>{"pump", "Valve_B", "valve9", "Valve9a", "Valve10", "ValveA"}), names);
}

TEST(SymbolCompare, PureOrderUsesTheGivenTable)
{
    unsigned char identity[256];
    for (int i = 0; i < 256; ++i)
        identity[i] = static_cast<unsigned char>(i);
    EXPECT_GT(tqm::CompareSymbols("abc", "ABC", identity), 0);  // no folding without a folding table
    EXPECT_LT(tqm::CompareSymbols("a\xE9", "a\xFF", identity), 0);
    EXPECT_GT(tqm::CompareSymbols("\xE9", "z", identity), 0);  // bytes above 127 sort after ASCII
    EXPECT_EQ(0, tqm::CompareSymbols(nullptr, "", identity));
}

}  // namespace

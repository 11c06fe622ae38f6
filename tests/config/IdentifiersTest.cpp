#include "config/Identifiers.h"

#include <gtest/gtest.h>

namespace {

const IDTABLE kDefaultListed[] = {{"A", 1}, {"B", 2}, {nullptr, 2}};
const IDTABLE kDefaultUnlisted[] = {{"A", 1}, {"B", 2}, {nullptr, 9}};
const IDTABLE kRepeated[] = {{"First", 5}, {"Second", 5}, {"Third", 6}, {nullptr, 6}};
const IDTABLE kEmpty[] = {{nullptr, 4}};

TEST(Identifiers, NamesToIdsFallBackOnTheDefault)
{
    EXPECT_EQ(1, StringToID(kDefaultListed, "A"));
    EXPECT_EQ(2, StringToID(kDefaultListed, "B"));
    EXPECT_EQ(2, StringToID(kDefaultListed, "Z"));
    EXPECT_EQ(2, StringToID(kDefaultListed, "a"));  // case-sensitive
    EXPECT_EQ(2, StringToID(kDefaultListed, ""));
    EXPECT_EQ(2, StringToID(kDefaultListed, nullptr));
    EXPECT_EQ(9, StringToID(kDefaultUnlisted, "A "));
    EXPECT_EQ(4, StringToID(kEmpty, "A"));
}

TEST(Identifiers, IdsToNamesFallBackOnTheDefaultsName)
{
    EXPECT_STREQ("A", IDToString(kDefaultListed, 1));
    EXPECT_STREQ("B", IDToString(kDefaultListed, 2));
    EXPECT_STREQ("B", IDToString(kDefaultListed, 7));
    EXPECT_STREQ("B", DefaultString(kDefaultListed));
    EXPECT_EQ(2, DefaultID(kDefaultListed));

    // A default that no pair holds has no name.
    EXPECT_STREQ("A", IDToString(kDefaultUnlisted, 1));
    EXPECT_EQ(nullptr, IDToString(kDefaultUnlisted, 7));
    EXPECT_EQ(nullptr, IDToString(kDefaultUnlisted, 9));
    EXPECT_EQ(nullptr, DefaultString(kDefaultUnlisted));
    EXPECT_EQ(9, DefaultID(kDefaultUnlisted));

    EXPECT_EQ(nullptr, DefaultString(kEmpty));
    EXPECT_EQ(nullptr, IDToString(kEmpty, 1));
}

TEST(Identifiers, FirstPairWinsForARepeatedId)
{
    EXPECT_STREQ("First", IDToString(kRepeated, 5));
    EXPECT_EQ(5, StringToID(kRepeated, "Second"));
    EXPECT_STREQ("Third", IDToString(kRepeated, 0));
}

TEST(Identifiers, NoTableMeansNothingFound)
{
    EXPECT_EQ(0, StringToID(nullptr, "A"));
    EXPECT_EQ(nullptr, IDToString(nullptr, 1));
    EXPECT_EQ(0, DefaultID(nullptr));
    EXPECT_EQ(nullptr, DefaultString(nullptr));
}

}  // namespace

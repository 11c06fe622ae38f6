#include "config/Identifiers.h"

#include <gtest/gtest.h>

namespace {

const IDTABLE kDefaultListed[] = {{"A", 1}, {"B", 2}, {nullptr, 2}};
const IDTABLE kDefaultUnlisted[] = {{"A", 1}, {"B", 2}, {nullptr, 9}};
const IDTABLE kRepeated[] = {{"First", 5}, {"Second", 5}, {nullptr, 5}};

TEST(Identifiers, UnknownsFallBackOnTheDefault)
{
    EXPECT_EQ(1, StringToID(kDefaultListed, "A"));
    EXPECT_EQ(2, StringToID(kDefaultListed, "Z"));
    EXPECT_EQ(2, StringToID(kDefaultListed, "a"));  // case-sensitive
    EXPECT_STREQ("A", IDToString(kDefaultListed, 1));
    EXPECT_STREQ("B", IDToString(kDefaultListed, 7));
    EXPECT_STREQ("B", DefaultString(kDefaultListed));
    EXPECT_EQ(2, DefaultID(kDefaultListed));
    EXPECT_STREQ("First", IDToString(kRepeated, 5));  // the first pair wins

    // A default that no pair holds has no name.
    EXPECT_EQ(9, StringToID(kDefaultUnlisted, "Z"));
    EXPECT_EQ(9, DefaultID(kDefaultUnlisted));
    EXPECT_EQ(nullptr, IDToString(kDefaultUnlisted, 9));
    EXPECT_EQ(nullptr, DefaultString(kDefaultUnlisted));
    EXPECT_EQ(nullptr, IDToString(nullptr, 1));
    EXPECT_EQ(0, StringToID(nullptr, "A"));
}

}  // namespace

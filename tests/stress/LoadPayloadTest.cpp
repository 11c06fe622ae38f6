// The load test's texts: a whole text checks, and every kind of damage the
// load could do to one (a byte changed, a text cut short or run on, the
// pieces of two texts mixed) does not.
#include "tools/tqm/LoadPayload.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using tqmtool::CheckLoadText;
using tqmtool::LoadHead;
using tqmtool::MakeLoadText;

LoadHead headOf(char kind, unsigned long sender, unsigned long seq, unsigned long extra = 0)
{
    LoadHead head;
    head.kind = kind;
    head.sender = sender;
    head.seq = seq;
    head.extra = extra;
    return head;
}

TEST(LoadPayload, AWholeTextChecksWithItsHead)
{
    for (size_t size : {0u, 20u, 255u, 6629u, 102400u}) {
        const std::string text = MakeLoadText(headOf('Q', 8, 1000, 4096), size);
        EXPECT_EQ(std::max<size_t>(size, text.size()), text.size());
        LoadHead head;
        ASSERT_TRUE(CheckLoadText(text.data(), text.size(), &head)) << size;
        EXPECT_EQ('Q', head.kind);
        EXPECT_EQ(8u, head.sender);
        EXPECT_EQ(1000u, head.seq);
        EXPECT_EQ(4096u, head.extra);
    }
}

TEST(LoadPayload, DamageOfEveryKindIsFound)
{
    const std::string text = MakeLoadText(headOf('I', 3, 17), 600);
    LoadHead head;
    for (size_t at : {0u, 2u, 5u, 12u, 300u, 599u}) {
        std::string changed = text;
        changed[at] = changed[at] == 'x' ? 'y' : 'x';
        EXPECT_FALSE(CheckLoadText(changed.data(), changed.size(), &head)) << "byte " << at;
    }
    EXPECT_FALSE(CheckLoadText(text.data(), text.size() - 1, &head));
    EXPECT_FALSE(CheckLoadText((text + "a").data(), text.size() + 1, &head));
    // The head of one text before the body of another of the same size.
    const std::string other = MakeLoadText(headOf('I', 3, 18), 600);
    const size_t body = text.find(':') + 1;
    EXPECT_FALSE(CheckLoadText((text.substr(0, body) + other.substr(body)).data(), 600, &head));
    EXPECT_FALSE(CheckLoadText("", 0, &head));
    EXPECT_FALSE(CheckLoadText("X 1 2 3 00000000:", 17, &head));
}

}  // namespace

#include "config/Tokenizer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// All tokens of text as the documented loop hands them out.
std::vector<std::string> tokens(const char* text, char sep)
{
    CTQMTokenizer tok;
    std::vector<std::string> out{tok.GetFirstToken(text, sep)};
    while (tok.HasMoreTokens())
        out.push_back(tok.GetNextToken());
    EXPECT_STREQ("", tok.GetNextToken());
    EXPECT_STREQ("", tok.GetRest());
    return out;
}

using Tokens = std::vector<std::string>;

TEST(Tokenizer, SplitsAtEverySeparatorWithoutTrimming)
{
    struct Case
    {
        const char* text;
        char sep;
        Tokens expected;
    } cases[] = {
        {"a,,b", ',', {"a", "", "b"}},
        {"a,b,", ',', {"a", "b", ""}},
        {",", ',', {"", ""}},
        {"", ',', {""}},
        {nullptr, ',', {""}},
        {" a , 'b,c' ", ',', {" a ", " 'b", "c' "}},  // no quoting, no trimming
        {"x;y", ';', {"x", "y"}},
        {"x;y", ',', {"x;y"}},
        {"x\0y", '\0', {"x"}},  // a NUL separator never splits (and never reads past the text)
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.expected, tokens(c.text, c.sep)) << (c.text ? c.text : "(null)");
}

TEST(Tokenizer, StartsEmptyAndRestShowsWhatIsLeft)
{
    CTQMTokenizer tok;
    EXPECT_EQ(0, tok.HasMoreTokens());
    EXPECT_STREQ("", tok.GetNextToken());
    EXPECT_STREQ("", tok.GetRest());

    EXPECT_STREQ("LibA", tok.GetFirstToken("LibA,LibB,LibC", ','));
    EXPECT_STREQ("LibB,LibC", tok.GetRest());
    EXPECT_STREQ("LibB", tok.GetNextToken());
    EXPECT_EQ(1, tok.HasMoreTokens());
    EXPECT_STREQ("LibC", tok.GetNextToken());
    EXPECT_EQ(0, tok.HasMoreTokens());
}

TEST(Tokenizer, KeepsItsOwnCopyOfTheText)
{
    char text[] = "a,b";
    CTQMTokenizer tok;
    const char* first = tok.GetFirstToken(text, ',');
    EXPECT_STREQ("a,b", text);  // the caller's text is not cut
    text[2] = 'X';              // nor read again
    EXPECT_STREQ("a", first);
    EXPECT_STREQ("b", tok.GetNextToken());
}

TEST(Tokenizer, CopyGoesOnFromTheSourcesPosition)
{
    CTQMTokenizer tok;
    tok.GetFirstToken("a,b,c", ',');
    CTQMTokenizer copy(tok);
    EXPECT_STREQ("b", copy.GetNextToken());
    EXPECT_STREQ("c", copy.GetNextToken());
    EXPECT_EQ(0, copy.HasMoreTokens());
}

}  // namespace

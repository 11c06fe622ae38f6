#include "config/Tokenizer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Tokens = std::vector<std::string>;

// All tokens of text as the documented loop hands them out.
Tokens tokens(const char* text, char sep)
{
    CTQMTokenizer tok;
    Tokens out{tok.GetFirstToken(text, sep)};
    while (tok.HasMoreTokens())
        out.push_back(tok.GetNextToken());
    EXPECT_STREQ("", tok.GetNextToken());
    EXPECT_STREQ("", tok.GetRest());
    return out;
}

TEST(Tokenizer, SplitsAtEverySeparatorWithoutQuotingOrTrimming)
{
    struct Case { const char* text; char sep; Tokens expected; } cases[] = {
        {"a,,b", ',', {"a", "", "b"}},
        {"a,b,", ',', {"a", "b", ""}},
        {"", ',', {""}},
        {nullptr, ',', {""}},
        {" a , 'b,c' ", ',', {" a ", " 'b", "c' "}},
        {"x;y", ';', {"x", "y"}},
        {"x\0y", '\0', {"x"}},  // a NUL separator never splits (nor reads past the text)
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.expected, tokens(c.text, c.sep)) << (c.text ? c.text : "(null)");
}

TEST(Tokenizer, RestAndCopiesGoOnFromTheCurrentPosition)
{
    CTQMTokenizer tok;
    EXPECT_EQ(0, tok.HasMoreTokens());
    EXPECT_STREQ("", tok.GetNextToken());

    char text[] = "LibA,LibB,LibC";
    EXPECT_STREQ("LibA", tok.GetFirstToken(text, ','));
    EXPECT_STREQ("LibA,LibB,LibC", text);  // the caller's text is not cut
    EXPECT_STREQ("LibB,LibC", tok.GetRest());
    CTQMTokenizer copy(tok);
    EXPECT_STREQ("LibB", copy.GetNextToken());
    EXPECT_STREQ("LibC", copy.GetNextToken());
    EXPECT_EQ(0, copy.HasMoreTokens());
}

}  // namespace

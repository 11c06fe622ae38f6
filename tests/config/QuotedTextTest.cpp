#include "config/QuotedText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Parts = std::vector<std::string>;

Parts toVector(const CStringArray& a)
{
    Parts out;
    for (int i = 0; i < a.GetSize(); ++i)
        out.push_back(a[i].GetString());
    return out;
}

TEST(QuotedText, FindSkipsQuotedRuns)
{
    struct Case { const char* text; char c; int start; int expected; } cases[] = {
        {"x 'a;b' ; y", ';', 0, 8},   {"x \"a;b\" ; y", ';', 0, 8},
        {"a;b", ';', -5, 1},          {"a 'b;c", ';', 0, -1},  // unterminated: the rest is hidden
        {"'it\"s';x", ';', 0, 6},     {"ab'c'd", '\'', 0, 2},  // the target test comes first
        {"'<';x", ';', 0, -1},        {"'< ';x", ';', 0, -1},  // a quote after "<" stays inside
        {"'<'';x", ';', 0, 4},        {"'a<b';x", ';', 0, 5},
        {"\"<'\";x", ';', 0, 4},      {"a;b", '\0', 0, -1},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.expected, TQMFindChar(c.text, c.c, c.start)) << c.text << " from " << c.start;
    EXPECT_EQ(-1, TQMFindChar(nullptr, ';', 0));
    EXPECT_EQ(4, TQMFindAnyChar("'a,'=b,c", ",=", 0));
}

TEST(QuotedText, SplitHonoursTheLimitAndKeepsQuotes)
{
    struct Case { const char* text; int maxSplits; Parts expected; } cases[] = {
        {"a,b,", -1, {"a", "b", ""}},  {"a,b,", 1, {"a", "b,"}},     {"a,b,", 0, {"a,b,"}},
        {"", -1, {""}},
        {"'a,b',\"c,d\", e ", -1, {"'a,b'", "\"c,d\"", " e "}},      {"'open,quote", -1, {"'open,quote"}},
    };
    for (const Case& c : cases) {
        CStringArray out;
        out.Add("left over");
        TQMSplitStringOnChar(out, c.text, ',', c.maxSplits);
        EXPECT_EQ(c.expected, toVector(out)) << c.text << " limit " << c.maxSplits;
        EXPECT_STREQ(c.text, TQMJoinArray(out, ","));  // and back
    }
    CStringArray out;
    TQMSplitStringOnChars(out, "a;b,'c;d',e", ",;", -1);
    EXPECT_EQ((Parts{"a", "b", "'c;d'", "e"}), toVector(out));
    TQMSplitStringOnChar(out, out[2], ';', -1);  // the text may be one of out's own elements
    EXPECT_EQ((Parts{"'c;d'"}), toVector(out));
}

TEST(QuotedText, SplitCommentTakesTheFirstSemicolonOutsideQuotes)
{
    struct Case { const char* line; const char* code; const char* comment; } cases[] = {
        {"  LD  x ; load x", "  LD  x ", " load x"}, {"a;b;c", "a", "b;c"}, {"MSG 'a;b' ;c", "MSG 'a;b' ", "c"},
        {"no comment", "no comment", ""},           {";only", "", "only"}, {"", "", ""},
        {nullptr, "", ""},
    };
    for (const Case& c : cases) {
        CString code = "old", comment = "old";
        TQMSplitComment(c.line, code, comment);
        EXPECT_STREQ(c.code, code) << (c.line ? c.line : "(null)");
        EXPECT_STREQ(c.comment, comment);
    }
}

}  // namespace

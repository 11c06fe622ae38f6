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

TEST(QuotedText, FindCharSkipsQuotedRuns)
{
    struct Case
    {
        const char* text;
        char c;
        int start;
        int expected;
    } cases[] = {
        {"x 'a;b' ; y", ';', 0, 8},
        {"x \"a;b\" ; y", ';', 0, 8},
        {"a;b", ';', 2, -1},
        {"a;b;c", ';', 2, 3},
        {"a;b", ';', -5, 1},               // a negative start counts from the beginning
        {"a;b", ';', 99, -1},              // beyond the end: nothing, and no reading past it
        {"a 'b;c", ';', 0, -1},            // an unterminated quote hides the rest
        {"'it\"s';x", ';', 0, 6},          // the other quote does not close a run
        {"ab'c'd", '\'', 0, 2},            // a search for a quote finds the first one
        {"'<';x", ';', 0, -1},             // a quote after "<" stays inside the run
        {"'< ';x", ';', 0, -1},            // blanks between do not count
        {"'<'';x", ';', 0, 4},             // the next quote closes it
        {"'a<b';x", ';', 0, 5},            // "<" not last: the quote closes
        {"\"<'\";x", ';', 0, 4},           // the other quote is text and ends the guard
        {"", ';', 0, -1},
        {"a;b", '\0', 0, -1},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.expected, TQMFindChar(c.text, c.c, c.start)) << c.text << " from " << c.start;
    EXPECT_EQ(-1, TQMFindChar(nullptr, ';', 0));
}

TEST(QuotedText, FindAnyCharTakesTheFirstOfTheSet)
{
    EXPECT_EQ(4, TQMFindAnyChar("'a,'=b,c", ",=", 0));
    EXPECT_EQ(6, TQMFindAnyChar("'a,'=b,c", ",=", 5));
    EXPECT_EQ(-1, TQMFindAnyChar("abc", "", 0));
    EXPECT_EQ(-1, TQMFindAnyChar("abc", nullptr, 0));
}

TEST(QuotedText, SplitStringOnCharHonoursTheLimit)
{
    struct Case
    {
        const char* text;
        int maxSplits;
        Parts expected;
    } cases[] = {
        {"a,b,", -1, {"a", "b", ""}},
        {"a,b,", 1, {"a", "b,"}},
        {"a,b,", 0, {"a,b,"}},
        {"a,b,", -100, {"a", "b", ""}},
        {"a,b,c", 2, {"a", "b", "c"}},
        {"", -1, {""}},
        {"", 0, {""}},
        {",", -1, {"", ""}},
        {"'a,b',\"c,d\", e ", -1, {"'a,b'", "\"c,d\"", " e "}},
        {"'open,quote", -1, {"'open,quote"}},
    };
    for (const Case& c : cases) {
        CStringArray out;
        out.Add("left over");
        TQMSplitStringOnChar(out, c.text, ',', c.maxSplits);
        EXPECT_EQ(c.expected, toVector(out)) << c.text << " limit " << c.maxSplits;
    }
}

TEST(QuotedText, SplitStringOnCharsAndJoinRoundTrip)
{
    CStringArray out;
    TQMSplitStringOnChars(out, "a;b,'c;d',e", ",;", -1);
    EXPECT_EQ((Parts{"a", "b", "'c;d'", "e"}), toVector(out));

    const char* lines[] = {"a,b,,'x,y',", "", ",", "just one"};
    for (const char* line : lines) {
        TQMSplitStringOnChar(out, line, ',', -1);
        EXPECT_STREQ(line, TQMJoinArray(out, ","));
    }
}

TEST(QuotedText, SplitMayTakeItsTextFromItsOwnOutput)
{
    CStringArray out;
    out.Add("a,b");
    TQMSplitStringOnChar(out, out[0], ',', -1);
    EXPECT_EQ((Parts{"a", "b"}), toVector(out));
}

TEST(QuotedText, JoinsArraysAndLists)
{
    CStringArray array;
    EXPECT_STREQ("", TQMJoinArray(array, ", "));
    array.Add("one");
    EXPECT_STREQ("one", TQMJoinArray(array, ", "));
    array.Add("");
    array.Add("three");
    EXPECT_STREQ("one, , three", TQMJoinArray(array, ", "));
    EXPECT_STREQ("onethree", TQMJoinArray(array, nullptr));

    CStringList list;
    EXPECT_STREQ("", TQMJoinArray(list, "|"));
    list.AddTail("b");
    list.AddHead("a");
    list.AddTail("c");
    EXPECT_STREQ("a|b|c", TQMJoinArray(list, "|"));
}

TEST(QuotedText, SplitCommentTakesTheFirstSemicolonOutsideQuotes)
{
    struct Case
    {
        const char* line;
        const char* code;
        const char* comment;
    } cases[] = {
        {"  LD  x ; load x", "  LD  x ", " load x"},
        {"a;b;c", "a", "b;c"},
        {"MSG 'a;b' ;c", "MSG 'a;b' ", "c"},
        {"no comment", "no comment", ""},
        {";only", "", "only"},
        {"x;", "x", ""},
        {"", "", ""},
        {"'open;quote", "'open;quote", ""},
    };
    for (const Case& c : cases) {
        CString code = "old", comment = "old";
        TQMSplitComment(c.line, code, comment);
        EXPECT_STREQ(c.code, code) << c.line;
        EXPECT_STREQ(c.comment, comment) << c.line;
    }
    CString code = "old", comment = "old";
    TQMSplitComment(nullptr, code, comment);
    EXPECT_STREQ("", code);
    EXPECT_STREQ("", comment);
}

}  // namespace

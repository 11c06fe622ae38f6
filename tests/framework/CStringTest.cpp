// CString: construction, buffers, formatting, searching, trimming, casing.
#include "framework/CString.h"
#include "framework/Exceptions.h"

#include "support/ExpectInvalidArg.h"

#include <gtest/gtest.h>

#include <string.h>

#include <string>

namespace {

// The characters of a string, embedded NULs included.
std::string bytesOf(const CString& s) { return std::string(s.GetString(), static_cast<size_t>(s.GetLength())); }

TEST(CString, ConstructionKeepsEveryCharacter)
{
    EXPECT_STREQ("", CString());
    EXPECT_STREQ("", CString(static_cast<const char*>(nullptr)));
    EXPECT_EQ(0, CString(static_cast<const char*>(nullptr), 5).GetLength());
    EXPECT_STREQ("xxx", CString('x', 3));
    EXPECT_EQ(0, CString('x', -1).GetLength());

    CString embedded("a\0b", 3);
    EXPECT_EQ(3, embedded.GetLength());
    EXPECT_EQ(std::string("a\0b", 3), bytesOf(embedded));
    CString copy(embedded);
    EXPECT_EQ(std::string("a\0b", 3), bytesOf(copy));
    copy = "other";
    copy = embedded;
    EXPECT_EQ(std::string("a\0b", 3), bytesOf(copy));
}

TEST(CString, MovedFromStringIsEmptyAndUsable)
{
    CString a("text");
    CString b(static_cast<CString&&>(a));
    EXPECT_STREQ("text", b);
    EXPECT_TRUE(a.IsEmpty());
    a += "again";
    EXPECT_STREQ("again", a);
}

TEST(CString, AssignmentFromOwnCharacters)
{
    CString s("abcdef");
    s = s.GetString() + 2;
    EXPECT_STREQ("cdef", s);
    s = s;
    EXPECT_STREQ("cdef", s);
}

TEST(CString, SelfAppendDoublesTheText)
{
    CString s("ab");
    for (int i = 0; i < 12; ++i)
        s += s;
    EXPECT_EQ(2 << 12, s.GetLength());
    EXPECT_EQ(0, strncmp(s.GetString() + s.GetLength() - 4, "abab", 4));
    CString t("xyz");
    t += t.GetString() + 1;  // a tail of itself
    EXPECT_STREQ("xyzyz", t);
}

TEST(CString, ConcatenationOperators)
{
    CString a("a");
    EXPECT_STREQ("ab", a + "b");
    EXPECT_STREQ("ba", "b" + a);
    EXPECT_STREQ("ac", a + 'c');
    EXPECT_STREQ("ca", 'c' + a);
    EXPECT_STREQ("aa", a + a);
    a += 'z';
    a.AppendChar('!');
    a.Append("xyz", 2);
    EXPECT_STREQ("az!xy", a);
}

TEST(CString, GetBufferAndReleaseBuffer)
{
    CString s;
    char* p = s.GetBuffer(100);
    memset(p, 'q', 100);
    p[100] = '\0';  // room for the terminator is promised as well
    s.ReleaseBuffer();
    EXPECT_EQ(100, s.GetLength());

    p = s.GetBuffer(0);  // keeps the text
    EXPECT_EQ('q', p[99]);
    strcpy(p, "short");
    s.ReleaseBuffer();
    EXPECT_STREQ("short", s);

    p = s.GetBuffer(10);
    memcpy(p, "0123456789", 10);
    s.ReleaseBuffer(4);
    EXPECT_STREQ("0123", s);

    CString e;
    e.GetBuffer(0)[0] = '\0';
    e.ReleaseBuffer();
    EXPECT_TRUE(e.IsEmpty());

    CString grow("ab");
    grow.GetBufferSetLength(5);
    EXPECT_EQ(5, grow.GetLength());
    EXPECT_EQ('\0', grow.GetString()[5]);
    grow.GetBufferSetLength(1);
    EXPECT_STREQ("a", grow);
}

TEST(CString, FormatWritesLongOutputWhole)
{
    CString s;
    s.Format("%d-%s-%c-%5.2f", 42, "x", 'y', 3.14159);
    EXPECT_STREQ("42-x-y- 3.14", s);

    std::string big(5000, 'k');
    s.Format("<%s>", big.c_str());
    ASSERT_EQ(5002, s.GetLength());
    EXPECT_EQ('>', s[5001]);

    s.Format("%u %ld %lld %x", 4000000000u, -7L, 1LL << 40, 255);
    EXPECT_STREQ("4000000000 -7 1099511627776 ff", s);

    s = "old";
    s.Format("%s", "");
    EXPECT_TRUE(s.IsEmpty());

    s = "head:";
    s.AppendFormat("%03d", 7);
    EXPECT_STREQ("head:007", s);

    // Formatting a string with its own text as the argument.
    s = "self";
    s.Format("[%s]", static_cast<const char*>(s));
    EXPECT_STREQ("[self]", s);
    s.AppendFormat("%s", static_cast<const char*>(s));
    EXPECT_STREQ("[self][self]", s);
}

TEST(CString, Comparisons)
{
    CString s("Alpha");
    EXPECT_EQ(0, s.Compare("Alpha"));
    EXPECT_LT(s.Compare("alpha"), 0);
    EXPECT_EQ(0, s.CompareNoCase("aLPHA"));
    EXPECT_NE(0, s.CompareNoCase("alphas"));
    EXPECT_GT(s.Compare(nullptr), 0);
    EXPECT_TRUE(s == "Alpha");
    EXPECT_TRUE("Alpha" == s);
    EXPECT_TRUE(s != CString("alpha"));
    EXPECT_TRUE(CString("a") < CString("b"));
    EXPECT_TRUE(CString("b") >= CString("b"));
}

TEST(CString, Extraction)
{
    CString s("abcdef");
    EXPECT_STREQ("abc", s.Left(3));
    EXPECT_STREQ("", s.Left(-1));
    EXPECT_STREQ("abcdef", s.Left(99));
    EXPECT_STREQ("cdef", s.Mid(2));
    EXPECT_STREQ("cd", s.Mid(2, 2));
    EXPECT_STREQ("", s.Mid(6));
    EXPECT_STREQ("", s.Mid(2, -3));
    EXPECT_STREQ("abcdef", s.Mid(-4));
    EXPECT_STREQ("ef", s.Right(2));
    EXPECT_STREQ("abcdef", s.Right(10));
    EXPECT_STREQ("", s.Right(-2));
    EXPECT_STREQ("abc", CString("abc123").SpanExcluding("0123456789"));
    EXPECT_STREQ("12", CString("12ab").SpanIncluding("0123456789"));
}

TEST(CString, Searching)
{
    CString s("a.b.c");
    EXPECT_EQ(1, s.Find('.'));
    EXPECT_EQ(3, s.Find('.', 2));
    EXPECT_EQ(-1, s.Find('.', 4));
    EXPECT_EQ(-1, s.Find('.', 99));
    EXPECT_EQ(-1, s.Find('.', -1));
    EXPECT_EQ(2, s.Find("b.c"));
    EXPECT_EQ(0, s.Find(""));
    EXPECT_EQ(-1, s.Find("b", 3));
    EXPECT_EQ(3, s.ReverseFind('.'));
    EXPECT_EQ(-1, s.ReverseFind('x'));
    EXPECT_EQ(1, s.FindOneOf("x.b"));

    CString withNul("ab\0cb", 5);
    EXPECT_EQ(4, withNul.Find('b', 2));      // a character search sees past a NUL
    EXPECT_EQ(1, withNul.ReverseFind('b'));  // the C text ends at the NUL
}

TEST(CString, Trimming)
{
    CString s(" \t x y \r\n");
    EXPECT_STREQ("x y", CString(s).Trim());
    EXPECT_STREQ("x y \r\n", CString(s).TrimLeft());
    EXPECT_STREQ(" \t x y", CString(s).TrimRight());
    EXPECT_STREQ("x", CString("--x--").Trim('-'));
    EXPECT_STREQ("x-+", CString("+-x-+").TrimLeft("+-"));
    EXPECT_STREQ("ab", CString("ab=;=").TrimRight("=;"));
    EXPECT_STREQ("", CString("   ").Trim());
    EXPECT_STREQ("", CString().Trim());
    // Bytes above 127 are not blanks for these members.
    EXPECT_STREQ("\xA0x\xA0", CString("\xA0x\xA0").Trim());
}

TEST(CString, CaseAndEditing)
{
    EXPECT_STREQ("ABC-1", CString("aBc-1").MakeUpper());
    EXPECT_STREQ("abc-1", CString("aBc-1").MakeLower());
    EXPECT_STREQ("", CString().MakeUpper());
    EXPECT_STREQ("cba", CString("abc").MakeReverse());

    CString s("a-b-c");
    EXPECT_EQ(2, s.Replace('-', '+'));
    EXPECT_STREQ("a+b+c", s);
    EXPECT_EQ(2, s.Replace("+", "<>"));
    EXPECT_STREQ("a<>b<>c", s);
    EXPECT_EQ(0, s.Replace("", "x"));
    EXPECT_EQ(2, s.Remove('<'));
    EXPECT_STREQ("a>b>c", s);
    EXPECT_EQ(6, s.Insert(1, "_"));
    EXPECT_STREQ("a_>b>c", s);
    EXPECT_EQ(7, s.Insert(99, '!'));
    EXPECT_EQ(4, s.Delete(1, 3));
    EXPECT_STREQ("a>c!", s);
    EXPECT_EQ(4, s.Delete(9, 1));
    s.Truncate(2);
    EXPECT_STREQ("a>", s);
    s.Insert(0, s.GetString() + 1);  // inserting a part of itself
    EXPECT_STREQ(">a>", s);
}

TEST(CString, IndexAccessIsBoundsChecked)
{
    CString s("ab");
    EXPECT_EQ('b', s.GetAt(1));
    s.SetAt(0, 'z');
    EXPECT_STREQ("zb", s);
    tqmtest::ExpectInvalidArg([&] { s.GetAt(-1); }, "GetAt(-1)");
    tqmtest::ExpectInvalidArg([&] { s.GetAt(2); }, "GetAt(length)");
    tqmtest::ExpectInvalidArg([&] { s.SetAt(2, 'x'); }, "SetAt(length)");
}

}  // namespace

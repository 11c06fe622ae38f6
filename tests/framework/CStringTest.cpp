// CString: embedded NULs, its own text as an argument, buffers, formatting,
// the edges of extraction, searching and editing, bounds checks.
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
    EXPECT_EQ(std::string("a\0b", 3), bytesOf(embedded));
    CString copy(embedded);
    copy = "other";
    copy = embedded;
    EXPECT_EQ(std::string("a\0b", 3), bytesOf(copy));
}

// Every member that takes text may be given the string's own characters.
TEST(CString, OwnCharactersAsArgument)
{
    CString s("abcdef");
    s = s.GetString() + 2;
    EXPECT_STREQ("cdef", s);
    s = s;
    EXPECT_STREQ("cdef", s);

    CString d("ab");
    for (int i = 0; i < 12; ++i)
        d += d;
    EXPECT_EQ(2 << 12, d.GetLength());
    CString t("xyz");
    t += t.GetString() + 1;  // a tail of itself
    EXPECT_STREQ("xyzyz", t);
    t.Insert(0, t.GetString() + 3);
    EXPECT_STREQ("yzxyzyz", t);

    s = "self";
    s.Format("[%s]", static_cast<const char*>(s));
    EXPECT_STREQ("[self]", s);
    s.AppendFormat("%s", static_cast<const char*>(s));
    EXPECT_STREQ("[self][self]", s);

    CString m(static_cast<CString&&>(t));
    EXPECT_TRUE(t.IsEmpty()) << "a moved-from string is empty and usable";
    t += "again";
    EXPECT_STREQ("again", t);
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

    s.GetBuffer(10)[5] = 'x';
    s.ReleaseBuffer(4);
    EXPECT_STREQ("shor", s);

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


    s = "head:";
    s.AppendFormat("%03d", 7);
    EXPECT_STREQ("head:007", s);
}

TEST(CString, NullComparisonAndExtractionOutOfRange)
{
    EXPECT_GT(CString("Alpha").Compare(nullptr), 0);

    CString t("abcdef");
    EXPECT_STREQ("", t.Left(-1));
    EXPECT_STREQ("abcdef", t.Left(99));
    EXPECT_STREQ("", t.Mid(6));
    EXPECT_STREQ("", t.Mid(2, -3));
    EXPECT_STREQ("abcdef", t.Mid(-4));
    EXPECT_STREQ("abcdef", t.Right(10));
    EXPECT_STREQ("abc", CString("abc123").SpanExcluding("0123456789"));
}

TEST(CString, Searching)
{
    CString s("a.b.c");
    EXPECT_EQ(3, s.Find('.', 2));
    EXPECT_EQ(-1, s.Find('.', -1));

    CString withNul("ab\0cb", 5);
    EXPECT_EQ(4, withNul.Find('b', 2));      // a character search sees past a NUL
    EXPECT_EQ(1, withNul.ReverseFind('b'));  // the C text ends at the NUL
}

TEST(CString, Trimming)
{
    CString s(" \t x y \r\n");
    EXPECT_STREQ("x y", CString(s).Trim());
    EXPECT_STREQ("", CString("   ").Trim());
    // Bytes above 127 are not blanks for these members.
    EXPECT_STREQ("\xA0x\xA0", CString("\xA0x\xA0").Trim());
}

TEST(CString, Editing)
{
    EXPECT_STREQ("ABC-1", CString("aBc-1").MakeUpper());
    CString s("a-b-c");
    EXPECT_EQ(2, s.Replace("-", "<>"));
    EXPECT_STREQ("a<>b<>c", s);
    EXPECT_EQ(0, s.Replace("", "x"));
    EXPECT_EQ(2, s.Remove('<'));
    EXPECT_EQ(6, s.Insert(99, '!'));
    EXPECT_STREQ("a>b>c!", s);
    EXPECT_EQ(3, s.Delete(1, 3));
    EXPECT_STREQ("ac!", s);
    EXPECT_EQ(3, s.Delete(9, 1));
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

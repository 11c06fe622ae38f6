// CStringArray, CPtrArray, CStringList: order, growth, and the bounds checks
// that callers rely on to turn a negative index into CInvalidArgException.
#include "framework/Collections.h"

#include "support/ExpectInvalidArg.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using tqmtest::ExpectInvalidArg;

std::vector<std::string> itemsOf(const CStringList& list)
{
    std::vector<std::string> items;
    for (POSITION pos = list.GetHeadPosition(); pos;)
        items.push_back(list.GetNext(pos).GetString());
    return items;
}

TEST(CStringArray, AddInsertRemoveKeepOrder)
{
    CStringArray a;
    a.Add("b");
    a.Add("d");
    a.InsertAt(0, "a");
    a.InsertAt(2, "c");
    a.RemoveAt(1, 2);
    ASSERT_EQ(2, a.GetSize());
    EXPECT_STREQ("d", a[1]);
    a.SetAtGrow(4, "e");
    EXPECT_EQ(5, a.GetSize());
    EXPECT_STREQ("", a[3]);

    CStringArray b;
    b.Copy(a);
    b.Append(a);
    EXPECT_EQ(10, b.GetSize());
    EXPECT_STREQ("e", b[9]);
}

TEST(CStringArray, OutOfRangeAccessThrowsInvalidArg)
{
    CStringArray a;
    a.Add("only");
    ExpectInvalidArg([&] { a.GetAt(-1); }, "GetAt(-1)");
    ExpectInvalidArg([&] { a.GetAt(1); }, "GetAt(size)");
    ExpectInvalidArg([&] { a[-1] = "x"; }, "operator[](-1)");
    ExpectInvalidArg([&] { a.RemoveAt(0, 2); }, "RemoveAt past the end");
    ExpectInvalidArg([&] { a.InsertAt(-1, "x"); }, "InsertAt(-1)");
    ExpectInvalidArg([&] { a.SetSize(-1); }, "SetSize(-1)");
    EXPECT_EQ(1, a.GetSize());  // nothing changed on the way
}

TEST(CStringList, WalkInsertAndRemove)
{
    CStringList list;
    POSITION b = list.AddTail("b");
    list.AddHead("a");
    list.AddTail("d");
    list.InsertAfter(b, "c");
    list.InsertBefore(list.GetHeadPosition(), "0");
    EXPECT_EQ((std::vector<std::string>{"0", "a", "b", "c", "d"}), itemsOf(list));
    EXPECT_EQ(5, list.GetCount());

    list.RemoveAt(b);
    EXPECT_STREQ("0", list.RemoveHead());
    EXPECT_STREQ("d", list.RemoveTail());
    std::vector<std::string> back;
    for (POSITION pos = list.GetTailPosition(); pos;)
        back.push_back(list.GetPrev(pos).GetString());
    EXPECT_EQ((std::vector<std::string>{"c", "a"}), back);
}

TEST(CStringList, FindIsCaseSensitiveAndResumes)
{
    CStringList list;
    list.AddTail("x");
    list.AddTail("X");
    list.AddTail("x");
    POSITION first = list.Find("x");
    ASSERT_NE(nullptr, first);
    POSITION second = list.Find("x", first);
    ASSERT_NE(nullptr, second);
    EXPECT_EQ(list.FindIndex(2), second);
    EXPECT_EQ(nullptr, list.Find("x", second));
    EXPECT_EQ(nullptr, list.FindIndex(-1));
}

TEST(CStringList, CopyAndSelfAppend)
{
    CStringList list;
    list.AddTail("a");
    list.AddTail("b");
    list.AddTail(list);
    EXPECT_EQ((std::vector<std::string>{"a", "b", "a", "b"}), itemsOf(list));
    CStringList copy(list);
    copy.SetAt(copy.GetHeadPosition(), "z");
    EXPECT_STREQ("a", list.GetHead());
}

TEST(CStringList, EmptyListAccessThrowsInvalidArg)
{
    CStringList list;
    ExpectInvalidArg([&] { list.GetHead(); }, "GetHead");
    ExpectInvalidArg([&] { list.RemoveTail(); }, "RemoveTail");
    ExpectInvalidArg([&] { list.GetAt(nullptr); }, "GetAt(NULL)");
    EXPECT_TRUE(list.IsEmpty());
}

}  // namespace

// The INI line grammar shared by the document reader and the profile scanner,
// name folding, and the name index.
#include "config/logic/IniLineGrammar.h"
#include "config/logic/IniNameIndex.h"
#include "config/logic/IniNames.h"

#include <gtest/gtest.h>

#include <string.h>

#include <string>
#include <vector>

namespace {

using namespace tqm::ini;

TEST(IniGrammar, BlankIsEverySignedByteUpTo32)
{
    for (int b = 0; b < 256; ++b) {
        bool expected = b <= 32 || b >= 128;
        EXPECT_EQ(expected, IsBlank(static_cast<char>(b))) << "byte " << b;
    }
}

TEST(IniGrammar, SkipAndTrimBlanks)
{
    char text[] = " \t\xA0\xFFname\x80 \r\n";
    char* p = SkipBlanks(text);
    EXPECT_EQ(text + 4, p);
    EXPECT_TRUE(TrimBlanks(p, p + strlen(p)));
    EXPECT_STREQ("name", p);

    char blanks[] = " \x90\n";
    EXPECT_EQ(blanks + 3, SkipBlanks(blanks));  // stops at the NUL
    EXPECT_FALSE(TrimBlanks(blanks, blanks + 3));
    EXPECT_STREQ("", blanks);

    char word[] = "ab";
    EXPECT_FALSE(TrimBlanks(word, word));        // nothing between start and end
    EXPECT_STREQ("", word);
    char other[] = "ab";
    EXPECT_FALSE(TrimBlanks(other, nullptr));    // a null end
    EXPECT_STREQ("", other);
    EXPECT_EQ(nullptr, SkipBlanks(static_cast<char*>(nullptr)));
}

TEST(IniGrammar, LineKinds)
{
    struct
    {
        const char* line;
        LineKind document;
        LineKind profile;
    } const cases[] = {
        {"", LineKind::Empty, LineKind::Empty},
        {"; c", LineKind::Comment, LineKind::Comment},
        {"#c", LineKind::Comment, LineKind::Comment},
        {"//c", LineKind::Comment, LineKind::Entry},  // "//" is a comment for documents only
        {"/x=1", LineKind::Entry, LineKind::Entry},
        {"[S]", LineKind::Header, LineKind::Header},
        {"k=v", LineKind::Entry, LineKind::Entry},
        {"=v", LineKind::Entry, LineKind::Entry},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.document, ClassifyLine(c.line, Reader::Document)) << c.line;
        EXPECT_EQ(c.profile, ClassifyLine(c.line, Reader::Profile)) << c.line;
    }
}

TEST(IniGrammar, DocumentHeaders)
{
    struct
    {
        const char* line;
        const char* name;  // NULL: malformed
    } const cases[] = {
        {"[Main]\n", "Main"},
        {"[ Main \t]\n", "Main"},
        {"[Two words] trailing text\n", "Two words"},
        {"[a]b]\n", "a"},
        {"[\xE4Name\xE4]\n", "Name"},  // high bytes at the edges are blanks
        {"[]\n", nullptr},
        {"[   ]\n", nullptr},
        {"[\xE4]\n", nullptr},
        {"[Main\n", nullptr},
        {"[", nullptr},
    };
    for (const auto& c : cases) {
        std::vector<char> line(c.line, c.line + strlen(c.line) + 1);
        char* name = ParseHeaderName(line.data());
        if (c.name)
            EXPECT_STREQ(c.name, name) << c.line;
        else
            EXPECT_EQ(nullptr, name) << c.line;
    }
}

TEST(IniGrammar, DocumentEntries)
{
    struct
    {
        const char* line;  // from its first non-blank character
        EntryParse result;
        const char* name;
        const char* value;
    } const cases[] = {
        {"key=value\n", EntryParse::Ok, "key", "value"},
        {"key \t=  value \t\r\n", EntryParse::Ok, "key", "value"},
        {"a=b=c\n", EntryParse::Ok, "a", "b=c"},
        {"key=\n", EntryParse::Ok, "key", ""},
        {"key=   \n", EntryParse::Ok, "key", ""},
        {"two words = more words here\n", EntryParse::Ok, "two words", "more words here"},
        {"k\xC4=\xC4v\xC4\xFF\n", EntryParse::Ok, "k", "v"},
        {"k=v", EntryParse::Ok, "k", "v"},  // no final line feed
        {"=value\n", EntryParse::EmptyName, nullptr, nullptr},
        {"\xC4=value\n", EntryParse::EmptyName, nullptr, nullptr},
        {"no equals sign\n", EntryParse::NoEquals, nullptr, nullptr},
    };
    for (const auto& c : cases) {
        std::vector<char> line(c.line, c.line + strlen(c.line) + 1);
        char* name = nullptr;
        char* value = nullptr;
        EXPECT_EQ(c.result, ParseEntryLine(line.data(), &name, &value)) << c.line;
        if (c.result == EntryParse::Ok) {
            EXPECT_STREQ(c.name, name) << c.line;
            EXPECT_STREQ(c.value, value) << c.line;
        }
    }
}

TEST(IniGrammar, ProfileHeaderMatching)
{
    NameFold fold;
    struct
    {
        const char* line;
        const char* section;
        bool matches;
    } const cases[] = {
        {"[Library]\n", "Library", true},
        {"[ library ]\n", "LIBRARY", true},
        {"[Library] text after\n", "Library", true},
        {"[Library]\n", "Lib", false},
        {"[Lib]\n", "Library", false},
        {"[Lib X]\n", "Lib", false},
        {"[Lib\n", "Lib", false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.matches, HeaderNamesSection(c.line, c.section, fold)) << c.line << " / " << c.section;
}

TEST(IniGrammar, ProfileKeyMatching)
{
    NameFold fold;
    struct
    {
        const char* line;
        const char* key;
        const char* value;  // NULL: no match
    } const cases[] = {
        {"Key=v\n", "Key", "v"},
        {"key \t= \t v w \r\n", "KEY", "v w"},
        {"Key=\n", "Key", ""},
        {"Key=a=b\n", "Key", "a=b"},
        {"Keys=1\n", "Key", nullptr},
        {"KeyX=v\n", "Key", nullptr},
        {"Ke=v\n", "Key", nullptr},
        {"Key v\n", "Key", nullptr},
        {"//Key=v\n", "Key", nullptr},
    };
    for (const auto& c : cases) {
        std::vector<char> line(c.line, c.line + strlen(c.line) + 1);
        char* value = ValueForKey(line.data(), c.key, fold);
        if (c.value)
            EXPECT_STREQ(c.value, value) << c.line;
        else
            EXPECT_EQ(nullptr, value) << c.line;
    }
}

TEST(IniNames, FoldingComparisonAndHash)
{
    NameFold ascii;
    EXPECT_TRUE(ascii.Equal("Library", "lIBRARY"));
    EXPECT_FALSE(ascii.Equal("Lib", "Library"));
    EXPECT_FALSE(ascii.Equal("Library", "Lib"));
    EXPECT_FALSE(ascii.Equal("a[", "A{"));  // only letters fold
    EXPECT_EQ(ascii.Hash("Name"), ascii.Hash("nAME"));
    EXPECT_NE(ascii.Hash("Name1"), ascii.Hash("Name2"));
    EXPECT_TRUE(ascii.EqualPrefix("KEY=1", "key", 3));
    EXPECT_FALSE(ascii.EqualPrefix("KE", "key", 3));
    EXPECT_TRUE(ascii.EqualPrefix("", "", 0));

    // A table for another code page: here byte 0xE4 folds onto 0xC4.
    unsigned char upper[256];
    for (int i = 0; i < 256; ++i)
        upper[i] = static_cast<unsigned char>(i);
    upper[0xE4] = 0xC4;
    NameFold custom(upper);
    EXPECT_TRUE(custom.Equal("x\xE4y", "x\xC4y"));
    EXPECT_EQ(custom.Hash("x\xE4y"), custom.Hash("x\xC4y"));
    EXPECT_FALSE(custom.Equal("a", "A"));
}

TEST(IniNames, IndexFindsTheFirstOfRepeatedNames)
{
    NameFold fold;
    std::vector<std::string> names;
    NamePositionIndex index;
    for (int i = 0; i < 1000; ++i) {
        names.push_back("Name" + std::to_string(i % 300));  // each name three or four times
        index.Append(fold.Hash(names.back().c_str()));
    }
    EXPECT_EQ(1000, index.Count());
    auto find = [&](const char* name) {
        return index.FindFirst(fold.Hash(name), [&](int n) { return fold.Equal(names[n].c_str(), name); });
    };
    EXPECT_EQ(0, find("name0"));
    EXPECT_EQ(299, find("NAME299"));
    EXPECT_EQ(-1, find("Name300"));

    index.Clear();
    EXPECT_EQ(0, index.Count());
    EXPECT_EQ(-1, find("name0"));
}

}  // namespace

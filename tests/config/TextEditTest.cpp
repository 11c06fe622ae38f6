#include "config/TextEdit.h"

#include <gtest/gtest.h>

#include <string.h>

#include <string>

namespace {

TEST(TextEdit, BlankRulesCoverNineToThirteenAndSpaceOnly)
{
    for (int c = 0; c < 256; ++c) {
        bool blank = c == ' ' || (c >= 9 && c <= 13);
        EXPECT_EQ(blank ? 1 : 0, IsCharSpace(static_cast<unsigned char>(c))) << c;
        char text[3] = {static_cast<char>(c), 'x', '\0'};
        if (c == 0)
            continue;
        EXPECT_EQ(blank ? text + 1 : text, TQMSkipWhite(text)) << c;
        EXPECT_EQ(blank ? text + 1 : text, SkipSpace(text)) << c;
        EXPECT_EQ(blank ? text : text + 2, TQMSkipBlack(text)) << c;
        EXPECT_EQ(blank ? text : text + 2, SkipChar(text)) << c;
    }
}

TEST(TextEdit, SkippersStopAtTheEnd)
{
    char blanks[] = " \t\r\n\v\f";
    EXPECT_EQ(blanks + 6, TQMSkipWhite(blanks));
    EXPECT_EQ(blanks + 6, SkipSpace(blanks));
    char word[] = "word";
    EXPECT_EQ(word + 4, TQMSkipBlack(word));
    EXPECT_EQ(word + 4, SkipChar(word));
    char mixed[] = "ab \xA0" "cd";
    EXPECT_EQ(mixed + 2, TQMSkipBlack(mixed));
    EXPECT_EQ(mixed + 3, TQMSkipWhite(mixed + 2));  // 0xA0 is not blank
    EXPECT_EQ(mixed + 2, SkipChar(mixed));
    EXPECT_EQ(nullptr, TQMSkipWhite(nullptr));
}

TEST(TextEdit, TrimRightCutsTrailingBlanksOnly)
{
    struct Case
    {
        const char* text;
        const char* trimmed;
    } cases[] = {
        {"abc \t\r\n", "abc"}, {" a b ", " a b"}, {" \t\v\f ", ""}, {"", ""}, {"x\xA0", "x\xA0"},
    };
    for (const Case& c : cases) {
        char buf[32];
        memset(buf, '#', sizeof(buf));
        strcpy(buf, c.text);
        size_t original = strlen(c.text);
        EXPECT_EQ(static_cast<int>(strlen(c.trimmed)), TQMTrimRight(buf));
        EXPECT_STREQ(c.trimmed, buf);
        EXPECT_EQ('#', buf[original + 1]) << "wrote past the text";
    }
    EXPECT_EQ(0, TQMTrimRight(nullptr));
}

TEST(TextEdit, InsertStringMovesTheTailAndStaysInItsRoom)
{
    struct Case
    {
        const char* text;
        int pos;
        const char* ins;
        const char* result;
    } cases[] = {
        {"abc", 0, "XY", "XYabc"}, {"abc", 1, "XY", "aXYbc"}, {"abc", 3, "XY", "abcXY"},
        {"abc", 4, "XY", "abc"},   {"abc", -1, "XY", "abc"},  {"abc", 1, "", "abc"},
        {"", 0, "XY", "XY"},
    };
    for (const Case& c : cases) {
        char buf[16];
        memset(buf, '#', sizeof(buf));
        strcpy(buf, c.text);
        EXPECT_EQ(buf, TQMInsertString(buf, c.pos, c.ins));
        EXPECT_STREQ(c.result, buf) << c.text << " at " << c.pos;
        // Exactly the result and its NUL were written; the rest is untouched.
        size_t used = strlen(c.result) + 1;
        EXPECT_EQ(std::string(sizeof(buf) - used, '#'), std::string(buf + used, sizeof(buf) - used));
    }
}

}  // namespace

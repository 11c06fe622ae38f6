#include "config/TextEdit.h"

#include <gtest/gtest.h>

#include <string.h>

#include <string>

namespace {

TEST(TextEdit, BlanksAreNineToThirteenAndSpaceForEverySkipper)
{
    for (int c = 1; c < 256; ++c) {
        bool blank = c == ' ' || (c >= 9 && c <= 13);
        EXPECT_EQ(blank ? 1 : 0, IsCharSpace(static_cast<unsigned char>(c))) << c;
        char text[3] = {static_cast<char>(c), 'x', '\0'};
        EXPECT_EQ(blank ? text + 1 : text, TQMSkipWhite(text)) << c;
        EXPECT_EQ(blank ? text + 1 : text, SkipSpace(text)) << c;
        EXPECT_EQ(blank ? text : text + 2, TQMSkipBlack(text)) << c;  // stops at the end
        EXPECT_EQ(blank ? text : text + 2, SkipChar(text)) << c;
    }
    char blanks[] = " \t\r\n\v\f";
    EXPECT_EQ(blanks + 6, TQMSkipWhite(blanks));
}

TEST(TextEdit, TrimRightCutsTrailingBlanksOnly)
{
    struct Case { const char* text; const char* trimmed; } cases[] = {{"abc \t\r\n", "abc"}, {" a b ", " a b"}, {" \t\v\f ", ""}, {"", ""}, {"x\xA0", "x\xA0"}};
    for (const Case& c : cases) {
        char buf[32];
        memset(buf, '#', sizeof(buf));
        strcpy(buf, c.text);
        EXPECT_EQ(static_cast<int>(strlen(c.trimmed)), TQMTrimRight(buf));
        EXPECT_STREQ(c.trimmed, buf);
        EXPECT_EQ('#', buf[strlen(c.text) + 1]) << "wrote past the text";
    }
}

TEST(TextEdit, InsertStringMovesTheTailAndStaysInItsRoom)
{
    struct Case { const char* text; int pos; const char* ins; const char* result; } cases[] = {
        {"abc", 0, "XY", "XYabc"}, {"abc", 1, "XY", "aXYbc"}, {"abc", 3, "XY", "abcXY"}, {"abc", 4, "XY", "abc"},
        {"abc", -1, "XY", "abc"},  {"abc", 1, "", "abc"},     {"", 0, "XY", "XY"},
    };
    for (const Case& c : cases) {
        char buf[16];
        memset(buf, '#', sizeof(buf));
        strcpy(buf, c.text);
        EXPECT_EQ(buf, TQMInsertString(buf, c.pos, c.ins));
        EXPECT_STREQ(c.result, buf) << c.text << " at " << c.pos;
        size_t used = strlen(c.result) + 1;  // the rest of the buffer is untouched
        EXPECT_EQ(std::string(sizeof(buf) - used, '#'), std::string(buf + used, sizeof(buf) - used));
    }
}

}  // namespace

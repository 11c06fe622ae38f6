// The source-directive scanner: keywords, argument forms and odd bytes.
#include "libcatalog/logic/SourceDirectives.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using tqm::SourceDirectiveKind;

// The directives of text, written "I:name", "L:name", "U:name".
std::vector<std::string> scan(const std::string& text)
{
    std::vector<std::string> found;
    for (const tqm::SourceDirective& d : tqm::ScanSourceDirectives(text.data(), text.size())) {
        const char* kind = d.kind == SourceDirectiveKind::Include ? "I:" : d.kind == SourceDirectiveKind::Lib ? "L:" : "U:";
        found.push_back(kind + d.name);
    }
    return found;
}

TEST(SourceDirectives, LinesAndTheirDirectives)
{
    const struct
    {
        const char* line;
        const char* found;  // "" for none
    } cases[] = {
        {"$INCLUDE a.inc", "I:a.inc"},
        {"  \t$include\tB.INC ; comment", "I:B.INC"},
        {"$INCLUDE \"  My File.inc\" rest", "I:My File.inc"},
        {"$INCLUDE \"unclosed.inc", ""},
        {"$INCLUDE", ""},
        {"$INCLUDE ;", ""},
        {"$INCLUDEx.inc", "I:x.inc"},       // a prefix match: no blank is needed
        {"$LIB Drives", "L:Drives"},
        {"$library \"Drives.obl\"", "L:rary"},  // "$LIB" is all that is compared
        {"$Use Axis", "U:Axis"},
        {"x $INCLUDE a.inc", ""},           // not at the start of the line
        {"(* $INCLUDE a.inc *)", ""},
        {"$DEFINE X", ""},
        {"$INCLUDE a.inc\r", "I:a.inc"},    // a CR LF line end
    };
    for (const auto& c : cases) {
        const std::vector<std::string> found = scan(c.line);
        if (!*c.found)
            EXPECT_TRUE(found.empty()) << c.line;
        else
            EXPECT_EQ(std::vector<std::string>{c.found}, found) << c.line;
    }
}

TEST(SourceDirectives, WholeFilesInLineOrder)
{
    EXPECT_EQ((std::vector<std::string>{"I:a.inc", "U:Axis", "I:b.inc"}),
              scan("$INCLUDE a.inc\r\nFUNCTION x\n$USE Axis\n\n$INCLUDE b.inc"));
    // A NUL ends its line's text; the next line is read again.
    EXPECT_EQ(std::vector<std::string>{"I:c.inc"}, scan(std::string("$INC\0LUDE a.inc\n$INCLUDE c.inc", 30)));
    EXPECT_EQ(std::vector<std::string>{"I:ab"}, scan(std::string("$INCLUDE ab\0cd", 14)));
    EXPECT_TRUE(scan("").empty());
}

// A file read block by block: pieces split lines, keywords and names
// anywhere, and the scan finds what it finds in the whole text.
TEST(SourceDirectives, PiecesScanAsTheWhole)
{
    const std::string text = std::string("$INCLUDE a.inc\r\n  $include \"  My File.inc\" ; x\n$LIB Drives\n$INC") +
                             '\0' + "LUDE no.inc\n$USE Axis\n(* $INCLUDE not.inc *)\n$INCLUDE \"unclosed\n\t$Use\tlast";
    const std::vector<tqm::SourceDirective> whole = tqm::ScanSourceDirectives(text.data(), text.size());
    ASSERT_EQ(5u, whole.size());
    for (size_t piece = 1; piece <= 9; ++piece) {
        tqm::SourceDirectiveScanner scanner;
        for (size_t at = 0; at < text.size(); at += piece)
            scanner.Feed(text.data() + at, std::min(piece, text.size() - at));
        const std::vector<tqm::SourceDirective> pieces = scanner.Finish();
        ASSERT_EQ(whole.size(), pieces.size()) << piece;
        for (size_t i = 0; i < whole.size(); ++i)
            EXPECT_EQ(whole[i].name, pieces[i].name) << piece;
    }

    // A name longer than any path the system opens names nothing.
    const std::string longest(tqm::kLongestDirectiveName, 'n');
    EXPECT_EQ(std::vector<std::string>{"I:" + longest}, scan("$INCLUDE " + longest));
    EXPECT_TRUE(scan("$INCLUDE " + longest + "n").empty());
}

TEST(SourceDirectives, EncipheredSignatureAndDefaultExtensions)
{
    const std::string signature(tqm::kEncipheredSignature, tqm::kEncipheredSignatureSize);
    EXPECT_TRUE(tqm::HasEncipheredSignature((signature + "x").data(), signature.size() + 1));
    EXPECT_FALSE(tqm::HasEncipheredSignature(signature.data(), signature.size() - 1));
    EXPECT_FALSE(tqm::HasEncipheredSignature("$INCLUDE a.inc", 14));
    EXPECT_STREQ(".obl", tqm::DefaultDirectiveExtension(SourceDirectiveKind::Lib));
    EXPECT_STREQ(".obj", tqm::DefaultDirectiveExtension(SourceDirectiveKind::Use));
    EXPECT_EQ(nullptr, tqm::DefaultDirectiveExtension(SourceDirectiveKind::Include));
}

}  // namespace

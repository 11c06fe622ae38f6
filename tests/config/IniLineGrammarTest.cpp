// The INI line grammar's blank and line-kind rules shared by the document
// reader and the profile scanner (the rest is seen through both of them).
#include "config/logic/IniLineGrammar.h"

#include <gtest/gtest.h>


namespace {

using namespace tqm::ini;

TEST(IniGrammar, BlankIsEverySignedByteUpTo32)
{
    for (int b = 0; b < 256; ++b) {
        bool expected = b <= 32 || b >= 128;
        EXPECT_EQ(expected, IsBlank(static_cast<char>(b))) << "byte " << b;
    }
}

TEST(IniGrammar, LineKinds)
{
    struct { const char* line; LineKind document; LineKind profile; } const cases[] = {
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

}  // namespace

// CTQMTokenizer - splits a text at a separator character, token by token.
//
// The tokenizer works on its own copy of the text and hands out pointers into
// that copy: a token stays valid until the next GetFirstToken. No quoting and
// no trimming: "a, b" gives "a" and " b".
//
//     CTQMTokenizer tok;
//     for (const char* t = tok.GetFirstToken("a,,b", ','); ; t = tok.GetNextToken()) {
//         use(t);                        // "a", "", "b"
//         if (!tok.HasMoreTokens()) break;
//     }
#pragma once

#include "framework/CString.h"
#include "framework/Export.h"

// Splits a text at a separator character, one token at a time.
class TQM_CLASS CTQMTokenizer
{
    // Data members (in this order; the layout crosses the interface)
private:
    CString m_strBuffer;   // private copy of the text, cut at each separator taken
    char* m_pszPosition;   // start of the next token; NULL when no token is left
    char m_chSeparator;

    // Construction
public:
    CTQMTokenizer();
    // Copies member by member: the copy's position still points into the
    // source's buffer. Deliberate, as the suite's programs have always had it;
    // copy a tokenizer only while its source lives.
    CTQMTokenizer(const CTQMTokenizer&) = default;
    CTQMTokenizer& operator=(const CTQMTokenizer&) = default;

    // Operations
    // Takes a copy of text ("" for NULL) and sep as the separator; returns the first token.
    const char* GetFirstToken(const char* text, char sep);
    // The next token; "" when no token is left.
    const char* GetNextToken();
    // The text not yet handed out; "" when no token is left.
    const char* GetRest();
    // 1 while a token is left, else 0.
    int HasMoreTokens();
};

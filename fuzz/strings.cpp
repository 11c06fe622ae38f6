// The string utilities: the comma tokenizer and the quote-aware search,
// split and join give back what they were given.
#include "FuzzSupport.h"
#include "config/QuotedText.h"
#include "config/Tokenizer.h"
#include "config/logic/QuoteScan.h"

#include <string.h>

#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 2)
        return 0;
    const char sep = static_cast<char>(data[0] ? data[0] : ',');
    const std::string text(reinterpret_cast<const char*>(data + 1), strnlen(reinterpret_cast<const char*>(data + 1), size - 1));
    const char set[2] = {sep, '\0'};

    // The tokens joined with the separator are the text again.
    CTQMTokenizer tokens;
    std::string joined = tokens.GetFirstToken(text.c_str(), sep);
    while (tokens.HasMoreTokens()) {
        joined += sep;
        joined += tokens.GetNextToken();
    }
    TQM_FUZZ_CHECK(joined == text);
    TQM_FUZZ_CHECK(*tokens.GetRest() == '\0');

    // The search finds the separator outside quotes, and only there.
    for (int start = 0, at; (at = tqm::FindOutsideQuotes(text.c_str(), set, start)) >= 0; start = at + 1) {
        TQM_FUZZ_CHECK(at >= start && at < static_cast<int>(text.size()));
        TQM_FUZZ_CHECK(text[at] == sep);
    }

    // Splitting and joining again gives the text, with any limit.
    for (int maxSplits : {-1, 0, 1, 3}) {
        CStringArray pieces;
        TQMSplitStringOnChar(pieces, text.c_str(), sep, maxSplits);
        TQM_FUZZ_CHECK(pieces.GetSize() >= 1);
        TQM_FUZZ_CHECK(maxSplits < 0 || pieces.GetSize() <= maxSplits + 1);
        TQM_FUZZ_CHECK(std::string(TQMJoinArray(pieces, set)) == text);
    }

    CString code, comment;
    tqm::SplitCodeAndComment(text.c_str(), code, comment);
    if (code.GetLength() < static_cast<int>(text.size()))
        TQM_FUZZ_CHECK(std::string(code) + ";" + std::string(comment) == text);
    return 0;
}

void TqmFuzzSeeds(tqmfuzz::Seeds& seeds)
{
    seeds.Add("csv", ",a,,b,\"c,d\",'e,f'");
    seeds.Add("comment", ";x := 'a;b' ; note \"q;\" <';' end");
    seeds.Add("quotes", ",'<'',x\",<\",y");
}

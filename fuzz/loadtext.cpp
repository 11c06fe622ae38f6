// Texts that reach a program from others: the load test's checked texts as
// tqm pm --check receives them, and file names read from a folder taken for
// a document's temporary files.
#include "FuzzSupport.h"
#include "config/logic/ReplacementNames.h"
#include "tools/tqm/LoadPayload.h"

#include <string.h>

#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const char* text = reinterpret_cast<const char*>(data);
    tqmtool::LoadHead head;
    if (tqmtool::CheckLoadText(text, size, &head)) {
        // A text that checks is exactly the one its head makes.
        TQM_FUZZ_CHECK(tqmtool::MakeLoadText(head, size) == std::string(text, size));
    }

    const std::string name(text, strnlen(text, size));
    DWORD processId = 0;
    if (tqm::ParseReplacementTempName(name.c_str(), "Doc.ini", &processId)) {
        TQM_FUZZ_CHECK(name.size() > strlen("Doc.ini.~0-0.tmp") - 1);
        TQM_FUZZ_CHECK(tqm::ParseReplacementTempName(tqm::ReplacementTempName("Doc.ini", processId, 1).c_str(),
                                                     "Doc.ini", &processId));
    }
    return 0;
}

void TqmFuzzSeeds(tqmfuzz::Seeds& seeds)
{
    tqmtool::LoadHead head;
    head.kind = 'Q';
    head.sender = 3;
    head.seq = 17;
    head.extra = 500;
    seeds.Add("request", tqmtool::MakeLoadText(head, 120));
    seeds.Add("tempname", tqm::ReplacementTempName("Doc.ini", 0x1A2B, 3));
}

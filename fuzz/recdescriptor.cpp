// The record file's descriptor text: whatever reads, formats and reads again
// to the same numbers, and a second round changes nothing more. (The
// description is read from four characters behind the last colon, where the
// two digits of the seconds end: a colon in the description, or seconds
// above 99, move it. Deliberate.)
#include "FuzzSupport.h"
#include "datafiles/logic/RecordDescriptor.h"

#include <tuple>

namespace {

auto fields(const tqm::RecordDescriptor& d)
{
    return std::tie(d.fileType, d.version, d.day, d.month, d.year, d.hour, d.minute, d.second, d.description);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    tqm::RecordDescriptor first;
    if (!tqm::ParseRecordDescriptor(reinterpret_cast<const char*>(data), size, first))
        return 0;
    std::string text = tqm::FormatRecordDescriptor(first);
    tqm::RecordDescriptor second;
    TQM_FUZZ_CHECK(tqm::ParseRecordDescriptor(text.c_str(), text.size() + 1, second));
    TQM_FUZZ_CHECK(second.fileType == first.fileType && second.version == first.version);
    TQM_FUZZ_CHECK(second.year == first.year && second.second == first.second);
    std::string again = tqm::FormatRecordDescriptor(second);
    tqm::RecordDescriptor third;
    TQM_FUZZ_CHECK(tqm::ParseRecordDescriptor(again.c_str(), again.size() + 1, third));
    if (second.description.find(':') == std::string::npos && second.second < 100)
        TQM_FUZZ_CHECK(fields(third) == fields(second));
    else
        TQM_FUZZ_CHECK(third.fileType == second.fileType && third.second == second.second);
    return 0;
}

void TqmFuzzSeeds(tqmfuzz::Seeds& seeds)
{
    seeds.Add("plain", "2\n1\n06/05/2024 07:08:09\nA seed file\n");
    seeds.Add("oddities", " +7\n-1\n6/5/24 7:8:9\nkey: value  \n");
}

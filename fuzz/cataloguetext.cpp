// The catalogue's small texts over any bytes: version texts (a well-formed
// one reads back to the same number when written dotted), counts, numbered
// entry names, and list blocks (encoded and decoded to the same strings).
#include "FuzzSupport.h"
#include "libcatalog/logic/LibraryVersion.h"
#include "libcatalog/logic/ListBlock.h"
#include "libcatalog/logic/NumberedEntries.h"

#include <stdio.h>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    const char* p = text.c_str();  // up to the first NUL, as callers pass it

    uint32_t value = 0xdeadbeef;
    const bool wellFormed = tqm::ParseLibraryVersion(p, &value);
    TQM_FUZZ_CHECK(value <= 999999999u);
    if (wellFormed) {
        char dotted[32];
        snprintf(dotted, sizeof(dotted), "%u.%u.%u", value / 1000000, value / 1000 % 1000, value % 1000);
        uint32_t again = 0;
        TQM_FUZZ_CHECK(tqm::ParseLibraryVersion(dotted, &again) && again == value);
    }

    uint32_t number = 0;
    if (tqm::ParseNumberedName(p, "File", tqm::ini::NameFold(), &number)) {
        char name[32];
        snprintf(name, sizeof(name), "FILE%u", number);
        TQM_FUZZ_CHECK(tqm::ini::NameFold().Equal(name, p));
    }
    const uint32_t count = tqm::ParseCount(p);
    std::vector<uint32_t> present;
    for (size_t i = 0; i + 1 < size && present.size() < 64; i += 2)
        present.push_back(present.empty() ? data[i] : present.back() + 1 + data[i]);
    uint32_t visits = 0;
    uint32_t last = 0;
    const uint32_t skipped = tqm::WalkNumberedEntries(count, present, [&](uint32_t n, bool) {
        TQM_FUZZ_CHECK(n < count && (visits == 0 || n > last));
        last = n;
        ++visits;
    });
    TQM_FUZZ_CHECK(static_cast<uint64_t>(visits) + skipped == count);

    std::vector<std::string> items;
    for (size_t start = 0; start < size;) {
        const size_t nul = text.find('\0', start);
        const size_t end = nul == std::string::npos ? size : nul;
        if (end > start)
            items.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    const std::string block = tqm::EncodeListBlock(items);
    TQM_FUZZ_CHECK(tqm::DecodeListBlock(block.data(), block.size()) == items);
    tqm::DecodeListBlock(text.data(), text.size());
    return 0;
}

void TqmFuzzSeeds(tqmfuzz::Seeds& seeds)
{
    seeds.Add("dotted", "V2.1.30");
    seeds.Add("nine", "002001030");
    seeds.Add("numbered", "file12");
    seeds.Add("count", "4000000000");
    seeds.Add("list", std::string("a\0bc\0\0", 6));
}

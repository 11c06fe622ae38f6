// The object-file reader over any bytes: it ends with a fault or with the
// names, never reads outside them, and what it finds in a damaged file is
// always where a whole file has it. Beside that, object files written from
// the input's bytes read back to the names written.
#include "FuzzSupport.h"
#include "libcatalog/logic/ObjectFile.h"
#include "libcatalog/logic/ObjectFileWriter.h"

#include <algorithm>

namespace {

void checkNames(const tqm::ObjectFileNames& result, size_t size)
{
    for (const std::string& name : result.names) {
        TQM_FUZZ_CHECK(name.size() < tqm::kObjectFileStringSize);
        TQM_FUZZ_CHECK(name.find('\0') == std::string::npos);
    }
    // Every name takes at least its NUL.
    TQM_FUZZ_CHECK(result.names.size() <= size);
    if (result.fault == tqm::ObjectFileFault::UnsupportedVersion)
        TQM_FUZZ_CHECK(result.names.empty() && result.version < tqm::kLowestObjectFileVersion);
}

// A layout made from the input: version, header size, and names cut from
// the bytes at each byte below 16.
tqm::ObjectFileLayout layoutFrom(const uint8_t* data, size_t size)
{
    tqm::ObjectFileLayout layout;
    layout.version = tqm::kLowestObjectFileVersion + data[0] % 50;
    layout.shortHeader = data[0] & 0x80;
    layout.dependencySection = data[0] & 0x40;
    std::string name;
    size_t field = 0;
    for (size_t i = 1; i < size; ++i) {
        if (data[i] >= 16 && name.size() < tqm::kObjectFileStringSize - 1) {
            name += static_cast<char>(data[i]);
            continue;
        }
        if (++field % 3 == 0)
            layout.references.push_back({"symbol", name});
        else
            layout.dependencies.push_back(name);
        name.clear();
    }
    return layout;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const tqm::ObjectFileNames result = tqm::ReadObjectFileNames(data, size);
    checkNames(result, size);
    // A file cut short gives no more than the whole file, and the same names first.
    if (size > 0) {
        const tqm::ObjectFileNames cut = tqm::ReadObjectFileNames(data, size / 2);
        checkNames(cut, size / 2);
        if (result.fault == tqm::ObjectFileFault::None) {
            TQM_FUZZ_CHECK(cut.names.size() <= result.names.size());
            TQM_FUZZ_CHECK(std::equal(cut.names.begin(), cut.names.end(), result.names.begin()));
        }
    }

    if (size == 0)
        return 0;
    const tqm::ObjectFileLayout layout = layoutFrom(data, size);
    const std::vector<uint8_t> written = tqm::WriteObjectFile(layout);
    const tqm::ObjectFileNames back = tqm::ReadObjectFileNames(written.data(), written.size());
    TQM_FUZZ_CHECK(back.fault == tqm::ObjectFileFault::None);
    std::vector<std::string> expected;
    if (layout.dependencySection)
        expected = layout.dependencies;
    const unsigned words = tqm::ObjectFileHeaderWords(layout.version) - (layout.shortHeader && layout.version == 220 ? 8 : 0);
    if (words > tqm::kReferenceListWord) {
        for (const auto& reference : layout.references)
            expected.push_back(reference.second);
    }
    TQM_FUZZ_CHECK(back.names == expected);
    return 0;
}

void TqmFuzzSeeds(tqmfuzz::Seeds& seeds)
{
    tqm::ObjectFileLayout layout;
    layout.dependencies = {"Motion.src", "Types.inc"};
    layout.references = {{"CamTable", "CamData.bin"}};
    std::vector<uint8_t> bytes = tqm::WriteObjectFile(layout);
    seeds.Add("v220", std::string(bytes.begin(), bytes.end()));
    layout.shortHeader = true;
    bytes = tqm::WriteObjectFile(layout);
    seeds.Add("v220-short-header", std::string(bytes.begin(), bytes.end()));
    layout.version = 210;
    bytes = tqm::WriteObjectFile(layout);
    seeds.Add("v210", std::string(bytes.begin(), bytes.end()));
}

// Path tags: a path below one of the suite's directories, substituted and
// expanded again, is the path again (with the directory's letter case); and
// any text survives both directions.
#include "FuzzSupport.h"
#include "paths/logic/PathTagRules.h"

#include <string.h>
#include <strings.h>

#include <string>

namespace {

CString directoryOf(tqm::PathTagDir dir)
{
    switch (dir) {
    case tqm::PathTagDir::Programs: return "C:\\Program Files";
    case tqm::PathTagDir::Templates: return "C:\\Program Files\\QM5\\Templates";
    case tqm::PathTagDir::Libs: return "C:\\QM5\\Libs";
    case tqm::PathTagDir::Projects: return "D:\\Projects";
    case tqm::PathTagDir::User: return "C:\\Users\\u\\AppData\\Local\\QM5";
    case tqm::PathTagDir::Local: return "";
    case tqm::PathTagDir::Apps: return "E:\\QM5\\Bin";
    case tqm::PathTagDir::AppsParent: return "E:\\QM5";
    case tqm::PathTagDir::Docs: return "E:\\QM5\\Docs";
    }
    return "";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string path(reinterpret_cast<const char*>(data), strnlen(reinterpret_cast<const char*>(data), size));
    const tqm::PathTagDirLookup lookup = directoryOf;

    const CString tagged = tqm::SubstPathTags(path.c_str(), lookup);
    const CString expanded = tqm::UnSubstPathTags(tagged, lookup);
    // A tag followed by a separator or by nothing comes back as it went.
    const char* close = strchr(tagged, '>');
    const std::string rest = close ? close + 1 : "";
    if (std::string(tagged) != path && (rest.empty() || rest[0] == '\\')) {
        TQM_FUZZ_CHECK(static_cast<size_t>(expanded.GetLength()) == path.size());
        TQM_FUZZ_CHECK(strcasecmp(expanded, path.c_str()) == 0);
        TQM_FUZZ_CHECK(std::string(expanded).compare(path.size() - rest.size(), std::string::npos, rest) == 0);
    }

    const CString device = tqm::SubstPathTags(path.c_str(), "D:\\Projects\\P1", "D:\\Projects\\P1\\CPU", lookup);
    tqm::UnSubstPathTags(device, "D:\\Projects\\P1", "D:\\Projects\\P1\\CPU", lookup);
    tqm::UnSubstPathTags(path.c_str(), nullptr, "", lookup);
    return 0;
}

void TqmFuzzSeeds(tqmfuzz::Seeds& seeds)
{
    seeds.Add("libs", "c:\\qm5\\libs\\Std\\motion.obl");
    seeds.Add("programs", "C:\\PROGRAM FILES\\Tarn-Holmvik\\QM5_20\\x");
    seeds.Add("tagged", "<$StdLibDir>\\a.x");
    seeds.Add("project", "D:\\Projects\\P1\\CPU\\main.src");
}

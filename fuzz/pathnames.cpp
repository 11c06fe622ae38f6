// Path names: the check of the suite's name rules, and the conversions
// between full and relative paths, on any two texts.
#include "FuzzSupport.h"
#include "paths/logic/PathNameRules.h"
#include "paths/logic/PathText.h"

#include <string.h>

#include <string>

namespace {

bool startsWith(const CString& text, const CString& prefix)
{
    return strncmp(text, prefix, static_cast<size_t>(prefix.GetLength())) == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    // Two texts: a base folder and a path, split at the first NUL.
    const std::string input(reinterpret_cast<const char*>(data), size);
    const size_t nul = input.find('\0');
    const std::string base = nul == std::string::npos ? std::string("C:\\Projects\\Plant") : input.substr(0, nul);
    const std::string rest = nul == std::string::npos ? input : input.substr(nul + 1);
    const std::string path(rest.c_str());

    static const tqm::NameLetters letters;  // ASCII: this build has no code page
    for (bool wildcards : {false, true}) {
        tqm::PathNameVerdict verdict = tqm::CheckPathName(path.c_str(), wildcards, letters);
        TQM_FUZZ_CHECK(verdict.position >= -1 && verdict.position < static_cast<int>(path.size()));
        TQM_FUZZ_CHECK(verdict.valid() == (verdict.position == -1 && verdict.fault == tqm::PathNameFault::None));
        TQM_FUZZ_CHECK(tqm::DescribePathNameFault(verdict.fault) != nullptr);
    }

    const CString parent = tqm::ParentDir(path.c_str());
    TQM_FUZZ_CHECK(startsWith(path.c_str(), parent));
    const CString stripped = tqm::WithoutTrailingBackslashes(path.c_str());
    TQM_FUZZ_CHECK(stripped.IsEmpty() || stripped[stripped.GetLength() - 1] != '\\');

    const CString full = tqm::ResolveFullPath(base.c_str(), path.c_str());
    tqm::FinishRelativePath(full, path.c_str());
    tqm::ChangeFileExt(path.c_str(), ".lin");
    const CString name = tqm::FileNameOf(path.c_str());
    TQM_FUZZ_CHECK(name.GetLength() <= static_cast<int>(path.size()));
    return 0;
}

void TqmFuzzSeeds(tqmfuzz::Seeds& seeds)
{
    seeds.Add("relative", std::string("C:\\base\\sub\0..\\x\\file.lin", 25));
    seeds.Add("unc", std::string("\\\\srv\\d\0\\\\server\\share\\x", 24));
    seeds.Add("names", "C:\\Projects\\Plant 1\\COM1.txt");
    seeds.Add("dots", std::string("D:\\a\0.\\..\\a..b\\.x\\", 18));
}

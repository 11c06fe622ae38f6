// Finding and explaining the line an INI document stopped reading at.
#include "tools/tqm/IniReport.h"

#include "config/logic/IniText.h"
#include "framework/FileBytes.h"
#include "tools/tqm/Printable.h"

#include <string.h>

#include <vector>

namespace tqmtool {
namespace {

// The zero-based line as the document's reader takes it: a long line comes in
// pieces of kLineBufferSize - 1 characters, each counted as a line.
bool readLineAt(const char* path, int nLine, std::string& text)
{
    tqm::FileView bytes;
    if (!bytes.Open(path))
        return false;
    tqm::ini::IniTextLines lines(bytes.data(), bytes.size());
    std::vector<char> line(tqm::ini::kLineBufferSize);
    for (int i = 0; size_t n = lines.Next(line.data(), line.size() - 1); ++i) {
        if (i == nLine) {
            text.assign(line.data(), n);
            while (!text.empty() && (text.back() == '\n' || text.back() == '\r'))
                text.pop_back();
            return true;
        }
    }
    return false;
}

// The reader's own rules, applied to the offending line once more.
std::string reasonFor(std::string text, bool bHadSection)
{
    using namespace tqm::ini;
    std::vector<char> line(text.begin(), text.end());
    line.push_back('\0');
    char* p = SkipBlanks(line.data());
    if (ClassifyLine(p, Reader::Document) == LineKind::Header) {
        const char* close = strchr(p, ']');
        return close ? "section header without a name" : "section header without \"]\"";
    }
    if (!bHadSection)
        return "entry before the first section header";
    char* name = nullptr;
    char* value = nullptr;
    switch (ParseEntryLine(p, &name, &value)) {
    case EntryParse::NoEquals:
        return "entry line without \"=\"";
    case EntryParse::EmptyName:
        return "entry without a name";
    default:
        return "malformed line";
    }
}

}  // namespace

IniReadFailure DescribeReadFailure(const char* path, CTQMIniFile& ini)
{
    IniReadFailure failure;
    int nLine = ini.GetErrLine();
    if (nLine < 0 || !readLineAt(path, nLine, failure.text))
        return failure;
    failure.bOpened = true;
    failure.nLine = nLine + 1;
    failure.reason = reasonFor(failure.text, ini.GetNumSections() > 0);
    return failure;
}

std::string FormatReadFailure(const std::string& displayName, const IniReadFailure& failure)
{
    if (!failure.bOpened)
        return "cannot read " + displayName;
    return displayName + ":" + std::to_string(failure.nLine) + ": " + failure.reason + ": " + Printable(failure.text.data(), failure.text.size(), 80);
}

}  // namespace tqmtool

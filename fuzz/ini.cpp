// The INI document's text: reading, writing and reading again gives the same
// document - head comment, sections, entries and values - in the strict and
// the tolerant reading alike.
#include "FuzzSupport.h"
#include "config/logic/IniText.h"

#include <string>
#include <utility>
#include <vector>

namespace {

struct Document : tqm::ini::IniTextHandler
{
    std::string comment;
    std::vector<std::pair<std::string, std::vector<std::pair<std::string, std::string>>>> sections;

    void OnComment(const char* line, size_t length) override
    {
        TQM_FUZZ_CHECK(sections.empty());
        // Each line ends with its line feed, but for a piece of a long line
        // cut off at the reading buffer's length.
        TQM_FUZZ_CHECK(length > 0 &&
                       (line[length - 1] == '\n' || length == size_t(tqm::ini::kLineBufferSize - 1)));
        comment.append(line, length);
    }
    void OnSection(const char* name) override { sections.push_back({name, {}}); }
    void OnEntry(const char* name, const char* value) override
    {
        TQM_FUZZ_CHECK(!sections.empty());
        sections.back().second.push_back({name, value});
    }
    bool operator==(const Document& o) const { return comment == o.comment && sections == o.sections; }
};

tqm::ini::IniTextWriter written(const Document& doc)
{
    tqm::ini::IniTextWriter text;
    text.Comment(doc.comment.c_str());
    for (const auto& section : doc.sections) {
        text.Section(section.first.c_str());
        for (const auto& entry : section.second)
            text.Entry(entry.first.c_str(), entry.second.c_str());
        text.EndSection();
    }
    return text;
}

tqm::ini::IniTextResult roundTrip(const uint8_t* data, size_t size, bool tolerant)
{
    Document first;
    tqm::ini::IniTextResult read =
        tqm::ini::ParseIniText(reinterpret_cast<const char*>(data), size, tolerant, first);
    TQM_FUZZ_CHECK(read.lastLine >= -1);
    tqm::ini::IniTextWriter text = written(first);
    if (text.LinesCut() > 0)
        return read;  // a line over the writer's limit does not read back whole, by design
    Document second;
    tqm::ini::IniTextResult again = tqm::ini::ParseIniText(text.Bytes().data(), text.Bytes().size(), false, second);
    TQM_FUZZ_CHECK(again.ok);
    TQM_FUZZ_CHECK(second == first);
    return read;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    tqm::ini::IniTextResult strict = roundTrip(data, size, false);
    tqm::ini::IniTextResult tolerant = roundTrip(data, size, true);
    // The tolerant reader skips some faults and stops at the others.
    TQM_FUZZ_CHECK(strict.ok ? tolerant.ok && tolerant.lastLine == strict.lastLine
                             : tolerant.ok || tolerant.lastLine >= strict.lastLine);
    return 0;
}

void TqmFuzzSeeds(tqmfuzz::Seeds& seeds)
{
    seeds.Add("library.lin", "; Library description\r\n# written by hand\r\n\r\n[Library]\r\nName = Motion\r\n"
                             "Version=2.1.0\r\nFormula=a=b+c\r\n\r\n[Files]\r\nFile0=<$LibsDir>\\Std\\motion.obl\r\n");
    seeds.Add("odd.ini", "[ S ]\rx\r\nk\x01=\xE9v\r\n[S]\r\nK=2\r\n// c\r\n=no\r\n\x1A[T]\r\n");
    seeds.Add("long.ini", "; " + std::string(3100, 'c') + "\n[S]\nk=" + std::string(1100, 'v') + "\n");
}

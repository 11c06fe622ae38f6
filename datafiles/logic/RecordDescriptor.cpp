// Formatting and reading of the descriptor text.
//
// Reading follows the rules of the C library's scanf for the format
// "%u\n%u\n%u/%u/%u %u:%u:%u\n", with which the files have always been read:
// a blank in the format skips any run of white space (also none), a number
// may have white space and a sign in front of it, other characters must
// match exactly.
#include "datafiles/logic/RecordDescriptor.h"

#include <stdio.h>
#include <string.h>

namespace tqm {
namespace {

bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// Reads the descriptor text in scanf's manner, one directive at a time.
class DescriptorScanner
{
public:
    explicit DescriptorScanner(const std::string& text) : m_text(text) {}

    bool literal(char c)
    {
        if (m_pos >= m_text.size() || m_text[m_pos] != c)
            return false;
        ++m_pos;
        return true;
    }

    // A "%u": blanks, an optional sign, at least one digit. A minus sign
    // negates in unsigned arithmetic and an overlong number wraps, as the
    // runtime's conversion does.
    bool number(uint32_t& value)
    {
        while (m_pos < m_text.size() && isBlank(m_text[m_pos]))
            ++m_pos;
        bool negative = false;
        if (m_pos < m_text.size() && (m_text[m_pos] == '+' || m_text[m_pos] == '-'))
            negative = m_text[m_pos++] == '-';
        size_t start = m_pos;
        uint32_t v = 0;
        while (m_pos < m_text.size() && m_text[m_pos] >= '0' && m_text[m_pos] <= '9')
            v = v * 10 + uint32_t(m_text[m_pos++] - '0');
        if (m_pos == start)
            return false;
        value = negative ? 0u - v : v;
        return true;
    }

private:
    const std::string& m_text;
    size_t m_pos = 0;
};

// The description begins four characters behind the text's last colon (the
// colon, two digits of seconds, the line feed) and loses trailing blanks. A
// description with a colon of its own therefore reads back as what follows
// three characters behind its last colon: deliberate, stored files were read
// this way.
std::string descriptionOf(const std::string& text)
{
    size_t colon = text.rfind(':');
    if (colon == std::string::npos)
        return std::string();
    // Seconds written with one digit would put the start behind the end of the
    // text; there is no description then.
    size_t start = colon + 4;
    if (start > text.size())
        return std::string();
    size_t end = text.size();
    while (end > start && isBlank(text[end - 1]))
        --end;
    return text.substr(start, end - start);
}

}  // namespace

std::string FormatRecordDescriptor(const RecordDescriptor& d)
{
    char head[128];
    snprintf(head, sizeof(head), "%u\n%u\n%02u/%02u/%u %02u:%02u:%02u\n", unsigned(d.fileType),
             unsigned(d.version), unsigned(d.day), unsigned(d.month), unsigned(d.year), unsigned(d.hour),
             unsigned(d.minute), unsigned(d.second));
    return head + d.description + "\n";
}

bool ParseRecordDescriptor(const char* text, size_t length, RecordDescriptor& d)
{
    std::string s(text, strnlen(text, length));
    DescriptorScanner scan(s);
    RecordDescriptor r;
    // The blanks of the format ("\n", " ") need no step of their own: a
    // number skips the blanks in front of it anyway.
    bool ok = scan.number(r.fileType) && scan.number(r.version) && scan.number(r.day) && scan.literal('/') &&
              scan.number(r.month) && scan.literal('/') && scan.number(r.year) && scan.number(r.hour) &&
              scan.literal(':') && scan.number(r.minute) && scan.literal(':') && scan.number(r.second);
    if (!ok)
        return false;
    // A year written with two digits counts from 2000.
    if (r.year < 100)
        r.year += 2000;
    r.description = descriptionOf(s);
    d = r;
    return true;
}

}  // namespace tqm

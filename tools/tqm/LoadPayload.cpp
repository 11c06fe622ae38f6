// The load test's texts.
#include "tools/tqm/LoadPayload.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

namespace tqmtool {
namespace {

const char kBodyChars[] = "abcdefghijklmnopqrstuvwxyz0123456789";

// FNV-1a, 32 bits: enough to tell a damaged text from a whole one.
unsigned long checksum(const char* data, size_t size, unsigned long hash = 2166136261ul)
{
    for (size_t i = 0; i < size; ++i)
        hash = ((hash ^ static_cast<unsigned char>(data[i])) * 16777619ul) & 0xFFFFFFFFul;
    return hash;
}

std::string headText(const LoadHead& head)
{
    char text[64];
    snprintf(text, sizeof(text), "%c %lu %lu %lu ", head.kind, head.sender, head.seq, head.extra);
    return text;
}

// The body's characters follow from the head, so that a body of another
// text fails even where its checksum was copied along.
void fillBody(std::string& text, size_t from)
{
    unsigned long state = checksum(text.data(), from) | 1;
    for (size_t i = from; i < text.size(); ++i) {
        state = (state * 1103515245ul + 12345ul) & 0xFFFFFFFFul;
        text[i] = kBodyChars[(state >> 16) % (sizeof(kBodyChars) - 1)];
    }
}

bool readNumber(const char*& p, const char* end, unsigned long* pValue)
{
    const char* start = p;
    unsigned long value = 0;
    while (p < end && *p >= '0' && *p <= '9' && p - start < 10)
        value = value * 10 + static_cast<unsigned long>(*p++ - '0');
    if (p == start || p >= end || *p != ' ')
        return false;
    ++p;
    *pValue = value;
    return true;
}

}  // namespace

std::string MakeLoadText(const LoadHead& head, size_t size)
{
    std::string text = headText(head);
    const size_t headSize = text.size();
    text.append(9, ':');
    if (size > text.size())
        text.resize(size);
    fillBody(text, headSize + 9);
    char sum[9];
    snprintf(sum, sizeof(sum), "%08lX", checksum(text.data() + headSize + 9, text.size() - headSize - 9,
                                                 checksum(text.data(), headSize)));
    memcpy(&text[headSize], sum, 8);
    return text;
}

bool CheckLoadText(const char* text, size_t size, LoadHead* pHead)
{
    const char* p = text;
    const char* end = text + size;
    LoadHead head;
    if (size < 2 || text[0] == 0 || !strchr("PIMQR", text[0]) || text[1] != ' ')
        return false;
    head.kind = text[0];
    p += 2;
    if (!readNumber(p, end, &head.sender) || !readNumber(p, end, &head.seq) || !readNumber(p, end, &head.extra))
        return false;
    const size_t headSize = static_cast<size_t>(p - text);
    if (size < headSize + 9 || text[headSize + 8] != ':')
        return false;
    // The head must be the one MakeLoadText writes (no leading zeros).
    if (headText(head) != std::string(text, headSize))
        return false;
    std::string expected = MakeLoadText(head, size);
    if (expected.compare(0, std::string::npos, text, size) != 0)
        return false;
    *pHead = head;
    return true;
}

}  // namespace tqmtool

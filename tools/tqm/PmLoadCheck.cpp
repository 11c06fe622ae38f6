// The stand-in's checking of the load test's texts.
#include "tools/tqm/PmLoadCheck.h"

#include "tools/tqm/ListenerWindow.h"

#include <stdio.h>

#include <algorithm>

namespace tqmtool {

void PmLoadCheck::count(char kind, const std::string& text, LoadHead* pHead)
{
    LoadHead head;
    Counts& counts = m_counts[kind];
    if (!CheckLoadText(text.data(), text.size(), &head) || head.kind != kind) {
        if (counts.damaged++ < 3)
            m_samples.push_back(std::string(1, kind) + ": " + PrintableText(text.data(), std::min<size_t>(text.size(), 80)) +
                                " (" + std::to_string(text.size()) + " characters)");
        return;
    }
    if (!m_seen.insert(std::make_tuple(kind, head.sender, head.seq)).second) {
        ++counts.repeated;
        return;
    }
    ++counts.whole;
    if (pHead)
        *pHead = head;
}

void PmLoadCheck::Saved(const std::string& path, const std::string& info)
{
    count('P', path);
    count('I', info);
}

void PmLoadCheck::Message(const std::string& text) { count('M', text); }

std::string PmLoadCheck::Request(const std::string& request)
{
    LoadHead head;
    head.kind = 0;
    count('Q', request, &head);
    if (head.kind != 'Q')
        return std::string();
    LoadHead reply = head;
    reply.kind = 'R';
    return MakeLoadText(reply, head.extra);
}

void PmLoadCheck::PrintCounts() const
{
    for (char kind : {'P', 'I', 'M', 'Q'}) {
        auto it = m_counts.find(kind);
        const Counts counts = it == m_counts.end() ? Counts() : it->second;
        printf("checked %c: %lu whole, %lu damaged, %lu repeated\n", kind, counts.whole, counts.damaged,
               counts.repeated);
    }
    for (const std::string& sample : m_samples)
        printf("damaged %s\n", sample.c_str());
    fflush(stdout);
}

}  // namespace tqmtool

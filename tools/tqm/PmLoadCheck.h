// PmLoadCheck - tqm pm --check: instead of printing what arrives, checks
// every text against the load test's format (LoadPayload.h), counts the
// whole, damaged and repeated ones per kind, answers each exchange request
// with the reply it asks for, and prints the counts when the stand-in ends.
#pragma once

#include "tools/tqm/LoadPayload.h"

#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace tqmtool {

class PmLoadCheck
{
public:
    // A saved file's path and info, a message line, or an exchange request:
    // counted and checked. A request's reply is returned (empty for a
    // request that is damaged: it gets an empty reply).
    void Saved(const std::string& path, const std::string& info);
    void Message(const std::string& text);
    std::string Request(const std::string& request);

    // "checked KIND: N whole, N damaged, N repeated" for P, I, M and Q, then
    // "damaged KIND: TEXT (N characters)" for the first three damaged texts
    // of each kind, their first 80 characters.
    void PrintCounts() const;

private:
    void count(char kind, const std::string& text, LoadHead* pHead = nullptr);

    struct Counts
    {
        unsigned long whole = 0;
        unsigned long damaged = 0;
        unsigned long repeated = 0;
    };
    std::map<char, Counts> m_counts;
    std::set<std::tuple<char, unsigned long, unsigned long>> m_seen;
    std::vector<std::string> m_samples;  // the first damaged texts of each kind, to print
};

}  // namespace tqmtool

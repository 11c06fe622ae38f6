// tqm doctor [--json] [--only GROUP]
#include "tools/tqm/Command.h"
#include "tools/tqm/Doctor.h"

#include <windows.h>

#include <io.h>
#include <stdio.h>

#include <algorithm>

namespace tqmtool {
namespace {

using namespace doctor;

// The progress line on stderr, on a terminal only: rewritten in place at most
// ten times a second, and erased when the walk is over.
class ProgressLine
{
public:
    ProgressLine() : m_enabled(_isatty(_fileno(stderr)) != 0) {}
    ~ProgressLine() { Erase(); }
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    Progress Callback()
    {
        if (!m_enabled)
            return Progress();
        return [this](const char* what, size_t done, size_t total, const std::string& folder) {
            show(what, done, total, folder);
        };
    }

    void Erase()
    {
        if (m_width) {
            fprintf(stderr, "\r%*s\r", static_cast<int>(m_width), "");
            fflush(stderr);
            m_width = 0;
        }
    }

private:
    void show(const char* what, size_t done, size_t total, const std::string& folder)
    {
        const DWORD now = GetTickCount();
        if (m_width && now - m_lastShown < 100)
            return;
        m_lastShown = now;
        std::string line =
            std::string(what) + " " + std::to_string(done + 1) + "/" + std::to_string(total) + "  " + folder;
        const size_t limit = 78;  // one line of a standard console
        if (line.size() > limit)
            line = line.substr(0, 20) + "..." + line.substr(line.size() - (limit - 23));
        fprintf(stderr, "\r%-*s", static_cast<int>(m_width), line.c_str());
        fflush(stderr);
        m_width = std::max(m_width, line.size());
    }

    bool m_enabled;
    size_t m_width = 0;
    DWORD m_lastShown = 0;
};

int runDoctor(const Args& args)
{
    bool json = false;
    bool hasOnly = false;
    Group only = Group::Directories;
    for (size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--json") {
            json = true;
        } else if (args[i] == "--only") {
            if (i + 1 == args.size())
                return UsageError("doctor", "--only needs a group");
            if (!ParseGroup(args[++i], only))
                return UsageError("doctor", "unknown group %s (directories, settings, libraries, projects, conversion)",
                                  args[i].c_str());
            hasOnly = true;
        } else {
            return UsageError("doctor", "unexpected argument \"%s\"", args[i].c_str());
        }
    }
    const Group* group = hasOnly ? &only : nullptr;
    Findings findings;
    {
        ProgressLine progress;
        findings = RunDoctor(group, progress.Callback());
    }
    const std::string report = json ? FormatJson(findings, group) : FormatReport(findings, group);
    fwrite(report.data(), 1, report.size(), stdout);
    const Tally tally = CountFindings(findings);
    return tally.errors || tally.warnings ? kExitNegative : kExitOk;
}

}  // namespace

TQM_REGISTER_COMMAND({"doctor", "what is wrong with the installation, and why",
                      "usage: tqm doctor [--json] [--only GROUP]\n\n"
                      "Walks the whole installation through the library's own functions and\n"
                      "reports every problem it finds, one line each: severity (error, warning,\n"
                      "note), what it concerns (a path or a setting) and the reason. Findings come\n"
                      "under five headings, then a tally \"N errors, N warnings, N notes\":\n\n"
                      "  directories  every directory of the suite: there, writable, not removable\n"
                      "  settings     \"Global\" in the registry against QM5Global.ini; VMXOptions.ini\n"
                      "  libraries    file sets and their messages, duplicates set aside, help files\n"
                      "  projects     each project's libraries and how their paths are stored\n"
                      "  conversion   old libraries below the projects and libraries directories\n\n"
                      "  --json        the findings as one JSON document: severity, group, subject,\n"
                      "                reason, and the library's own message line or null\n"
                      "  --only GROUP  check one group only\n\n"
                      "On a terminal a progress line on stderr shows the walk. Exits 0 when there\n"
                      "is no error and no warning, 1 when there is, 2 on a usage error.\n",
                      runDoctor});

}  // namespace tqmtool

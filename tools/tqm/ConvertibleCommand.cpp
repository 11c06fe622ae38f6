// tqm convertible [--no-recurse] FOLDER... - old libraries that need converting.
#include "tools/tqm/CatalogueText.h"
#include "tools/tqm/Command.h"

#include "framework/Handles.h"
#include "libcatalog/ConvertibleLibraries.h"

#include <windows.h>

#include <stdio.h>

#include <atomic>

namespace tqmtool {
namespace {

constexpr int kExitInterrupted = 130;  // as shells report a program ended by Ctrl+C

std::atomic<bool> s_interrupted{false};

BOOL WINAPI onConsoleControl(DWORD type)
{
    if (type != CTRL_C_EVENT && type != CTRL_BREAK_EVENT)
        return FALSE;
    s_interrupted = true;
    TQMStopGetConvertableLibraries();
    return TRUE;
}

struct ScanJob
{
    std::string folder;
    BOOL recurse;
    HGLOBAL result;
};

DWORD WINAPI runScan(void* context)
{
    ScanJob* job = static_cast<ScanJob*>(context);
    job->result = TQMGetConvertableLibraries(job->folder.c_str(), job->recurse);
    return 0;
}

// Scans one folder on a worker thread while this one reports progress and
// passes a Ctrl+C on. False when the scan was stopped or failed.
bool scanFolder(ScanJob& job)
{
    fprintf(stderr, "scanning %s\n", job.folder.c_str());
    tqm::UniqueHandle thread(CreateThread(nullptr, 0, runScan, &job, 0, nullptr));
    if (!thread) {
        runScan(&job);
    } else {
        for (unsigned seconds = 1; WaitForSingleObject(thread.get(), 1000) == WAIT_TIMEOUT; ++seconds) {
            // A scan that started just after the Ctrl+C cleared the stop again.
            if (s_interrupted)
                TQMStopGetConvertableLibraries();
            else
                fprintf(stderr, "  still scanning %s (%u s)\n", job.folder.c_str(), seconds);
        }
    }
    if (!job.result || s_interrupted) {
        TakeListBlock(job.result);
        return false;
    }
    const std::vector<std::string> candidates = TakeListBlock(job.result);
    for (const std::string& candidate : candidates)
        printf("%s\n", candidate.c_str());
    fflush(stdout);
    fprintf(stderr, "  %zu candidate%s in %s\n", candidates.size(), candidates.size() == 1 ? "" : "s",
            job.folder.c_str());
    return true;
}

int runConvertible(const Args& args)
{
    BOOL recurse = TRUE;
    std::vector<std::string> folders;
    for (const std::string& arg : args) {
        if (arg == "--no-recurse")
            recurse = FALSE;
        else if (!arg.empty() && arg[0] == '-')
            return UsageError("convertible", "unknown option \"%s\"", arg.c_str());
        else
            folders.push_back(arg);
    }
    if (folders.empty())
        return UsageError("convertible", "a folder is needed");

    SetConsoleCtrlHandler(onConsoleControl, TRUE);
    for (const std::string& folder : folders) {
        ScanJob job{folder, recurse, nullptr};
        if (s_interrupted || !scanFolder(job)) {
            fprintf(stderr, "tqm: %s\n", s_interrupted ? "scan stopped" : "out of memory");
            return s_interrupted ? kExitInterrupted : kExitNegative;
        }
    }
    return kExitOk;
}

}  // namespace

TQM_REGISTER_COMMAND({"convertible", "old libraries that still need converting",
                      "usage: tqm convertible [--no-recurse] FOLDER...\n\n"
                      "Scans each FOLDER, and its subfolders unless --no-recurse, for libraries of\n"
                      "the previous generation: \".lin\" descriptions of Type Hpak, and family (\".dff\")\n"
                      "and definition (\".def\") files without a description of their own. Prints\n"
                      "each candidate's path; folders inside the libraries directory are skipped.\n"
                      "Progress goes to stderr.\n\n"
                      "Ctrl+C stops the scan (through the library's stop function) and exits 130.\n",
                      runConvertible});

}  // namespace tqmtool

// tqm demo [FOLDER]
#include "tools/tqm/Demo.h"

#include <windows.h>

#include <stdio.h>

#include <algorithm>
#include <vector>

namespace tqmtool {
namespace {

std::vector<DemoStep>& steps()
{
    static std::vector<DemoStep> all;
    return all;
}

std::string defaultDemoDir()
{
    char temp[MAX_PATH] = "";
    GetTempPathA(MAX_PATH, temp);
    std::string dir = temp;
    if (!dir.empty() && dir.back() == '\\')
        dir.pop_back();
    return dir + "\\Tqmlib52 demo";
}

bool libraryStep(const std::string&)
{
    HMODULE hLib = GetModuleHandleA("Tqmlib52.dll");
    char path[MAX_PATH] = "";
    GetModuleFileNameA(hLib, path, MAX_PATH);
    printf("Tqmlib52 loaded from %s (%u-bit build)\n", path, static_cast<unsigned>(sizeof(void*) * 8));
    return hLib != nullptr;
}
TQM_REGISTER_DEMO_STEP({0, "The library", libraryStep});

int runDemo(const Args& args)
{
    if (args.size() > 1)
        return UsageError("demo", "too many arguments");
    std::string dir = args.empty() ? defaultDemoDir() : args[0];
    while (dir.size() > 3 && (dir.back() == '\\' || dir.back() == '/'))
        dir.pop_back();
    CreateDirectoryA(dir.c_str(), nullptr);
    if (GetFileAttributesA(dir.c_str()) == INVALID_FILE_ATTRIBUTES)
        return Fail("cannot make the demo folder %s", dir.c_str());

    printf("Demo installation in %s\n", dir.c_str());
    std::vector<DemoStep> ordered = steps();
    std::stable_sort(ordered.begin(), ordered.end(),
                     [](const DemoStep& a, const DemoStep& b) { return a.order < b.order; });
    int failures = 0;
    for (const DemoStep& step : ordered) {
        printf("\n== %s ==\n", step.title);
        fflush(stdout);
        if (!step.run(dir)) {
            printf("(this step failed)\n");
            ++failures;
        }
        fflush(stdout);
    }
    return failures ? kExitNegative : kExitOk;
}

}  // namespace

bool RegisterDemoStep(const DemoStep& step)
{
    steps().push_back(step);
    return true;
}

TQM_REGISTER_COMMAND({"demo", "a tour of the library on a demo installation",
                      "usage: tqm demo [FOLDER]\n\n"
                      "Builds a small demo installation in FOLDER (default: \"Tqmlib52 demo\" in the\n"
                      "temporary folder) and shows what the library makes of it, area by area.\n",
                      runDemo});

}  // namespace tqmtool

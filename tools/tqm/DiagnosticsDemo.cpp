// The diagnostics step of "tqm demo": the trace channel, an assertion report
// and a system-error box answered through a hook, a hex dump line, and the
// string utilities the reports rest on.
#include "tools/tqm/BoxHook.h"
#include "tools/tqm/Demo.h"

#include "config/StringUtils.h"
#include "diag/DebugOutput.h"
#include "diag/ErrorReport.h"
#include "diag/MessageBoxHook.h"
#include "diag/TarnAssert.h"
#include "diag/logic/ReportText.h"
#include "res/StringIds.h"

#include <windows.h>

#include <stdio.h>
#include <string.h>

#include <algorithm>
#include <string>
#include <vector>

namespace tqmtool {
namespace {

// Prints a text with every line after the first indented under the first.
void printIndented(const char* text)
{
    for (const char* p = text; *p; ++p) {
        putchar(*p);
        if (*p == '\n' && p[1] && p[1] != '\n')
            fputs("      ", stdout);
    }
    if (!*text || text[strlen(text) - 1] != '\n')
        putchar('\n');
}

// While the demo runs its reports, boxes are printed on stdout (with the
// answer tqm gives) instead of going to stderr.
int CALLBACK printBox(HWND, const char* pszText, const char* pszCaption, UINT uType, void*)
{
    int answer = NonInteractiveBoxAnswer(uType);
    printf("  box [%s], answered %s:\n      ", pszCaption,
           answer == IDIGNORE ? "Ignore" : answer == IDOK ? "OK" : "Cancel");
    printIndented(pszText);
    return answer;
}

void showTraceChannel()
{
    HWND viewer = FindWindowA(TARN_TRACE_WINDOW_CLASS, nullptr);
    bool sent = TarnVerbose(TARN_VERBOSE_WARNING, "tqm demo: the diagnostics step runs");
    if (viewer)
        printf("A trace viewer runs (window %08lX): TarnVerbose returned %s; the demo's lines appear there.\n",
               static_cast<unsigned long>(reinterpret_cast<ULONG_PTR>(viewer)), sent ? "true" : "false");
    else
        printf("No trace viewer runs: TarnVerbose returned %s and the line was dropped.\n"
               "(Run \"tqm trace\" in another terminal to watch the reports.)\n",
               sent ? "true" : "false");
}

void showStringUtilities()
{
    std::vector<std::string> names = {"Valve10", "valve9", "Valve_B", "ValveA", "pump", "Valve9a"};
    std::sort(names.begin(), names.end(),
              [](const std::string& a, const std::string& b) { return TQMSymCmp(a.c_str(), b.c_str()) < 0; });
    printf("Symbol order (TQMSymCmp):");
    for (const std::string& name : names)
        printf(" %s", name.c_str());
    printf("\n");

    const char* list = "Motor,Pump,,Valve 2";
    CTQMTokenizer tok;
    printf("Tokens of \"%s\":", list);
    for (const char* t = tok.GetFirstToken(list, ',');; t = tok.GetNextToken()) {
        printf(" \"%s\"", t);
        if (!tok.HasMoreTokens())
            break;
    }
    printf("\n");

    const char* line = "MSG 'a;b' ; says a;b";
    CString code, comment;
    TQMSplitComment(line, code, comment);
    printf("Code and comment of \"%s\": \"%s\" and \"%s\"\n", line, code.GetString(), comment.GetString());
}

void showHexDump()
{
    const char sample[] = "Tqmlib52 trace demo\x01\x02\xFF";
    int length = static_cast<int>(sizeof(sample) - 1);
    printf("Hex dump of %d bytes, as the trace viewer receives it:\n", length);
    for (int offset = 0; offset < length; offset += tqm::kHexDumpBytesPerLine) {
        tqm::HexDumpLine line;
        tqm::FormatHexDumpLine(line, reinterpret_cast<const unsigned char*>(sample) + offset,
                               std::min(length - offset, tqm::kHexDumpBytesPerLine),
                               static_cast<unsigned long>(offset));
        printf("  %s", line.c_str());
    }
    TarnHexDump(reinterpret_cast<const BYTE*>(sample), length);
}

void showReports(const std::string& demoDir)
{
    TQMSetMessageBoxHook(printBox, nullptr);
    int librariesFound = 0;
    printf("A failed check, TARN_ASSERT(librariesFound > 0):\n");
    TARN_ASSERT(librariesFound > 0);
    printf("  ... and the code after it ran on.\n");

    std::string missing = demoDir + "\\missing.dat";
    printf("SystemError(NULL, %d, \"%s\", 0):\n", IDS_CANNOT_OPEN_FILE, missing.c_str());
    SystemError(nullptr, IDS_CANNOT_OPEN_FILE, missing.c_str(), 0);
    InstallToolBoxHook();
}

bool diagnosticsStep(const std::string& demoDir)
{
    showTraceChannel();
    showStringUtilities();
    showHexDump();
    showReports(demoDir);
    return true;
}

}  // namespace

TQM_REGISTER_DEMO_STEP({20, "Diagnostics", diagnosticsStep});

}  // namespace tqmtool

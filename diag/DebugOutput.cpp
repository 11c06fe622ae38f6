// Formatted boxes, verbose lines and hex dumps.
#include "diag/DebugOutput.h"

#include "diag/ProgramWindow.h"
#include "diag/TarnAssert.h"
#include "diag/TraceChannel.h"
#include "diag/logic/ReportText.h"
#include "framework/ModuleState.h"

#include <algorithm>
#include <memory>
#include <new>

namespace {

const int kBoxTextCapacity = 1024;
using BoxText = tqm::FixedText<kBoxTextCapacity>;

// A format from the program's resources, at most this long.
struct ProgramFormat
{
    // A missing string gives the empty format: the program's resources are
    // its own business, and the box or line still shows that something was
    // reported.
    explicit ProgramFormat(UINT nID) { ::LoadStringA(AfxGetResourceHandle(), nID, text, sizeof(text)); }
    char text[kBoxTextCapacity + 1] = "";
};

void showFormatted(const char* format, va_list args)
{
    // On the heap, as the box text has always been: a deep stack need not
    // carry a kilobyte for a debug box.
    std::unique_ptr<BoxText> text(new (std::nothrow) BoxText);
    if (!text) {
        tqm::ShowProgramMessageBox("Out of memory", MB_OK);
        return;
    }
    text->appendFormatV(format, args);
    tqm::ShowProgramMessageBox(text->c_str(), MB_OK);
}

bool sendVerbose(int nFlags, const char* format, va_list args, bool addLineFeed)
{
    tqm::ReportText line;
    tqm::AppendVerbosePrefix(line, nFlags, ::GetCurrentThreadId());
    line.appendFormatV(format, args);
    // Only the format-string form adds the line feed; the string-id form never
    // does. Deliberate: the two forms have always differed here.
    if (addLineFeed && (line.length() == 0 || line.c_str()[line.length() - 1] != '\n') &&
        line.length() + 1 < tqm::kReportCapacity)
        line.append("\n");
    auto receiver = tqm::VerboseGoesToProjectManager(nFlags) ? tqm::TraceReceiver::ProjectManager
                                                             : tqm::TraceReceiver::Viewer;
    return tqm::SendTrace(receiver, line.c_str(), line.length());
}

}  // namespace

void __cdecl TarnMessageBox(const char* pszFormat, ...)
{
    va_list args;
    va_start(args, pszFormat);
    showFormatted(pszFormat, args);
    va_end(args);
}

void __cdecl TarnMessageBox(UINT nFormatID, ...)
{
    ProgramFormat format(nFormatID);
    va_list args;
    va_start(args, nFormatID);
    showFormatted(format.text, args);
    va_end(args);
}

bool __cdecl TarnVerbose(int nFlags, const char* pszFormat, ...)
{
    va_list args;
    va_start(args, pszFormat);
    bool sent = sendVerbose(nFlags, pszFormat, args, true);
    va_end(args);
    return sent;
}

bool __cdecl TarnVerbose(int nFlags, UINT nFormatID, ...)
{
    ProgramFormat format(nFormatID);
    va_list args;
    va_start(args, nFormatID);
    bool sent = sendVerbose(nFlags, format.text, args, false);
    va_end(args);
    return sent;
}

bool WINAPI TarnHexDump(const BYTE* pData, int nLength)
{
    if (nLength <= 0)
        return true;
    TARN_ASSERT(pData != NULL);
    if (!pData)
        return false;
    bool allSent = true;
    // 64-bit steps: the offset after the last run may lie beyond INT_MAX.
    for (long long offset = 0; offset < nLength; offset += tqm::kHexDumpBytesPerLine) {
        int count = static_cast<int>(std::min<long long>(nLength - offset, tqm::kHexDumpBytesPerLine));
        tqm::HexDumpLine line;
        tqm::FormatHexDumpLine(line, pData + offset, count, static_cast<unsigned long>(offset));
        allSent = tqm::SendTrace(tqm::TraceReceiver::Viewer, line.c_str(), line.length()) && allSent;
    }
    return allSent;
}

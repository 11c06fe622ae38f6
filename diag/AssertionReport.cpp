// TarnDebug - the reporter behind TARN_ASSERT and TARN_VERIFY.
//
// A report goes to the trace viewer; the library's own macros then ask the
// user whether to abort. Only Abort stops anything: the caller's code after
// the check always runs otherwise.
#include "diag/ErrorReport.h"

#include "diag/ProgramWindow.h"
#include "diag/SystemMessage.h"
#include "diag/TraceChannel.h"
#include "diag/logic/ReportText.h"

namespace {

// What the runtime's abort gives as the exit code.
const UINT kAbortExitCode = 3;

void offerAbort(const tqm::ReportText& report)
{
    ::MessageBeep(MB_ICONHAND);
    int answer = tqm::ShowProgramMessageBox(report.c_str(), MB_ABORTRETRYIGNORE | MB_ICONHAND | MB_TASKMODAL);
    // At once, like the runtime's abort: no clean-up code of a program in an
    // inconsistent state gets to run.
    if (answer == IDABORT)
        ::TerminateProcess(::GetCurrentProcess(), kAbortExitCode);
}

}  // namespace

// The source is shown as the caller names it; the macros name their file
// without folder and extension (diag/TarnAssert.h).
bool WINAPI TarnDebug(const char* pszMacro, const char* pszExpr, const char* pszFile, int nLine)
{
    tqm::ReportText report;
    tqm::FormatAssertionReport(report, pszMacro, pszExpr, pszFile, nLine);
    bool sent = tqm::SendTrace(tqm::TraceReceiver::Viewer, report.c_str(), report.length());
    if (tqm::IsLibraryMacro(pszMacro)) {
        tqm::AppendSupportText(report, report.length());
        offerAbort(report);
    }
    return sent;
}

bool WINAPI TarnDebug(const char* pszMacro, const char* pszExpr, const char* pszFile, int nLine, DWORD dwError)
{
    tqm::SystemMessage reason(dwError);
    DWORD nReason = reason.length();
    tqm::ReportText report;
    tqm::FormatVerificationReport(report, pszMacro, pszExpr, pszFile, nLine, reason.text(), dwError);
    reason.release();

    // The trace message carries as many characters as the system's text had,
    // not the report's length: deliberate, trace viewers of the suite expect
    // it. Bounded by the report's buffer, whose unused bytes are NUL.
    int count = nReason < static_cast<DWORD>(tqm::kReportCapacity) ? static_cast<int>(nReason) : tqm::kReportCapacity;
    bool sent = tqm::SendTrace(tqm::TraceReceiver::Viewer, report.c_str(), count);
    if (tqm::IsLibraryMacro(pszMacro)) {
        tqm::AppendSupportText(report, count);
        offerAbort(report);
    }
    return sent;
}

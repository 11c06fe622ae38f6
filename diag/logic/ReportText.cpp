// Texts of the assertion reports, verbose lines and hex dumps.
#include "diag/logic/ReportText.h"

#include <string.h>

namespace tqm {

const char kSupportText[] =
    "\nPlease report this error to TARN-Holmvik support.\n\n"
    "(press RETRY or IGNORE to ignore this error and continue)";

void SourceNameOf(const char* path, char* out, size_t size)
{
    if (!out || size == 0)
        return;
    out[0] = '\0';
    if (!path)
        return;
    const char* name = path;
    for (const char* p = path; *p; ++p) {
        if (*p == '\\' || *p == '/' || *p == ':')
            name = p + 1;
    }
    const char* dot = strrchr(name, '.');
    size_t n = dot && dot != name ? static_cast<size_t>(dot - name) : strlen(name);
    if (n >= size)
        n = size - 1;
    memcpy(out, name, n);
    out[n] = '\0';
}

bool IsLibraryMacro(const char* macro) { return macro && strncmp(macro, "TARN", 4) == 0; }

void FormatAssertionReport(ReportText& report, const char* macro, const char* expr, const char* source, int line)
{
    report.appendFormat("%s failed at line %d in %s:\n %s\n", macro ? macro : "", line, source ? source : "",
                        expr ? expr : "");
}

void FormatVerificationReport(ReportText& report, const char* macro, const char* expr, const char* source, int line,
                              const char* reason, unsigned long code)
{
    // Inverted on purpose: a code the system can describe is reported by its
    // number, and "Reason" shows only that the system had no text ("(null)",
    // as the runtime has always printed the missing text).
    if (reason)
        report.appendFormat("%s failed at line %d in %s:\n%s\nCode: %lx\n", macro ? macro : "", line,
                            source ? source : "", expr ? expr : "", code);
    else
        report.appendFormat("%s failed at line %d in %s:\n%s\nReason: %s\n", macro ? macro : "", line,
                            source ? source : "", expr ? expr : "", "(null)");
}

void AppendSupportText(ReportText& report, int count)
{
    if (count + static_cast<int>(sizeof(kSupportText) - 1) < kReportCapacity)
        report.append(kSupportText);
}

void AppendVerbosePrefix(ReportText& line, int flags, unsigned long threadId)
{
    unsigned bits = static_cast<unsigned>(flags);
    if ((bits & kVerboseDestinationMask) == 0)
        line.appendFormat("%d: ", static_cast<int>(threadId & 0xFFFF));
    switch (bits & kVerboseSeverityMask) {
    case kVerboseError:
        line.append("Error: ");
        break;
    case kVerboseWarning:
        line.append("Warning: ");
        break;
    default:
        break;
    }
}

bool VerboseGoesToProjectManager(int flags)
{
    return (static_cast<unsigned>(flags) & kVerboseDestinationMask) == kVerboseToProjectManager;
}

void FormatHexDumpLine(HexDumpLine& line, const unsigned char* run, int count, unsigned long offset)
{
    line.appendFormat("%04lX ", offset);
    for (int i = 0; i < kHexDumpBytesPerLine; ++i) {
        if (i < count)
            line.appendFormat("%02X ", run[i]);
        else
            line.append("   ");
    }
    line.append(" ");
    for (int i = 0; i < count && i < kHexDumpBytesPerLine; ++i) {
        char c = run[i] >= 0x20 && run[i] < 0x7F ? static_cast<char>(run[i]) : '.';
        const char one[2] = {c, '\0'};
        line.append(one);
    }
    line.append("\n");
}

}  // namespace tqm

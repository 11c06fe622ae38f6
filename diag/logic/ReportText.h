// The texts of the diagnostics: assertion reports, verbose-line prefixes and
// hex dump lines.
#pragma once

#include "diag/logic/FixedText.h"

#include <stddef.h>

namespace tqm {

// Assertion reports hold at most this many characters.
const int kReportCapacity = 640;
using ReportText = FixedText<kReportCapacity>;

// Appended to the reports of the library's own macros before the user is asked.
extern const char kSupportText[];

// The name under which reports show a source file: its last path component
// without the extension ("C:\src\config\Registry.cpp" gives "Registry").
void SourceNameOf(const char* path, char* out, size_t size);

// True for the library's own macros (names beginning "TARN"): their reports
// offer Abort, Retry or Ignore.
bool IsLibraryMacro(const char* macro);

// The report of a failed check without a system code.
void FormatAssertionReport(ReportText& report, const char* macro, const char* expr, const char* source, int line);
// The report with a system code: reason is the system's text of the code,
// or NULL when the system has none.
void FormatVerificationReport(ReportText& report, const char* macro, const char* expr, const char* source, int line,
                              const char* reason, unsigned long code);
// Appends the support text when count plus its length is below the capacity;
// cut to the room that is left.
void AppendSupportText(ReportText& report, int count);

// Verbose flags: severity and destination.
const unsigned kVerboseSeverityMask = 0xF0000000u;
const unsigned kVerboseError = 0x10000000u;
const unsigned kVerboseWarning = 0x20000000u;
const unsigned kVerboseDestinationMask = 0x0F000000u;
const unsigned kVerboseToProjectManager = 0x01000000u;

// The prefix of a verbose line: "<thread>: " when the destination bits are 0,
// then "Error: " or "Warning: " by the severity bits.
void AppendVerbosePrefix(ReportText& line, int flags, unsigned long threadId);
// True when the line goes to the project manager rather than the trace viewer.
bool VerboseGoesToProjectManager(int flags);

// One line of a hex dump: offset, 16 columns of hex (blank where the run is
// shorter), a blank, the printable characters, a line feed.
const int kHexDumpBytesPerLine = 16;
using HexDumpLine = FixedText<96>;
void FormatHexDumpLine(HexDumpLine& line, const unsigned char* run, int count, unsigned long offset);

}  // namespace tqm

// What "tqm ini" and the demo say about an INI file that did not read.
#pragma once

#include "config/IniFile.h"

#include <string>

namespace tqmtool {

struct IniReadFailure
{
    bool bOpened = false;  // false: the file could not be opened or read at all
    int nLine = 0;         // one-based number of the offending line
    std::string text;      // that line as the reader took it, without its line end
    std::string reason;    // what is wrong with it
};

// Describes why ini.Read(path) failed; ini is the document just after it.
IniReadFailure DescribeReadFailure(const char* path, CTQMIniFile& ini);

// One line for stderr: "FILE:LINE: REASON: TEXT", or "cannot read FILE". TEXT
// shows at most 80 characters, control characters escaped, and says how many
// more the line has.
std::string FormatReadFailure(const std::string& displayName, const IniReadFailure& failure);

}  // namespace tqmtool

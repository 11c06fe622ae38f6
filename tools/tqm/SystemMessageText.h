// SystemMessage - the system's text for an error code, as the commands print it.
#pragma once

#include <windows.h>

#include <string>

namespace tqmtool {

// The system's message for an error code, without the trailing line end and
// full stop; "error N" when the system has none.
std::string SystemMessage(DWORD dwError);

}  // namespace tqmtool

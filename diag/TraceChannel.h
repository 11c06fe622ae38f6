// The trace channel inside the library: texts handed to the trace viewer or
// the project manager's window as copy-data messages.
#pragma once

#include <windows.h>

namespace tqm {

enum class TraceReceiver
{
    Viewer,          // window class "MfxTraceWindow", tag "twin"
    ProjectManager,  // window class "Tarn52:VmxWClass", tag "tarn"
};

// Sends count characters of text to the receiver's first top-level window
// and waits until it has taken them. False when no such window exists.
bool SendTrace(TraceReceiver receiver, const char* text, int count);

}  // namespace tqm

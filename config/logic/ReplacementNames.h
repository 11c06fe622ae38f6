// ReplacementNames - the names of a file replacement's temporary files and
// the patience of its final move (config/FileReplacement.h).
#pragma once

#include <windows.h>

#include <string>

namespace tqm {

// The temporary file of a replacement of targetName by the process
// processId, its serial-th try: "targetName.~PID-N.tmp", PID and N in
// upper-case hexadecimal.
std::string ReplacementTempName(const char* targetName, DWORD processId, unsigned serial);

// True when fileName is a temporary file of a replacement of targetName
// (case ignored, as the file system compares names), with the writing
// process's id.
bool ParseReplacementTempName(const char* fileName, const char* targetName, DWORD* pProcessId);

// The pause before the attempt-th new try (1 on) of a replacement whose
// target another program holds open; 0 when it is time to give up. Readers
// of the suite's documents hold them for a few milliseconds: the pauses
// grow from 1 ms to 32 ms and add up to about half a second.
DWORD ReplaceRetryDelayMs(int attempt);

}  // namespace tqm

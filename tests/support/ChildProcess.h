// ChildProcess - starts a program for a test, with its output in a file, and
// makes sure it is gone when the test ends. RunSelfAsChild runs one test of
// the current program in a child process (for behaviour that ends the
// process, such as an Abort), which tells itself apart by ChildMode().
#pragma once

#include <windows.h>

#include <string>

namespace tqmtest {

class ChildProcess
{
public:
    ChildProcess() = default;
    ~ChildProcess();  // kills the process if it still runs
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // Starts commandLine with stdout and stderr appended to outputPath.
    bool start(const std::string& commandLine, const std::string& outputPath);
    // True when the process ended within timeoutMs.
    bool wait(DWORD timeoutMs);
    // The exit code; STILL_ACTIVE while it runs.
    DWORD exitCode() const;
    DWORD id() const { return m_id; }
    void kill();

private:
    HANDLE m_process = nullptr;
    DWORD m_id = 0;
};

struct ProcessResult
{
    bool finished = false;      // ended within the time-out (else it was killed)
    DWORD exitCode = 0;
    std::string output;         // stdout and stderr together
};

// Runs commandLine to its end (killing it after timeoutMs).
ProcessResult RunProcess(const std::string& commandLine, DWORD timeoutMs);

// The folder of the running test program (where tqm.exe and the DLL are).
std::string ProgramFolder();

// Runs the test "Suite.Name" of this program in a child process started in
// mode; the child's ChildMode() returns mode.
ProcessResult RunSelfAsChild(const char* testName, const char* mode, DWORD timeoutMs);
// The mode this program was started in by RunSelfAsChild, or "" in the parent.
std::string ChildMode();

}  // namespace tqmtest

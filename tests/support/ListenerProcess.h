// ListenerProcess - a tqm command that listens through a window of its own
// (tqm trace, tqm pm), run as a child process on a thread of its own, for
// tests that talk to it from the test process.
//
// A child that has not ended after its time-out is stopped, which also lets
// every send to its window return: no test waits for ever on a listener.
#pragma once

#include "support/ChildProcess.h"

#include <windows.h>

#include <string>
#include <thread>
#include <vector>

namespace tqmtest {

class ListenerProcess
{
public:
    // className: the class of the window the command listens with.
    explicit ListenerProcess(const char* className, unsigned timeoutMs = 60000);
    ~ListenerProcess() { close(); }
    ListenerProcess(const ListenerProcess&) = delete;
    ListenerProcess& operator=(const ListenerProcess&) = delete;

    // Runs tqm with args and waits (up to 30 s) until its window exists.
    bool start(const std::vector<std::string>& args);
    HWND window() const { return m_window; }
    // Waits for the child to end; its exit code, -1 when it had to be stopped.
    int wait();
    // Closes the window, then waits.
    int close();
    // What the child printed on stdout, line ends as "\n".
    std::string output() const;
    const std::string& errors() const { return m_run.err; }
    // The lines of output().
    std::vector<std::string> lines() const;

private:
    std::string m_className;
    unsigned m_timeoutMs;
    std::thread m_thread;
    ProgramRun m_run{-1, std::string(), std::string()};
    HWND m_window = nullptr;
};

}  // namespace tqmtest

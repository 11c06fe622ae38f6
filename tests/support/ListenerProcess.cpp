#include "support/ListenerProcess.h"

#include "support/TqmProgram.h"

#include <sstream>

namespace tqmtest {

ListenerProcess::ListenerProcess(const char* className, unsigned timeoutMs)
    : m_className(className), m_timeoutMs(timeoutMs)
{
}

bool ListenerProcess::start(const std::vector<std::string>& args)
{
    m_thread = std::thread([this, args] { m_run = RunProgram(TqmCommandLine(args), std::string(), m_timeoutMs); });
    for (DWORD waited = 0; waited < 30000 && !m_window; waited += 20) {
        Sleep(20);
        m_window = FindWindowA(m_className.c_str(), nullptr);
    }
    return m_window != nullptr;
}

int ListenerProcess::wait()
{
    if (m_thread.joinable())
        m_thread.join();
    return m_run.exitCode;
}

int ListenerProcess::close()
{
    if (m_thread.joinable() && m_window)
        PostMessageA(m_window, WM_CLOSE, 0, 0);
    return wait();
}

std::string ListenerProcess::output() const { return WithoutCarriageReturns(m_run.out); }

std::vector<std::string> ListenerProcess::lines() const
{
    std::vector<std::string> result;
    std::istringstream in(output());
    std::string line;
    while (std::getline(in, line))
        result.push_back(line);
    return result;
}

}  // namespace tqmtest

// FileAssociation - for one test, files of an extension open with a program
// the test controls (an entry of the registry's classes, removed again; Wine's
// shell reads the machine's classes only, so that is where it goes).
#pragma once

#include <string>

namespace tqmtest {

class FileAssociation
{
public:
    // ext with its dot (".tqmhelp"); command as the shell's "open" command
    // line, with %1 for the file.
    FileAssociation(const std::string& ext, const std::string& command);
    ~FileAssociation();
    FileAssociation(const FileAssociation&) = delete;
    FileAssociation& operator=(const FileAssociation&) = delete;

private:
    std::string m_ext;
    std::string m_progId;
};

// The command line that makes the fixture help viewer append the opened
// file's path to log.
std::string HelpViewerCommand(const std::string& log);

// Waits up to timeoutMs for the file to hold a whole line; its text, or "".
std::string WaitForLine(const std::string& path, unsigned timeoutMs = 20000);

}  // namespace tqmtest

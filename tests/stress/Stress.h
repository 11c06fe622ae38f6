// The stress test program's shared parts: its size (short in the normal test
// run, full from scripts/stress.sh), its figures, its child processes (the
// program starts itself in a role: a sender, a writer, a reader), and the
// global atom table's census.
#pragma once

#include "framework/Handles.h"

#include <windows.h>

#include <string>
#include <vector>

namespace tqmstress {

// True for the full-size run (TQM_STRESS=full); the short one keeps each
// part under a minute.
bool FullSize();
// n in the full-size run, short in the short one.
int Sized(int full, int shortSize);

// Prints "figure: " and the text as one line, at once.
void Figure(const char* format, ...) __attribute__((format(printf, 1, 2)));

// The names of the files of folder that end in ".tmp": temporary files a
// writer left behind.
std::vector<std::string> TempFiles(const std::string& folder);

// A role of this program in a child process: roleArgs are its arguments.
// A role returns the child's exit code.
using Role = int (*)(const std::vector<std::string>& roleArgs);
struct RoleEntry
{
    const char* name;
    Role role;
};
// Runs the role the command line names (--tqm-role=NAME ARGS...); false when
// it names none.
bool RunRole(int argc, char** argv, int* pExitCode);

class Child
{
public:
    Child() = default;
    Child(Child&&) = default;
    Child& operator=(Child&&) = default;
    ~Child();

    // Starts this program in role with args (no quoting needed: no blanks).
    bool Start(const char* role, const std::vector<std::string>& args);
    // Starts any command line, its standard output into outputFile.
    bool StartCommand(const std::string& commandLine, const std::string& outputFile);
    HANDLE Process() const { return m_process.get(); }
    DWORD Id() const { return m_id; }
    // The exit code, once ended within timeoutMs; -1 when it did not end
    // (it is killed then).
    int Wait(DWORD timeoutMs);
    void Kill();

private:
    tqm::UniqueHandle m_process;
    DWORD m_id = 0;
};

// The global atoms that exist now (the whole table, 0xC000 to 0xFFFF).
std::vector<ATOM> GlobalAtoms();
// Those of after that were not in before, with their names, for the figures.
std::vector<std::string> NewAtoms(const std::vector<ATOM>& before, const std::vector<ATOM>& after);

// Small deterministic random numbers, one stream per seed.
class Random
{
public:
    explicit Random(unsigned long seed) : m_state(seed * 2654435761ul + 1) {}
    // From lo to hi, both included.
    unsigned long Between(unsigned long lo, unsigned long hi);

private:
    unsigned long long m_state;
};

// The file's bytes; empty when it cannot be read.
std::string ReadWhole(const std::string& path);
// A named event this program and its children share, by name.
std::string StopEventName();

}  // namespace tqmstress

// tqm subcommands: each source file of the tool defines one command and
// registers it with TQM_REGISTER_COMMAND; main() dispatches by name.
//
// Exit codes follow the usual habits: 0 success, 1 a negative answer or
// damaged input, 2 a usage error. Messages go to stderr.
#pragma once

#include <string>
#include <vector>

namespace tqmtool {

enum ExitCode
{
    kExitOk = 0,
    kExitNegative = 1,
    kExitUsage = 2
};

using Args = std::vector<std::string>;

struct Command
{
    const char* name;     // as typed: "ini"
    const char* summary;  // one line for "tqm --help"
    const char* usage;    // the full usage text, shown by "tqm NAME --help"
    int (*run)(const Args& args);  // the arguments after the command name
};

bool RegisterCommand(const Command& command);

// Prints "tqm NAME: message" and a hint to the usage on stderr; returns kExitUsage.
int UsageError(const char* commandName, const char* format, ...) __attribute__((format(printf, 2, 3)));
// Prints "tqm: message" on stderr; returns kExitNegative.
int Fail(const char* format, ...) __attribute__((format(printf, 1, 2)));

// True when args holds -h or --help.
bool WantsHelp(const Args& args);

// text as a whole number (decimal, or hexadecimal with 0x) within min..max.
bool ParseInteger(const std::string& text, long long min, long long max, long long& value);

}  // namespace tqmtool

#define TQM_CONCAT_INNER(a, b) a##b
#define TQM_CONCAT(a, b) TQM_CONCAT_INNER(a, b)
#define TQM_REGISTER_COMMAND(...) \
    static const bool TQM_CONCAT(g_registered_, __LINE__) = tqmtool::RegisterCommand(__VA_ARGS__)

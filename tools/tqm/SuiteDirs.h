// The suite's directories as tqm shows them, with where each configurable one
// came from (shared by "tqm dirs" and the demo).
#pragma once

#include <string>
#include <vector>

namespace tqmtool {

struct SuiteDir
{
    std::string name;    // "ProjectsDir"
    std::string path;
    std::string origin;  // for the configurable ones: "setting", "default, written back", ...; else empty
};

// Every directory of the suite, the four configurable ones first. Asking for
// a configurable directory whose setting is empty writes its default back.
std::vector<SuiteDir> ListSuiteDirs();

// The entry of a configurable directory in the machine-wide settings
// ("ProjectsDir"), for a name given in any case, with or without "Dir";
// empty when name is not one of the four.
std::string ConfigurableDirEntry(const std::string& name);

// Prints the list, one directory per line: name, path, and the origin in
// brackets where there is one.
void PrintSuiteDirs(const std::vector<SuiteDir>& dirs);

}  // namespace tqmtool

// Where the test programs find what the build made for them
// (tests/fixtures/CMakeLists.txt): the programs' own folder, and its
// "fixtures" folder of modules with chosen version resources.
#pragma once

#include <string>

namespace tqmtest {

// The folder of the running test program, without a trailing backslash.
std::string ProgramDir();
// ProgramDir() + "\fixtures\" + name
std::string FixturePath(const std::string& name);

}  // namespace tqmtest

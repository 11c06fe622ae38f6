// What every fuzz target shares: its seeds, and the checks it makes.
//
// A target is one source file in fuzz/ with
//     extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);
//     void TqmFuzzSeeds(tqmfuzz::Seeds& seeds);   // small valid inputs
// and one line in fuzz/CMakeLists.txt naming the library sources it needs.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <string>

namespace tqmfuzz {

// The seeds of a target; scripts/fuzz.sh has them written into the
// target's starting corpus.
class Seeds
{
public:
    explicit Seeds(std::string dir) : m_dir(std::move(dir)) {}
    void Add(const std::string& name, const std::string& bytes);

private:
    std::string m_dir;
};

// Stops the run with a message and a crash the fuzzer keeps, when cond fails.
#define TQM_FUZZ_CHECK(cond) ((cond) ? (void)0 : ::tqmfuzz::Fail(#cond, __FILE__, __LINE__))
[[noreturn]] void Fail(const char* what, const char* file, int line);

}  // namespace tqmfuzz

void TqmFuzzSeeds(tqmfuzz::Seeds& seeds);

// Seeds on request, and the failure of a check.
#include "FuzzSupport.h"

#include <stdio.h>
#include <stdlib.h>

namespace tqmfuzz {

void Seeds::Add(const std::string& name, const std::string& bytes)
{
    std::string path = m_dir + "/" + name;
    FILE* f = fopen(path.c_str(), "wb");
    if (!f || fwrite(bytes.data(), 1, bytes.size(), f) != bytes.size() || fclose(f) != 0) {
        fprintf(stderr, "cannot write the seed %s\n", path.c_str());
        exit(2);
    }
}

void Fail(const char* what, const char* file, int line)
{
    fprintf(stderr, "%s:%d: check failed: %s\n", file, line, what);
    abort();
}

}  // namespace tqmfuzz

// With TQM_FUZZ_SEEDS=DIR in the environment, the target writes its seeds
// into DIR and ends instead of fuzzing.
extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    if (const char* dir = getenv("TQM_FUZZ_SEEDS")) {
        tqmfuzz::Seeds seeds(dir);
        TqmFuzzSeeds(seeds);
        exit(0);
    }
    return 0;
}

// main() of the stress test program: a role's child process when the command
// line names one (Stress.h), else GoogleTest with the library's boxes
// answered by the harness.
#include "stress/Stress.h"
#include "support/BoxRecorder.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    tqmtest::InstallDefaultBoxHook();
    int exitCode = 0;
    if (tqmstress::RunRole(argc, argv, &exitCode))
        return exitCode;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

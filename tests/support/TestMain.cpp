// main() of every test program: GoogleTest, with the library's message boxes
// answered by the harness instead of waiting for a click.
#include "support/BoxRecorder.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    tqmtest::InstallDefaultBoxHook();
    return RUN_ALL_TESTS();
}

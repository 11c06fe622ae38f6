#include "config/ResourceStrings.h"

#include "res/StringIds.h"
#include "support/ChildProcess.h"

#include <gtest/gtest.h>

#include <string.h>

#include <string>

namespace {

TEST(ResourceStrings, LoadsFromTheLibrarysTableIntoTheRoomGiven)
{
    char text[64];
    EXPECT_EQ(text, fSString(IDS_CANNOT_OPEN_FILE, text, sizeof(text)));
    EXPECT_STREQ("Cannot open file '%s'.", text);

    for (int size : {1, 2, 5, 14, 15}) {
        char buf[32];
        memset(buf, '#', sizeof(buf));
        fSString(IDS_OUT_OF_MEMORY, buf, size);  // "Out of memory." (14 characters)
        EXPECT_EQ(std::string("Out of memory.").substr(0, static_cast<size_t>(size - 1)), buf) << size;
        EXPECT_EQ(std::string(sizeof(buf) - static_cast<size_t>(size), '#'),
                  std::string(buf + size, sizeof(buf) - static_cast<size_t>(size)))
            << size;
    }
}

TEST(ResourceStrings, RingKeepsTheLastTwoResults)
{
    const char* first = _fString(IDS_SYSTEM_ERROR_CAPTION);
    const char* second = _fString(IDS_SYSTEM_INFO_CAPTION);
    EXPECT_NE(first, second);
    EXPECT_STREQ("System Error", first);
    EXPECT_STREQ("System Info", second);
    const char* third = _fString(IDS_OUT_OF_MEMORY);
    EXPECT_EQ(first, third);  // the third call takes the first slot again
    EXPECT_STREQ("System Info", second);
}

TEST(ResourceStrings, MissingStringEndsTheProcess)
{
    if (tqmtest::ChildMode() == "missing-string") {
        // The harness's hook prints the box it answers.
        char buf[32];
        fSString(4242, buf, sizeof(buf));
        printf("fSString returned\n");
        return;
    }
    tqmtest::ProgramRun child = tqmtest::RunSelfAsChild("ResourceStrings.MissingStringEndsTheProcess", "missing-string");
    EXPECT_EQ(0x40000015, child.exitCode);
    EXPECT_NE(std::string::npos, child.err.find("Fatal error ID#4242")) << child.err;
    EXPECT_EQ(std::string::npos, child.out.find("fSString returned"));
}

}  // namespace

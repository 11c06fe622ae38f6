// The exception classes: the cause a system error maps to, and the texts.
#include "framework/Exceptions.h"

#include <gtest/gtest.h>

#include <string.h>

namespace {

// The record file's exceptions show most of the mapping; these are the rest.
TEST(CFileException, MapsSystemErrorsToCauses)
{
    struct { LONG error; int cause; } const cases[] = {
        {ERROR_SUCCESS, CFileException::none},
        {ERROR_PATH_NOT_FOUND, CFileException::badPath},
        {ERROR_INVALID_HANDLE, CFileException::invalidFile},
        {ERROR_NEGATIVE_SEEK, CFileException::badSeek},
        {ERROR_HANDLE_EOF, CFileException::endOfFile},
        {123456, CFileException::genericException},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.cause, CFileException::OsErrorToException(c.error)) << "system error " << c.error;
}

TEST(CFileException, ThrowOsErrorCarriesCodeCauseAndName)
{
    try {
        CFileException::ThrowOsError(ERROR_SHARING_VIOLATION, "C:\\x\\locked.ini");
    } catch (CFileException* e) {
        EXPECT_EQ(CFileException::sharingViolation, e->m_cause);
        EXPECT_EQ(ERROR_SHARING_VIOLATION, e->m_lOsError);
        EXPECT_STREQ("C:\\x\\locked.ini", e->m_strFileName);
        e->Delete();
    }

    // A failure without a code is still a failure, never "no error".
    try {
        CFileException::ThrowOsError(0);
    } catch (CFileException* e) {
        EXPECT_NE(CFileException::none, e->m_cause);
        e->Delete();
    }
}

TEST(CException, MessagesRespectTheBufferSize)
{
    CFileException e(CFileException::fileNotFound, ERROR_FILE_NOT_FOUND, "name.ini");
    char text[8];
    memset(text, '#', sizeof(text));
    UINT help = 99;
    EXPECT_TRUE(e.GetErrorMessage(text, 6, &help));
    EXPECT_EQ(5u, strlen(text));
    EXPECT_EQ('#', text[6]);
    EXPECT_EQ(0u, help);
    EXPECT_FALSE(e.GetErrorMessage(nullptr, 10));

    // An unknown cause still gives a sentence rather than reading past the table.
    CFileException odd(77, 0, nullptr);
    char big[256];
    EXPECT_TRUE(odd.GetErrorMessage(big, sizeof(big)));
    EXPECT_GT(strlen(big), 0u);

}

}  // namespace

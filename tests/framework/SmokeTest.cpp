#include "framework/CString.h"
#include <gtest/gtest.h>
TEST(Smoke, Builds) { CString s("a"); s += "b"; EXPECT_STREQ("ab", s); }

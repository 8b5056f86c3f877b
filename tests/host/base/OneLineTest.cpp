#include "host/base/OneLine.h"

#include <gtest/gtest.h>

TEST(OneLine, ControlCharactersBecomeBlanks) { EXPECT_EQ("a b c d", OnOneLine("a\nb\tc\rd")); }

TEST(OneLine, OtherCharactersStay) { EXPECT_EQ("größer 😀", OnOneLine("größer 😀")); }

#include "host/base/OneLine.h"

#include <gtest/gtest.h>

TEST(OneLine, ControlCharactersBecomeBlanks) {
  EXPECT_EQ("a b c d e f", OnOneLine("a\nb\tc\rd\x1b"
                                     "e\x7f"
                                     "f"));
}

TEST(OneLine, OtherCharactersStay) { EXPECT_EQ("größer 😀", OnOneLine("größer 😀")); }

#include "host/presets/EscapedPairs.h"

#include <gtest/gtest.h>

TEST(EscapedPairs, BecomeTheirCharacters) {
  EXPECT_EQ("<string>😀 𠮷</string>",
            WithoutEscapedPairs("<string>\\UD83D\\UDE00 \\UD842\\UDFB7</string>"));
}

TEST(EscapedPairs, WhatIsNoPairStays) {
  for (const std::string text : {"\\UD83D", "\\UD83Dx\\UDE00", "\\UDE00\\UD83D", "\\U00E4",
                                 "\\ud83d\\ude00", "\\UD83D\\UDE0", "C:\\Users"}) {
    EXPECT_EQ(text, WithoutEscapedPairs(text));
  }
}

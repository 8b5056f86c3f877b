#include "host/base/OneLine.h"

#include <gtest/gtest.h>

TEST(OneLine, ControlCharactersBecomeBlanks) {
  EXPECT_EQ("a b c d e f", OnOneLine("a\nb\tc\rd\x1b"
                                     "e\x7f"
                                     "f"));
}

TEST(OneLine, OtherCharactersStay) { EXPECT_EQ("größer 😀", OnOneLine("größer 😀")); }

TEST(ShortLine, IsTextWithoutControlCharactersAndMarksOfDirection) {
  EXPECT_EQ("a b c d", ShortLine(" a\nb\u0085c\u202ed\t", 40));
  EXPECT_EQ("gr\u00f6\u00dfer", ShortLine("gr\xf6\xdf"
                                          "er",
                                          40));
}

TEST(ShortLine, IsCutBetweenCharacters) {
  EXPECT_EQ("größe", ShortLine("größe", 5));
  EXPECT_EQ("grö…", ShortLine("größe", 4));
  EXPECT_EQ("", ShortLine("", 4));
}

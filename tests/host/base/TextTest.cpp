#include "host/base/Text.h"

#include <gtest/gtest.h>

TEST(Text, IsTrimmedOfBlanksAtItsEndsOnly) {
  EXPECT_EQ("a b", Trimmed(" \t a b\r\n"));
  EXPECT_EQ("", Trimmed(" \t\r\n"));
  EXPECT_EQ("", Trimmed(""));
}

TEST(Text, IsQuotedOnOneLineInUtf8) { EXPECT_EQ("\"a b\u00FC\"", Quoted("a\nb\xFC")); }

TEST(Text, ThatIsLongIsCutBetweenCharacters) {
  const std::string longest(40, 'x');
  EXPECT_EQ("\"" + longest + "\"", Quoted(longest));
  EXPECT_EQ("\"" + longest + "...\"", Quoted(longest + "y"));
  const std::string before(39, 'x');
  EXPECT_EQ("\"" + before + "...\"", Quoted(before + "\u00FC"));
}

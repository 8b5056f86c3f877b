#include "host/base/Utf8.h"

#include <gtest/gtest.h>

TEST(Utf8, KnowsHowManyBytesACharacterTakes) {
  EXPECT_EQ(1u, LengthOfUtf8Character("ab"));
  EXPECT_EQ(2u, LengthOfUtf8Character("\u00E4b"));
  EXPECT_EQ(3u, LengthOfUtf8Character("\u20AC"));
  EXPECT_EQ(4u, LengthOfUtf8Character("\U0001F5A8"));
  EXPECT_EQ(0u, LengthOfUtf8Character(""));
}

TEST(Utf8, IsNotWhatIsCutOverlongASurrogateOrTooLarge) {
  for (const char *bytes : {"\x80", "\xC3", "\xE2\x82", "\xC3(", "\xC0\x80", "\xE0\x80\x80",
                            "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF"}) {
    EXPECT_EQ(0u, LengthOfUtf8Character(bytes)) << testing::PrintToString(bytes);
  }
}

TEST(Utf8, StaysAsItIs) {
  EXPECT_EQ("\u00E4\u20AC\U0001F5A8 a", ToUtf8("\u00E4\u20AC\U0001F5A8 a"));
}

TEST(Utf8, OtherBytesAreTakenForLatin1) {
  EXPECT_EQ("B\u00FCro", ToUtf8("B\xFCro"));
  EXPECT_EQ("\u00FC \u00FC", ToUtf8("\xFC \u00FC"));
  EXPECT_EQ("Ger\u00E4", ToUtf8("Ger\xE4"));
}

TEST(Utf8, TheBeginningOfACutCharacterCanBeTakenAway) {
  EXPECT_EQ("a", WithoutCutCharacter("a\xC3"));
  EXPECT_EQ("a", WithoutCutCharacter("a\xE2\x82"));
  EXPECT_EQ("a\u20AC", WithoutCutCharacter("a\u20AC"));
  EXPECT_EQ("a", WithoutCutCharacter("a"));
  EXPECT_EQ("", WithoutCutCharacter(""));
}

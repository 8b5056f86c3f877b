#include "numbering/Literal.h"

#include <gtest/gtest.h>

#include <limits>

using numbering::Literal;

TEST(Literal, HasNoDigitThatItDoesNotNeed) {
  EXPECT_EQ(Literal(1), "1");
  EXPECT_EQ(Literal(.36), ".36");
  EXPECT_EQ(Literal(-.5), "-.5");
  EXPECT_EQ(Literal(-2.5), "-2.5");
  EXPECT_EQ(Literal(10), "10");
  EXPECT_EQ(Literal(0), "0");
  EXPECT_EQ(Literal(100, 0), "100");
}

TEST(Literal, IsRounded) {
  EXPECT_EQ(Literal(.99999), "1");
  EXPECT_EQ(Literal(2.34567, 2), "2.35");
  EXPECT_EQ(Literal(-.00001), "0");
  EXPECT_EQ(Literal(-.4, 0), "0");
}

TEST(Literal, IsANumberWhateverTheValue) {
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  EXPECT_EQ(Literal(kInfinite), "0");
  EXPECT_EQ(Literal(std::numeric_limits<double>::quiet_NaN()), "0");
  EXPECT_EQ(Literal(-1e300), "-2147483647");
  EXPECT_EQ(Literal(-2147483646.123456789, 9).substr(0, 12), "-2147483646.");
}

TEST(Literal, IsAppendedWithABlank) {
  std::string text = "x ";
  numbering::AppendLiteral(text, .25);
  EXPECT_EQ(text, "x .25 ");
}

#include "host/job/PaperSize.h"

#include <gtest/gtest.h>

#include "tests/support/ExpectedValue.h"

TEST(PaperSize, IsReadAsPeopleWriteIt) {
  for (const auto &[typed, choice] :
       std::map<std::string, std::string>{{"210 x 297 mm", "Custom.210x297mm"},
                                          {"210x297", "Custom.210x297mm"},
                                          {" 8,5 × 11 in ", "Custom.8.5x11in"},
                                          {"10.5*14.8cm", "Custom.10.5x14.8cm"},
                                          {"595 X 842pt", "Custom.595x842pt"}}) {
    EXPECT_EQ(choice, ParsePaperSize(typed)) << typed;
  }
}

TEST(PaperSize, IsNoSizeWithoutTwoLengthsAndAKnownUnit) {
  for (const char *wrong : {"", "210", "210 x", "x 297", "0 x 297", "-1 x 2", "1.2.3 x 4",
                            "210 x 297 feet", "210 x 297 mm thick", "A4"}) {
    EXPECT_FALSE(ParsePaperSize(wrong)) << wrong;
  }
}

TEST(PaperSize, IsShownAsItWouldBeTyped) {
  EXPECT_EQ("210 x 297 mm", TypedPaperSize("Custom.210x297mm"));
  EXPECT_EQ("100 x 200.5 pt", TypedPaperSize("Custom.100x200.5")) << "points go without a unit";
  EXPECT_EQ("", TypedPaperSize("A4"));
  EXPECT_EQ("", TypedPaperSize("Custom.25"));
  EXPECT_EQ("215.9 x 279.4 mm", TypedPaperSize(PaperSize{612, 792}));
}

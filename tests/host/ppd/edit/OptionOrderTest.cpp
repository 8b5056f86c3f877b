#include "host/ppd/edit/OptionOrder.h"

#include <gtest/gtest.h>

namespace {

constexpr char kLines[] =
    "*OrderDependency: 61 AnySetup *A\n*A B: \"*OrderDependency: 3 X *Y\"\n"
    "*NonUIOrderDependency: 70.5 AnySetup *C\n";

std::string Ordered(std::string_view ppd) {
  Expected<std::string> lines = OrderedAfter(ppd, kLines);
  return lines ? *lines : lines.message();
}

std::string Numbered(const std::string &first, const std::string &second) {
  return "*OrderDependency: " + first + " AnySetup *A\n*A B: \"*OrderDependency: 3 X *Y\"\n" +
         "*NonUIOrderDependency: " + second + " AnySetup *C\n";
}

}  // namespace

TEST(OptionOrder, StaysWhereItIsGreaterThanAllOfTheFile) {
  EXPECT_EQ(kLines, Ordered(""));
  EXPECT_EQ(kLines, Ordered("*OrderDependency: 60.9 AnySetup *X\n"));
}

TEST(OptionOrder, IsRaisedOverAllOfTheFile) {
  EXPECT_EQ(Numbered("62", "71.5"), Ordered("*OrderDependency: 61 AnySetup *X\n"));
  EXPECT_EQ(Numbered("101", "110.5"),
            Ordered("*OrderDependency: 100.7 JCLSetup *X\n*OrderDependency: 5 AnySetup *Y\n"));
  EXPECT_EQ(Numbered("201", "210.5"), Ordered("*NonUIOrderDependency: 200 DocumentSetup *X\r\n"));
}

TEST(OptionOrder, CountsNoNumbersInQuotations) {
  EXPECT_EQ(kLines, Ordered("*X: \"\n*OrderDependency: 100 AnySetup *X\n\"\n"));
}

TEST(OptionOrder, CountsNumbersBelowZero) {
  Expected<std::string> lines =
      OrderedAfter("*OrderDependency: -1 AnySetup *X\n", "*OrderDependency: -5 AnySetup *A\n");
  ASSERT_TRUE(lines);
  EXPECT_EQ("*OrderDependency: 0 AnySetup *A\n", *lines);
}

TEST(OptionOrder, NumbersWithoutRoomAboveThemAreAFailure) {
  EXPECT_EQ("its order number 20000000 leaves no room for greater ones",
            Ordered("*OrderDependency: 20000000 AnySetup *X\n"));
}

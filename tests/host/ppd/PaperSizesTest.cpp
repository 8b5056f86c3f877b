#include "host/ppd/PaperSizes.h"

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace {

constexpr char kCustomSize[] =
    "*HWMargins: 0 0 0 0\n*VariablePaperSize: True\n"
    "*NonUIOrderDependency: 10 AnySetup *CustomPageSize\n*CustomPageSize True: \"\"\n";

PPDFile Opened(const std::string &lines) {
  TemporaryFolder folder;
  Expected<PPDFile> ppd = PPDFile::Open(folder.Write("test.ppd", TestPPD::Text(lines)));
  if (!ppd) std::abort();
  return std::move(*ppd);
}

}  // namespace

TEST(PaperSizes, AreThoseOfTheChoices) {
  const PPDFile ppd = Opened("");
  const std::optional<PaperSize> size = PaperSizeOf(ppd, "A4");
  ASSERT_TRUE(size);
  EXPECT_EQ(595, size->width);
  EXPECT_EQ(842, size->height);
  EXPECT_FALSE(PaperSizeOf(ppd, "A0"));
  EXPECT_FALSE(CustomPaperSizesOf(ppd));
}

TEST(PaperSizes, OthersAreWithinTheLimitsOfTheFile) {
  const auto sizes = CustomPaperSizesOf(Opened(std::string(kCustomSize) +
                                               "*ParamCustomPageSize Width: 1 points 36 1000\n"
                                               "*ParamCustomPageSize Height: 2 points 72 2000\n"));
  ASSERT_TRUE(sizes);
  EXPECT_EQ(36, sizes->least.width);
  EXPECT_EQ(72, sizes->least.height);
  EXPECT_EQ(1000, sizes->most.width);
  EXPECT_EQ(2000, sizes->most.height);
}

TEST(PaperSizes, ASheetHasMargins) {
  const PPDFile ppd = Opened("");
  const std::optional<Paper> paper = PaperOf(ppd, "A4");
  ASSERT_TRUE(paper);
  EXPECT_EQ(595, paper->size.width);
  EXPECT_EQ(842, paper->size.height);
  EXPECT_EQ(18, paper->left);
  EXPECT_EQ(18, paper->right);
  EXPECT_EQ(18, paper->top);
  EXPECT_EQ(18, paper->bottom);
  EXPECT_FALSE(PaperOf(ppd, "A0"));
  EXPECT_FALSE(PaperOf(ppd, ""));
}

TEST(PaperSizes, ASheetOfACustomSizeHasTheMarginsForThose) {
  const PPDFile ppd = Opened(
      "*HWMargins: 9 10 11 12\n*VariablePaperSize: True\n"
      "*NonUIOrderDependency: 10 AnySetup *CustomPageSize\n"
      "*CustomPageSize True: \"\"\n"
      "*ParamCustomPageSize Width: 1 points 36 1000\n"
      "*ParamCustomPageSize Height: 2 points 36 1000\n");
  const std::optional<Paper> paper = PaperOf(ppd, "Custom.10x20cm");
  ASSERT_TRUE(paper);
  EXPECT_NEAR(100 / 25.4 * 72, paper->size.width, 0.01);
  EXPECT_NEAR(200 / 25.4 * 72, paper->size.height, 0.01);
  EXPECT_NEAR(9, paper->left, 0.01);
  EXPECT_NEAR(10, paper->bottom, 0.01);
  EXPECT_NEAR(11, paper->right, 0.01);
  EXPECT_NEAR(12, paper->top, 0.01);
}

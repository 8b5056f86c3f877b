#include "host/dialog/FittedSize.h"

#include <gtest/gtest.h>

namespace {

constexpr LayoutSize kScreen = {1024, 768};
constexpr LayoutSize kFirst = {560, 480};

}  // namespace

TEST(FittedSize, IsWhatIsWanted) {
  FittedSize size(kFirst);
  EXPECT_EQ((LayoutSize{560, 420}), size.Next({560, 420}, kFirst, kScreen));
  EXPECT_EQ((LayoutSize{600, 500}), size.Next({600, 500}, {560, 420}, kScreen));
  EXPECT_EQ((LayoutSize{560, 420}), size.Next({560, 420}, {600, 500}, kScreen));
}

TEST(FittedSize, IsNotLargerThanTheScreen) {
  FittedSize size(kFirst);
  EXPECT_EQ((LayoutSize{560, 768}), size.Next({560, 2000}, kFirst, kScreen));
  EXPECT_EQ((LayoutSize{1024, 400}), size.Next({3000, 400}, {560, 768}, kScreen));
}

TEST(FittedSize, StaysWhereTheUserHasMadeItLarger) {
  FittedSize size(kFirst);
  const LayoutSize chosen = {800, 480};
  EXPECT_EQ(chosen, size.Next({600, 400}, chosen, kScreen));
  EXPECT_EQ(chosen, size.Next({560, 420}, chosen, kScreen)) << "however often it is asked for";
  EXPECT_EQ((LayoutSize{800, 600}), size.Next({560, 600}, chosen, kScreen));
  EXPECT_EQ(chosen, size.Next({560, 420}, {800, 600}, kScreen)) << "no larger than was needed";
}

TEST(FittedSize, TakesTheUsersLatestWord) {
  FittedSize size(kFirst);
  EXPECT_EQ((LayoutSize{800, 700}), size.Next({600, 400}, {800, 700}, kScreen));
  EXPECT_EQ((LayoutSize{700, 500}), size.Next({600, 400}, {700, 500}, kScreen));
}

TEST(FittedSize, GrowsOverASizeThatTheUserHasMadeSmaller) {
  FittedSize size(kFirst);
  EXPECT_EQ((LayoutSize{600, 400}), size.Next({600, 400}, {560, 380}, kScreen));
}

TEST(FittedSize, TakesARoundingErrorForNobodysChoice) {
  FittedSize size(kFirst);
  EXPECT_EQ((LayoutSize{560, 420}), size.Next({560, 420}, {560.001, 480}, kScreen));
}

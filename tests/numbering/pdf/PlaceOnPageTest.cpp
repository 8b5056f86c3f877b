// The number is in the middle of what is seen of the page, upright as it is read, whatever the
// page's coordinates are.

#include <gtest/gtest.h>

#include "tests/support/NumberedPdf.h"
#include "tests/support/RawPdf.h"

namespace {

// A page without anything but its number.
Picture PictureWith(const std::string &entries, bool over = false) {
  const std::vector<Picture> pictures = PicturesOf({NumberedPdf(RawPdf({{"", entries}}), over)});
  EXPECT_EQ(pictures.size(), 1u);
  return pictures.at(0);
}

const Picture &Portrait() {
  static const Picture picture = PictureWith("/MediaBox [0 0 400 600]");
  return picture;
}

const Picture &Landscape() {
  static const Picture picture = PictureWith("/MediaBox [0 0 600 400]");
  return picture;
}

}  // namespace

TEST(PlaceOnPage, IsTheMiddle) {
  const auto box = Portrait().BoundsOf([](Color color) { return color != kWhitePaper; });
  ASSERT_TRUE(box);
  EXPECT_NEAR(box->center_x(), .5, .01);
  EXPECT_NEAR(box->center_y(), .5, .01);
  EXPECT_GT(box->width(), .4);
}

TEST(PlaceOnPage, TurnsWithThePage) {
  EXPECT_EQ(PictureWith("/MediaBox [0 0 600 400] /Rotate 90"), Portrait());
  EXPECT_EQ(PictureWith("/MediaBox [0 0 400 600] /Rotate 180"), Portrait());
  EXPECT_EQ(PictureWith("/MediaBox [0 0 600 400] /Rotate 270"), Portrait());
  EXPECT_EQ(PictureWith("/MediaBox [0 0 400 600] /Rotate -90"), Landscape());
  EXPECT_EQ(PictureWith("/MediaBox [0 0 400 600] /Rotate 450"), Landscape());
  EXPECT_EQ(PictureWith("/MediaBox [0 0 400 600] /Rotate /Nonsense"), Portrait());
}

TEST(PlaceOnPage, GoesByTheBoxFromWhereverItBegins) {
  EXPECT_EQ(PictureWith("/MediaBox [-144 72 256 672]"), Portrait());
  EXPECT_EQ(PictureWith("/MediaBox [400 600 0 0]"), Portrait());
  EXPECT_EQ(PictureWith("/MediaBox [-144 72 456 472] /Rotate 90"), Portrait());
}

TEST(PlaceOnPage, FollowsTheUnitOfThePage) {
  EXPECT_EQ(PictureWith("/MediaBox [0 0 200 300] /UserUnit 2"), Portrait());
}

// Ghostscript shows the whole MediaBox.
TEST(PlaceOnPage, IsTheMiddleOfTheCropBox) {
  const Picture picture = PictureWith("/MediaBox [0 0 1000 1000] /CropBox [100 200 500 800]");
  const auto box = picture.BoundsOf([](Color color) { return color != kWhitePaper; });
  ASSERT_TRUE(box);
  EXPECT_NEAR(box->center_x(), .3, .01);
  EXPECT_NEAR(box->center_y(), .5, .01);
  EXPECT_EQ(PictureWith("/MediaBox [0 0 400 600] /CropBox [-50 -50 2000 2000]"), Portrait());
}

TEST(PlaceOnPage, IsThereOnPagesThatDoNotSayHowLargeTheyAre) {
  for (const char *entries : {"", "/MediaBox [0 0 0 0]", "/MediaBox [1 2 3]", "/MediaBox 7"}) {
    EXPECT_EQ(TextOfPdf(NumberedPdf(RawPdf({{"", entries}}), false)), "25") << entries;
  }
}

TEST(PlaceOnPage, StripesTurnToo) {
  const Picture portrait = PictureWith("/MediaBox [0 0 400 600]", true);
  const Picture turned = PictureWith("/MediaBox [0 0 600 400] /Rotate 90", true);
  const auto is_ink = [](Color color) { return color != kWhitePaper; };
  EXPECT_NEAR(turned.ShareOf(is_ink), portrait.ShareOf(is_ink), .01);
  const auto one = portrait.BoundsOf(is_ink), other = turned.BoundsOf(is_ink);
  ASSERT_TRUE(one && other);
  EXPECT_NEAR(one->left, other->left, .01);
  EXPECT_NEAR(one->top, other->top, .01);
}

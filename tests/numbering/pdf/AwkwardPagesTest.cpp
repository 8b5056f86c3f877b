// Pages that do what they should not, or share what they have: they look as before, with their
// number.

#include <gtest/gtest.h>

#include "tests/support/NumberedPdf.h"
#include "tests/support/RawPdf.h"

namespace {

constexpr char kBlock[] = "1 0 0 rg 20 700 100 100 re f\n";

// Which of the first page's pixels belong to its number.
std::vector<bool> Ink(const Picture &with, const Picture &without) {
  std::vector<bool> ink;
  for (int y = 0; y < with.height(); ++y) {
    for (int x = 0; x < with.width(); ++x) ink.push_back(with.at(x, y) != without.at(x, y));
  }
  return ink;
}

// A page of this, numbered, differs from a page of what is meant by what a number makes of a page
// with a block.
void ExpectNumbered(const std::string &content, const std::string &meant, bool over) {
  const std::string usual = RawPdf({{kBlock}});
  const std::vector<Picture> pictures = PicturesOf(
      {usual, NumberedPdf(usual, over), RawPdf({{meant}}), NumberedPdf(RawPdf({{content}}), over)});
  ASSERT_EQ(pictures.size(), 4u) << content;
  EXPECT_NE(pictures[2].BoundsOf([](Color color) {
    return color == Color{255, 0, 0};
  }),
            std::nullopt)
      << "the block is not there: " << meant;
  EXPECT_EQ(Ink(pictures[3], pictures[2]), Ink(pictures[1], pictures[0]))
      << (over ? "over " : "behind ") << content;
}

void ExpectNumbered(const std::string &content) {
  for (const bool over : {false, true}) ExpectNumbered(content, content, over);
}

}  // namespace

TEST(AwkwardPages, ThatLeaveTheirStateBehind) {
  ExpectNumbered(std::string(".5 0 0 .5 0 400 cm ") + kBlock);
  ExpectNumbered(std::string("q q .5 0 0 .5 100 400 cm ") + kBlock);
  ExpectNumbered(std::string(kBlock) + "0 0 10 10 re W n");
  ExpectNumbered(std::string("q ") + kBlock + "BT /F 12 Tf 3 Tr 200 Tz 50 Ts");
}

// Behind a page nothing of it is changed. Under a number it looks as in viewers that pass over such
// restores, in the others too.
TEST(AwkwardPages, ThatRestoreWhatTheyHaveNotSaved) {
  const std::string block = kBlock, scaled = ".5 0 0 .5 0 400 cm ";
  const auto expect = [](const std::string &content, const std::string &meant) {
    ExpectNumbered(content, content, false);
    ExpectNumbered(content, meant, true);
  };
  expect("Q Q " + block, block);
  expect(scaled + "Q " + block + "Q Q Q", scaled + block);
  expect("q Q Q " + scaled + "q Q Q " + block + "Q q", scaled + block);
}

TEST(AwkwardPages, ThatEndInTheMiddle) {
  ExpectNumbered(std::string(kBlock) + "q BT /F 12 Tf (abc");
  ExpectNumbered(std::string(kBlock) + "[ 1 2");
}

TEST(AwkwardPages, WhoseInstructionsAreInSeveralStreams) {
  const std::string page =
      RawPdf({{"", "/MediaBox [0 0 595 842] /Contents [10 0 R 11 0 R 12 0 R]"}},
             {PdfStream("q 1 0"), PdfStream("0 rg 20 700"), PdfStream("100 100 re f")});
  const std::string usual = RawPdf({{kBlock}});
  for (const bool over : {false, true}) {
    const std::vector<Picture> pictures =
        PicturesOf({NumberedPdf(page, over), NumberedPdf(usual, over)});
    ASSERT_EQ(pictures.size(), 2u);
    EXPECT_EQ(pictures[0], pictures[1]);
  }
}

TEST(AwkwardPages, WithoutInstructions) {
  const std::string page = PdfOfObjects(
      {"<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Count 1 /Kids [3 0 R] >>",
       "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 595 842] >>"});
  for (const bool over : {false, true}) EXPECT_EQ(TextOfPdf(NumberedPdf(page, over)), "25");
}

TEST(AwkwardPages, OnePageThatIsThereTwiceHasTwoNumbers) {
  const std::string twice = PdfOfObjects(
      {"<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Count 3 /Kids [3 0 R 3 0 R 3 0 R] >>",
       "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 595 842] /Contents 4 0 R >>",
       PdfStream(kBlock)});
  for (const bool over : {false, true}) EXPECT_EQ(TextOfPdf(NumberedPdf(twice, over)), "25 26 27");
}

TEST(AwkwardPages, KeepTheResourcesThatTheyInherit) {
  const std::string content = "BT /F 12 Tf 50 750 Td (Words of the page) Tj ET";
  EXPECT_EQ(TextOfPdf(NumberedPdf(RawPdf({{content}, {content}}), false)),
            "Words of the page 25 Words of the page 26");
}

TEST(AwkwardPages, WithAFontOfTheSameNameKeepIt) {
  const RawPage page = {"BT /BackgroundNumber 12 Tf 50 750 Td (123) Tj ET",
                        "/MediaBox [0 0 595 842] /Resources << /Font << /BackgroundNumber 10 0 R "
                        ">> >>"};
  const std::string pdf =
      RawPdf({page, page}, {"<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica-Oblique >>"});
  const std::vector<Picture> pictures = PicturesOf({pdf, NumberedPdf(pdf, false)});
  ASSERT_EQ(pictures.size(), 4u);
  // At the top of the page, where no number is.
  const Box top = {0, 0, 1, .2};
  const auto is_ink = [](Color color) { return color != kWhitePaper; };
  EXPECT_GT(pictures[0].ShareOf(is_ink, top), 0);
  EXPECT_EQ(pictures[2].ShareOf(is_ink, top), pictures[0].ShareOf(is_ink, top));
  EXPECT_EQ(TextOfPdf(NumberedPdf(pdf, false)), "123 25 123 26");
}

TEST(AwkwardPages, NumberedTwiceHaveTwoNumbers) {
  const std::string once = NumberedPdf(RawPdf({{kBlock}}), false);
  const std::string twice = TextOfPdf(NumberedPdf(once, true, ChoicesWith(7)));
  EXPECT_TRUE(twice == "25 7" || twice == "7 25") << twice;
}

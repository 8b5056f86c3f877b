// The number goes over those pages that would hide it, and behind all others.

#include <gtest/gtest.h>

#include "tests/filter/FilterRun.h"
#include "tests/support/RawPdf.h"

namespace {

std::string DenseText() {
  std::string content = "BT /F 10 Tf 12 TL 40 810 Td\n";
  for (int line = 0; line < 64; ++line) {
    content +=
        "(Words upon words fill this page from the left to the right, and from the top down to "
        "its end, in a small size.) Tj T*\n";
  }
  return content + "ET";
}

// Which pages would hide their numbers, from 25 on: #.
std::string Hiding(const std::string &pdf) {
  const TemporaryFolder folder;
  const RunResult result = RunProgram({"bash", "-c", "\"$0\" 0 \"$1\" 0 25 .64 <\"$2\"",
                                       BINARY_DIRECTORY "/backgroundnumbers-look",
                                       std::to_string(pdf.size()), folder.Write("document", pdf)});
  EXPECT_EQ(result.status, 0);
  return result.out;
}

}  // namespace

TEST(Automatic, GoesPageByPage) {
  const std::string pdf = RawPdf({
      {""},
      {DenseText()},
      {"1 g 0 0 595 842 re f 0 g BT /F 12 Tf 50 750 Td (White paper, painted) Tj ET"},
      {"0 0 0 RG 1 w 50 50 495 742 re S"},
      {".2 .4 .9 rg 0 0 595 421 re f"},                                   // a picture below
      {"1 0 0 rg 0 700 595 142 re f"},                                    // a heading
      {"q 595 0 0 842 0 0 cm BI /W 1 /H 1 /CS /G /BPC 8 ID \xff\nEI Q"},  // a scanned page
  });
  EXPECT_EQ(Hiding(pdf), "..#.#.#");
  EXPECT_TRUE(Filter(pdf).Logged("7 pages from 25 on, the number over 3 of them"));
}

TEST(Automatic, TheNumberShowsOnEachOfThem) {
  const std::string pdf =
      RawPdf({{"1 g 0 0 595 842 re f"},
              {DenseText()},
              {"/G gs .9 .9 1 rg 0 0 595 842 re f",
               "/MediaBox [0 0 595 842] /Resources << /ExtGState << /G << /ca .5 >> "
               ">> >>"}});
  const std::vector<Picture> plain = PicturesOf({pdf}), numbered = PicturesOf({Filter(pdf).out});
  ASSERT_EQ(numbered.size(), 3u);
  for (size_t page = 0; page < 3; ++page) {
    int changed = 0;
    for (int y = 0; y < plain[page].height(); ++y) {
      for (int x = 0; x < plain[page].width(); ++x) {
        changed += plain[page].at(x, y) != numbered[page].at(x, y);
      }
    }
    EXPECT_GT(changed, 1000) << page;
  }
}

TEST(Automatic, LooksAtPagesAsTheyAreTurned) {
  // The lower half as it is read.
  const std::string half = "1 g 0 0 298 842 re f";
  EXPECT_EQ(Hiding(RawPdf({{half, "/MediaBox [0 0 595 842] /Rotate 90"}, {half}})), "##");
  const std::string edge = "1 g 0 0 60 842 re f";
  EXPECT_EQ(Hiding(RawPdf({{edge, "/MediaBox [0 0 595 842] /Rotate 90"}, {edge}})), "..");
}

TEST(Automatic, ThePlacementThatIsAskedForIsTaken) {
  const std::string pdf = RawPdf({{"1 g 0 0 595 842 re f"}});
  const std::string on = kOn;
  EXPECT_FALSE(Filter(pdf, on + " VQBNPlacement=Behind").out.find("\nq\n") != std::string::npos);
  EXPECT_TRUE(Filter(pdf, on + " VQBNPlacement=Over").out.find("\nq\n") != std::string::npos);
}

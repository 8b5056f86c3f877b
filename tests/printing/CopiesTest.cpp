// Copies, and both sides of the paper.

#include <gmock/gmock.h>

#include "tests/printing/PrintedJob.h"
#include "tests/support/Documents.h"

using testing::HasSubstr;

namespace {

const char *const kHandling = "multiple-document-handling";
const char *const kCollated = "separate-documents-collated-copies";
const char *const kUncollated = "separate-documents-uncollated-copies";

Settings Copies(const char *handling, const Settings &more = {}) {
  Settings settings = more;
  settings.merge(Settings{{"copies", "2"}, {kHandling, handling}});
  return On(settings);
}

}  // namespace

TEST(Copies, CollatedOnesGoOnCounting) {
  for (const std::string &document : {TextPdf(3), TextDocument(3)}) {
    const PrintedJob job(Copies(kCollated), document);
    EXPECT_EQ(job.Numbers(), "25 26 27 28 29 30");
    ASSERT_EQ(job.Pages().size(), 6u);
    EXPECT_TRUE(job.Pages()[3].Says("Page 1"));
  }
}

TEST(Copies, OnesThatThePrinterMakesHaveTheNumberOfTheirPage) {
  for (const std::string &document : {TextPdf(3), TextDocument(3)}) {
    const PrintedJob job(Copies(kUncollated), document);
    EXPECT_THAT(job.Output(), HasSubstr("NumCopies"));
    EXPECT_EQ(job.Numbers(), "25 26 27");
    for (const PrintedPage &page : job.Pages()) {
      ASSERT_EQ(page.pictures.size(), 2u);
      EXPECT_TRUE(page.pictures[0] == page.pictures[1]);
    }
  }
}

TEST(Copies, CopiesOfAPageThatThePrinterMakesLookLikeTheOnlyOne) {
  const PrintedJob copies(Copies(kUncollated), TextPdf(3));
  const PrintedJob single(On(), TextPdf(3));
  ASSERT_EQ(copies.Pages().size(), single.Pages().size());
  for (size_t at = 0; at < copies.Pages().size(); ++at) {
    EXPECT_TRUE(copies.Pages()[at].picture() == single.Pages()[at].picture());
  }
}

TEST(BothSides, EachSideHasANumber) {
  for (const char *duplex : {"DuplexNoTumble", "DuplexTumble"}) {
    for (const std::string &document : {TextPdf(3), TextDocument(3)}) {
      const PrintedJob job(On({{"Duplex", duplex}}), document);
      EXPECT_THAT(job.Output(), HasSubstr("Duplex true"));
      EXPECT_EQ(job.Numbers(), "25 26 27");
    }
  }
}

TEST(BothSides, TheBlankBackOfACollatedCopysLastSheetCountsAndIsNumbered) {
  for (const std::string &document : {TextPdf(3), TextDocument(3)}) {
    const PrintedJob job(Copies(kCollated, {{"Duplex", "DuplexNoTumble"}}), document);
    EXPECT_EQ(job.Numbers(), "25 26 27 28 29 30 31 32");
    ASSERT_EQ(job.Pages().size(), 8u);
    EXPECT_FALSE(job.Pages()[3].Says("Page"));
    EXPECT_TRUE(job.Pages()[4].Says("Page 1"));
  }
}

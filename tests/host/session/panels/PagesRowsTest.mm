#include "tests/host/session/panels/RowsOfJob.h"

namespace {

constexpr char kCopies[] = "multiple-document-handling";
constexpr char kCollated[] = "separate-documents-collated-copies";
constexpr char kUncollated[] = "separate-documents-uncollated-copies";

}  // namespace

OBJC_TEST(PagesRows, SayWhichPagesArePrintedInWhichOrder) {
  RowsOfJob panel(PagesRows, ColorPPD());
  EXPECT_EQ((Names{"page-set", "outputorder", kCopies}), panel.names());
  EXPECT_EQ("all", panel.Value("page-set"));
  EXPECT_TRUE(panel.Choose("page-set", "odd"));
  EXPECT_EQ("odd", panel.session.Value("page-set"));
}

OBJC_TEST(PagesRows, ThePrinterMayUsuallyPrintTheLastPageFirst) {
  RowsOfJob panel(PagesRows, PlainPPD("*DefaultOutputOrder: Reverse\n"));
  EXPECT_EQ("reverse", panel.Value("outputorder"));
  EXPECT_TRUE(panel.Choose("outputorder", "normal"));
  EXPECT_EQ("normal", panel.Value("outputorder"));
  EXPECT_EQ("normal", RowsOfJob(PagesRows, ColorPPD()).Value("outputorder"));
}

OBJC_TEST(PagesRows, TheOrderIsTheSameUnderAllItsNames) {
  RowsOfJob panel(PagesRows, PlainPPD(), kOffered, {{"page-delivery", "reverse-order"}});
  EXPECT_EQ("reverse", panel.Value("outputorder"));
  EXPECT_TRUE(panel.session.Set("output-order", "Reverse"));
  EXPECT_TRUE(panel.Choose("outputorder", "normal"));
  EXPECT_EQ((JobOptions{{"outputorder", "normal"}}), *panel.session.Options());
}

OBJC_TEST(PagesRows, CopiesAreCollatedUnderAllItsNames) {
  for (const auto &[options, shown] : std::vector<std::pair<JobOptions, std::string>>{
           {{}, kUncollated},
           {{{"collate", "true"}}, kCollated},
           {{{"collate", "true"}, {kCopies, kUncollated}}, kCollated},
           {{{"collate", "false"}}, kUncollated},
           {{{kCopies, kCollated}}, kCollated}}) {
    const RowsOfJob panel(PagesRows, ColorPPD(), kOffered, options);
    EXPECT_EQ(shown, panel.Value(kCopies)) << options.size();
  }
  RowsOfJob panel(PagesRows, ColorPPD(), kOffered, {{"collate", "true"}});
  EXPECT_TRUE(panel.Choose(kCopies, kUncollated));
  EXPECT_EQ(kUncollated, panel.Value(kCopies)) << "the queue's default gives way";
}

OBJC_TEST(PagesRows, APrinterThatCollatesHasItsOwnChoice) {
  RowsOfJob panel(PagesRows, PlainPPD(Option("Collate", {"False", "True"})));
  EXPECT_EQ((Names{"page-set", "outputorder", "Collate"}), panel.names());
  EXPECT_TRUE(panel.Choose("Collate", "True"));
  EXPECT_EQ("True", panel.session.Value("Collate"));
}

OBJC_TEST(PagesRows, AQueueThatListsOneOrderOfCopiesHasNoChoice) {
  OfferedOptions offered = kOffered;
  offered[kCopies] = {kCollated};
  EXPECT_EQ((Names{"page-set", "outputorder"}), RowsOfJob(PagesRows, ColorPPD(), offered).names());
}

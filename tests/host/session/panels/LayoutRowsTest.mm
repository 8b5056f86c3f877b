#include "tests/host/session/panels/RowsOfJob.h"

OBJC_TEST(LayoutRows, OfferTheNumbersOfPagesThatTheQueueLists) {
  const RowsOfJob queue(LayoutRows, ColorPPD());
  EXPECT_EQ((Names{"1", "2", "4"}), Keywords(queue["number-up"]));
  const RowsOfJob file(LayoutRows, ColorPPD(), {});
  EXPECT_EQ((Names{"1", "2", "4", "6", "9", "16"}), Keywords(file["number-up"]))
      << "a printer from a file";
}

OBJC_TEST(LayoutRows, TheOrderOfPagesIsGrayWithOnePagePerSheet) {
  RowsOfJob panel(LayoutRows, ColorPPD());
  EXPECT_EQ("choose several pages per sheet first", panel.WhyGray("number-up-layout"));
  EXPECT_TRUE(panel.Choose("number-up", "2"));
  EXPECT_EQ("", panel.WhyGray("number-up-layout"));
  EXPECT_EQ("2", panel.session.Value("number-up"));
}

OBJC_TEST(LayoutRows, TwoSidedIsInTheWordsOfThePrinterThatHasIt) {
  RowsOfJob panel(LayoutRows, ColorPPD());
  EXPECT_EQ("Two-Sided", panel["Duplex"].caption);
  EXPECT_EQ("", panel["Duplex"].group) << "it stands among rows of the dialog's own";
  EXPECT_EQ("None", panel.Value("Duplex"));
  EXPECT_TRUE(panel.Choose("Duplex", "DuplexTumble"));
  EXPECT_EQ("DuplexTumble", panel.session.Value("Duplex"));
}

OBJC_TEST(LayoutRows, TwoSidedIsGrayOnAPrinterThatPrintsOnOneSide) {
  const RowsOfJob panel(LayoutRows, PlainPPD());
  EXPECT_EQ("this printer prints on one side of the paper", panel.WhyGray("sides"));
  EXPECT_EQ("one-sided", panel.Value("sides"));
}

OBJC_TEST(LayoutRows, AQueueMayOfferTwoSidedByItself) {
  OfferedOptions offered = kOffered;
  offered["sides"] = {"one-sided", "two-sided-long-edge"};
  RowsOfJob panel(LayoutRows, std::nullopt, offered);
  EXPECT_EQ((Names{"one-sided", "two-sided-long-edge"}), Keywords(panel["sides"]));
  EXPECT_EQ("", panel.WhyGray("sides"));
}

OBJC_TEST(LayoutRows, WherePrintersDifferOrNobodyLaysOutPagesThereAreFewerOrNone) {
  const RowsOfJob of_class(LayoutRows, std::nullopt);
  EXPECT_EQ((Names{"number-up", "number-up-layout", "page-border", "orientation-requested"}),
            of_class.names());
  EXPECT_EQ(Names(), RowsOfJob(LayoutRows, std::nullopt, {}).names());
}

OBJC_TEST(LayoutRows, AnOrientationIsTheSameUnderAllItsNames) {
  for (const auto &[option, value, shown] :
       std::vector<std::tuple<std::string, std::string, std::string>>{
           {"orientation-requested", "landscape", "4"},
           {"orientation-requested", "reverse-portrait", "6"},
           {"orientation-requested", "5", "5"},
           {"landscape", "true", "4"},
           {"landscape", "no", "3"}}) {
    const RowsOfJob panel(LayoutRows, ColorPPD(), kOffered, {{option, value}});
    EXPECT_EQ(shown, panel.Value("orientation-requested")) << option << '=' << value;
  }
  EXPECT_EQ("", RowsOfJob(LayoutRows, ColorPPD()).Value("orientation-requested"));
}

OBJC_TEST(LayoutRows, WhatIsChosenBeatsOtherNamesOfTheSame) {
  RowsOfJob panel(LayoutRows, ColorPPD(), kOffered, {{"landscape", "true"}});
  EXPECT_TRUE(panel.session.Set("landscape", "true"));
  EXPECT_TRUE(panel.Choose("orientation-requested", "6"));
  EXPECT_EQ("6", panel.Value("orientation-requested"));
  const JobOptions options = *panel.session.Options();
  EXPECT_FALSE(options.contains("landscape")) << "of the job, and the queue's default";
}

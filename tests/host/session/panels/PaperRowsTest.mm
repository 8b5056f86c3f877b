#include "tests/host/session/panels/RowsOfJob.h"
#include "tests/support/CustomPaper.h"

OBJC_TEST(PaperRows, AreThoseThatThePrinterHasAndTheScaling) {
  EXPECT_EQ((Names{"PageSize", "InputSlot", "MediaType", "print-scaling", "scaling"}),
            RowsOfJob(PaperRows, ColorPPD()).names());
  EXPECT_EQ((Names{"PageSize", "print-scaling", "scaling"}),
            RowsOfJob(PaperRows, PlainPPD()).names());
  EXPECT_EQ(Names(), RowsOfJob(PaperRows, std::nullopt, {}).names());
}

OBJC_TEST(PaperRows, ACustomSizeBeginsWithThatOfThePaperAndIsTyped) {
  RowsOfJob panel(PaperRows, PlainPPD(kCustomSizes));
  EXPECT_EQ((Names{"A4", "Custom"}), Keywords(panel["PageSize"]));
  EXPECT_EQ("A4", panel.Value("PageSize"));
  EXPECT_EQ("209.9 x 297 mm", panel.Value("custom size")) << "595 x 842 points";
  EXPECT_EQ("choose Custom for the size of the paper first", panel.WhyGray("custom size"));

  EXPECT_TRUE(panel.Choose("PageSize", "Custom"));
  EXPECT_EQ("Custom.209.9x297mm", panel.session.Value("PageSize"));
  EXPECT_EQ("Custom", panel.Value("PageSize"));
  EXPECT_EQ("", panel.WhyGray("custom size"));
  EXPECT_TRUE(panel.Choose("custom size", "10 x 15 cm"));
  EXPECT_EQ("Custom.10x15cm", panel.session.Value("PageSize"));
  EXPECT_EQ("10 x 15 cm", panel.Value("custom size"));
  EXPECT_TRUE(panel.Choose("PageSize", "Custom"));
  EXPECT_EQ("Custom.10x15cm", panel.session.Value("PageSize")) << "it stays as it was";
  EXPECT_TRUE(panel.session.CheckPrintable());
}

OBJC_TEST(PaperRows, ASizeThatThePrinterDoesNotTakeLeavesTheOneBefore) {
  RowsOfJob panel(PaperRows, PlainPPD(kCustomSizes));
  EXPECT_TRUE(panel.Choose("custom size", "100 x 200"));
  EXPECT_EQ("paper of this printer can be from 12.7 x 12.7 mm to 352.8 x 352.8 mm",
            MessageOf(panel.Choose("custom size", "100 x 2000")));
  EXPECT_EQ("\"large\" is no size of paper; write for example 210 x 297 mm",
            MessageOf(panel.Choose("custom size", "large")));
  EXPECT_EQ("Custom.100x200mm", panel.session.Value("PageSize"));
}

OBJC_TEST(PaperRows, ScalingIsThatWhichTheFiltersObey) {
  for (const auto &[options, shown] : std::vector<std::pair<JobOptions, std::string>>{
           {{}, "auto"},
           {{{"print-scaling", "fill"}, {"fit-to-page", "true"}}, "fill"},
           {{{"fit-to-page", "true"}}, "fit"},
           {{{"fit-to-page", "false"}}, "auto"},
           {{{"fitplot", "no"}, {"fit-to-page", "true"}}, "auto"},
           {{{"fill", "yes"}}, "fill"},
           {{{"crop-to-fit", "yes"}}, "none"},
           {{{"scaling", "40"}}, "percentage"}}) {
    const RowsOfJob panel(PaperRows, ColorPPD(), kOffered, options);
    EXPECT_EQ(shown, panel.Value("print-scaling")) << options.size();
  }
}

OBJC_TEST(PaperRows, APercentageIsTypedWhereItIsChosen) {
  RowsOfJob panel(PaperRows, PlainPPD());
  EXPECT_EQ("choose the percentage for the scaling first", panel.WhyGray("scaling"));
  EXPECT_TRUE(panel.Choose("print-scaling", "fit"));
  EXPECT_TRUE(panel.Choose("print-scaling", "percentage"));
  EXPECT_EQ((JobOptions{{"scaling", "100"}}), *panel.session.OwnOptions());
  EXPECT_EQ("", panel.WhyGray("scaling"));
  EXPECT_TRUE(panel.Choose("scaling", " 40 "));
  EXPECT_EQ("40", panel.session.Value("scaling"));
  for (const char *wrong : {"0", "801", "4x", "", "-1"}) {
    EXPECT_FALSE(panel.Choose("scaling", wrong)) << wrong;
  }
  EXPECT_EQ("40", panel.Value("scaling"));
  EXPECT_TRUE(panel.Choose("print-scaling", "none"));
  EXPECT_EQ((JobOptions{{"print-scaling", "none"}}), *panel.session.OwnOptions());
}

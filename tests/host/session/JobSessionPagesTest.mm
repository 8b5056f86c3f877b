// A job's pages as they would be printed, looked at before that.

#include <gmock/gmock.h>

#include "tests/host/session/SessionOfJob.h"

using testing::HasSubstr;

namespace {

constexpr char kDuplex[] = "*OpenUI *Duplex: PickOne\n*DefaultDuplex: None\n*Duplex None: \"\"\n"
                           "*Duplex DuplexNoTumble: \"\"\n*CloseUI: *Duplex\n";

}  // namespace

OBJC_TEST(JobSessionPages, AreAskedForWithAllOptions) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {{"number-up", "2"}}));
  EXPECT_TRUE(session.Set("VQStartNumber", "25"));
  const Expected<PagesRequest> pages = session.PagesFor({"a.pdf"});
  ASSERT_TRUE(pages);
  EXPECT_EQ(pages->title, "a.pdf");
  EXPECT_EQ(pages->options.at("number-up"), "2");
  EXPECT_EQ(pages->options.at("VQStartNumber"), "25");
  EXPECT_EQ(pages->making.filters.at(0).program, "backgroundnumbers");
  EXPECT_TRUE(pages->making.of_filters.contains("VQStartNumber"));
  EXPECT_FALSE(pages->making.of_filters.contains("Duplex"));
  EXPECT_EQ(pages->making.ppd, session.ppd()->source());
}

OBJC_TEST(JobSessionPages, NeedAPrinterWithADescription) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(std::nullopt, {}));
  EXPECT_THAT(MessageOf(session.PagesFor({"a.pdf"})), HasSubstr("has no PPD file"));
}

OBJC_TEST(JobSessionPages, KnowWhetherTwoMakeASheet) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(PlainPPD(kDuplex), {}));
  EXPECT_FALSE(session.PagesFor({"a.pdf"})->is_two_sided);
  EXPECT_TRUE(session.Set("Duplex", "DuplexNoTumble"));
  EXPECT_TRUE(session.PagesFor({"a.pdf"})->is_two_sided);
  EXPECT_TRUE(session.Set("Duplex", ""));
  EXPECT_TRUE(session.Set("sides", "two-sided-short-edge"));
  EXPECT_TRUE(session.PagesFor({"a.pdf"})->is_two_sided);
}

OBJC_TEST(JobSessionPages, LeaveTheSettingsAsTheyWere) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  EXPECT_TRUE(session.Set("copies", "2"));
  const JobOptions before = SettingsOf(session);
  const PMPrintSettings object = session.settings();
  bool is_done = false;
  EXPECT_TRUE(session.PutBackAfter([&] {
    EXPECT_TRUE(session.Set("copies", "7"));
    EXPECT_TRUE(session.Set("VQStartNumber", "25"));
    EXPECT_TRUE(session.Set("number-up", "4"));
    is_done = true;
  }));
  EXPECT_TRUE(is_done);
  EXPECT_EQ(SettingsOf(session), before);
  EXPECT_EQ(session.settings(), object);
}

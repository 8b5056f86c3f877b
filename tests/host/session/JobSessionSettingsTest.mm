// The settings of a job as the panels and the dialog change them, and what is printed with them.

#include "tests/host/session/SessionOfJob.h"

OBJC_TEST(JobSession, ReplacesAllSettingsInTheSameObject) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  EXPECT_TRUE(session.Set("copies", "2"));
  EXPECT_TRUE(session.Set("VQBNSize", "Large"));
  const PMPrintSettings before = session.settings();
  EXPECT_EQ(Notes(), session.UseSettings(SettingsWith(@{@"number-up" : @"4"})));
  EXPECT_EQ(before, session.settings());
  EXPECT_EQ(With(kDefaults, {{"number-up", "4"}}), SettingsOf(session));
}

OBJC_TEST(JobSession, PanelsSeeNewSettingsWhenTheyAreRestored) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  for (const auto &panel : session.panels()) {
    panel->View();
    EXPECT_TRUE(panel->Restore());
  }
  EXPECT_TRUE(session.UseSettings(SettingsWith(@{
    @"VQBackgroundNumbering" : @"On",
    @"VQStartNumber" : @"7",
    @"Duplex" : @"DuplexTumble",
  })));
  for (const auto &panel : session.panels()) {
    EXPECT_TRUE(panel->Restore());
    panel->WillShow();
    EXPECT_TRUE(panel->Save());
  }
  EXPECT_EQ(
      With(kDefaults,
           {{"VQBackgroundNumbering", "On"}, {"VQStartNumber", "7"}, {"Duplex", "DuplexTumble"}}),
      SettingsOf(session));
}

OBJC_TEST(JobSession, SetsAndTakesAway) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_EQ("", session.Value("copies"));
  EXPECT_TRUE(session.Set("copies", "3"));
  EXPECT_EQ("3", session.Value("copies"));
  EXPECT_TRUE(session.Set("copies", ""));
  EXPECT_EQ(JobOptions(), SettingsOf(session));
}

OBJC_TEST(JobSession, PrintsWithTheQueuesDefaultsUnderTheSettings) {
  Bundles bundles("panels=nil");
  JobSession session(bundles.extensions);
  EXPECT_TRUE(
      session.UsePrinter(PlainPPD(), {{"sides", "two-sided-long-edge"}, {"number-up", "2"}}));
  EXPECT_TRUE(session.UseSettings(SettingsWith(@{
    @"number-up" : @"4",
    @"com.other.count" : @12,
    @"com.other.list" : @[ @5 ],
  })));
  EXPECT_EQ(
      (JobOptions{{"sides", "two-sided-long-edge"}, {"number-up", "4"}, {"com.other.count", "12"}}),
      session.Options());
}

OBJC_TEST(JobSession, ChoosesWhatIsSetOrTheQueuesDefaultOrTheFiles) {
  Bundles bundles("panels=nil");
  JobSession session(bundles.extensions);
  EXPECT_TRUE(
      session.UsePrinter(ColorPPD(), {{"MediaType", "Transparency"}, {"InputSlot", "Absent"}}));
  JobOptions choices = *session.Choices();
  EXPECT_EQ("None", choices.at("Duplex"));
  EXPECT_EQ("Auto", choices.at("InputSlot"));
  EXPECT_EQ("Transparency", choices.at("MediaType"));
  EXPECT_TRUE(session.Set("MediaType", "Plain"));
  EXPECT_TRUE(session.Set("sides", "two-sided-long-edge"));
  choices = *session.Choices();
  EXPECT_EQ("Plain", choices.at("MediaType"));
  EXPECT_EQ("DuplexNoTumble", choices.at("Duplex")) << "under another name";
  EXPECT_FALSE(choices.contains("Absent"));
}

OBJC_TEST(JobSession, LeavesOtherOptionsToTheDialog) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  EXPECT_EQ((Names{"PageSize", "MediaType"}), KeywordsOf(session.OtherOptions()));
}

OBJC_TEST(JobSession, TellsAllPanelsOfAChangedOption) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  bundles.run.Calls();
  EXPECT_TRUE(session.ChangeOption("MediaType", "Transparency"));
  EXPECT_EQ("Transparency", session.Value("MediaType"));
  EXPECT_EQ((Names{"First optionDidChange MediaType=Transparency",
                   "Second optionDidChange MediaType=Transparency"}),
            bundles.run.Calls());
}

OBJC_TEST(JobSession, PrintsAsItStands) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  EXPECT_EQ("", ReasonOf(session));
}

OBJC_TEST(JobSession, DoesNotPrintIfAPanelDoesNotAllowIt) {
  Bundles bundles("Second.shouldPrint=no");
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  EXPECT_EQ("Second does not allow this job to be printed", ReasonOf(session));
}

OBJC_TEST(JobSession, DoesNotPrintWhatTheSettingInfoDoesNotAllow) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  EXPECT_TRUE(session.Set("VQStartNumber", "1000"));
  EXPECT_EQ("the job's VQStartNumber is \"1000\": it must be a whole number from 1 to 999",
            ReasonOf(session));
}

OBJC_TEST(JobSession, DoesNotPrintWhatThePrinterDoesNotHave) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  EXPECT_TRUE(session.Set("PageSize", "A0"));
  EXPECT_EQ(
      "the job's PageSize is \"A0\": this printer has no PageSize \"A0\"; it has A4, Letter, A3",
      ReasonOf(session));
}

OBJC_TEST(JobSession, PrintsWhatAPanelClaimsWithoutAnOptionOfThePPD) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  EXPECT_TRUE(session.UsePrinter(PlainPPD(kSupported), {}));
  EXPECT_TRUE(session.Set("VQBNSize", "Large"));
  EXPECT_EQ("", ReasonOf(session));
}

OBJC_TEST(JobSession, NotesWhatNoPrinterCanBeSentAndKeepsIt) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_EQ(
      Notes{"\"two words\" is not sent to the printer: no option can have this name or this value"},
      session.UseSettings(SettingsWith(@{@"two words" : @"a", @"word" : @"b"})));
  EXPECT_EQ((JobOptions{{"word", "b"}}), session.Options());
  EXPECT_EQ("a", session.Value("two words"));
}

OBJC_TEST(JobSession, GivesTheJobWhatGoesWithItsChoicesUnlessTheJobOrItsQueueSaysOtherwise) {
  const std::string lines = "*PDEJobOption: \"VQBackgroundNumbering On renderer=best\"\n";
  const auto renderer = [&lines](const JobOptions &defaults, NSDictionary *own) -> std::string {
    Bundles bundles;
    JobSession session(bundles.extensions);
    EXPECT_TRUE(session.UsePrinter(PPDWithText(NumberingPPDText(true, lines)), defaults));
    EXPECT_TRUE(session.UseSettings(SettingsWith(own)));
    const Expected<JobOptions> options = session.Options();
    const auto found = options->find("renderer");
    return found == options->end() ? "" : found->second;
  };
  EXPECT_EQ("", renderer({}, @{}));
  EXPECT_EQ("best", renderer({}, @{@"VQBackgroundNumbering" : @"On"}));
  EXPECT_EQ("best", renderer({{"VQBackgroundNumbering", "On"}}, @{}));
  EXPECT_EQ("queue", renderer({{"renderer", "queue"}}, @{@"VQBackgroundNumbering" : @"On"}));
  EXPECT_EQ("own", renderer({}, @{@"VQBackgroundNumbering" : @"On", @"renderer" : @"own"}));
}

OBJC_TEST(JobSession, TakesTheChoiceThatThePrinterHasInThePlaceOfAnotherWithANote) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(
      PPDWithText(NumberingPPDText(true, "*PDESubstituteChoice: \"Duplex Both DuplexTumble\"\n")),
      {}));
  EXPECT_EQ(Notes{"this printer cannot do Duplex=Both; it is now DuplexTumble"},
            session.UseSettings(SettingsWith(@{@"Duplex" : @"Both"})));
  EXPECT_EQ("DuplexTumble", session.Value("Duplex"));
}

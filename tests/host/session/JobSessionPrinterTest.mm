// The settings of a job when it gets a printer, and another one.

#include "tests/host/session/SessionOfJob.h"

// The panels' own defaults give way: what they show is what would be printed.
OBJC_TEST(JobSession, SetsWhatPanelsShowToWhatTheQueueWouldPrint) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {{"VQBNSize", "Large"}, {"Duplex", "DuplexTumble"}}));
  EXPECT_EQ(With(kDefaults, {{"VQBNSize", "Large"}, {"Duplex", "DuplexTumble"}}),
            SettingsOf(session));
}

OBJC_TEST(JobSession, PassesOverDefaultsOfTheQueueThatAreNotAllowed) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(
      ColorPPD(), {{"VQBNSize", "Huge"}, {"VQStartNumber", "0"}, {"Duplex", "Any"}}));
  EXPECT_EQ(kDefaults, SettingsOf(session));
  EXPECT_TRUE(session.UsePrinter(PlainPPD(kSupported), {{"VQBNSize", "Huge"}}));
  EXPECT_EQ("Medium", session.Value("VQBNSize"));
}

OBJC_TEST(JobSession, LeavesPanelsTheirOwnDefaultsWhereThePrinterHasNoOption) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(PlainPPD(kSupported), {{"VQBNSize", "Large"}}));
  const JobOptions expected = {{"VQBNColor", "Black"},
                               {"VQBNDensity", "Medium"},
                               {"VQBNSize", "Large"},
                               {"VQBackgroundNumbering", "Off"},
                               {"VQStartNumber", "1"}};
  EXPECT_EQ(expected, SettingsOf(session));
  // Panels set their defaults when they are made; other settings are used later.
  EXPECT_EQ(Notes(), session.UseSettings(EmptyPrintSettings()));
  EXPECT_EQ(expected, SettingsOf(session));
}

OBJC_TEST(JobSession, KeepsWhatIsSetAlready) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(
      session.UseSettings(SettingsWith(@{@"VQBNSize" : @"Small", @"Duplex" : @"DuplexNoTumble"})));
  EXPECT_EQ(Notes(), session.UsePrinter(ColorPPD(), {{"VQBNSize", "Large"}}));
  EXPECT_EQ(With(kDefaults, {{"VQBNSize", "Small"}, {"Duplex", "DuplexNoTumble"}}),
            SettingsOf(session));
}

OBJC_TEST(JobSession, TakesTheDefaultsOfTheNewPrinterForWhatNobodyChanged) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {{"VQBNSize", "Large"}, {"VQBNDensity", "Dark"}}));
  EXPECT_TRUE(session.Set("VQBNDensity", "Light"));
  EXPECT_EQ(Notes(), session.UsePrinter(ColorPPD(), {{"Duplex", "DuplexTumble"}}));
  EXPECT_EQ(With(kDefaults, {{"VQBNDensity", "Light"}, {"Duplex", "DuplexTumble"}}),
            SettingsOf(session));
}

OBJC_TEST(JobSession, KeepsWhatATicketSetsEvenIfItIsTheDefault) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  EXPECT_TRUE(session.UseSettings(SettingsWith(@{@"VQBNSize" : @"Medium"})));
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {{"VQBNSize", "Large"}, {"VQBNDensity", "Dark"}}));
  EXPECT_EQ("Medium", session.Value("VQBNSize"));
  EXPECT_EQ("Dark", session.Value("VQBNDensity"));
}

OBJC_TEST(JobSession, TakesAwayWhatTheNewPrinterDoesNotHave) {
  Bundles bundles("panels=nil");
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  EXPECT_TRUE(session.Set("Duplex", "DuplexTumble"));
  EXPECT_TRUE(session.Set("MediaType", "Plain"));
  EXPECT_TRUE(session.Set("PageSize", "A3"));
  EXPECT_TRUE(session.Set("VQBNSize", "Large"));
  EXPECT_TRUE(session.Set("copies", "2"));
  EXPECT_TRUE(session.Set("com.other.key", "any"));
  EXPECT_EQ((Notes{"Duplex \"DuplexTumble\" does not fit: this printer has no Duplex",
                   "PageSize \"A3\" does not fit: this printer has no PageSize \"A3\"; it has A4",
                   "VQBNSize \"Large\" does not fit: this printer has no VQBNSize"}),
            session.UsePrinter(PlainPPD(Option("MediaType", {"Plain"})), {}));
  EXPECT_EQ((JobOptions{{"MediaType", "Plain"}, {"copies", "2"}, {"com.other.key", "any"}}),
            SettingsOf(session));
}

OBJC_TEST(JobSession, TakesAwayAllPrinterOptionsForAQueueWithoutAPPD) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  EXPECT_TRUE(session.Set("MediaType", "Transparency"));
  EXPECT_TRUE(session.Set("copies", "2"));
  EXPECT_EQ(Notes{"MediaType \"Transparency\" does not fit: this printer has no MediaType"},
            session.UsePrinter(std::nullopt, {}));
  EXPECT_EQ((JobOptions{{"copies", "2"}}), SettingsOf(session));
}

OBJC_TEST(JobSession, TakesAwayWhatThePrinterDoesNotListForAPanelsOption) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  EXPECT_TRUE(session.Set("VQBNColor", "Red"));
  EXPECT_TRUE(session.Set("Duplex", "DuplexTumble"));
  EXPECT_EQ(
      Notes{"VQBNColor \"Red\" does not fit: this printer has no VQBNColor \"Red\"; it has Black"},
      session.UsePrinter(MonoPPD(), {}));
  EXPECT_EQ("Black", session.Value("VQBNColor"));
  EXPECT_EQ("DuplexTumble", session.Value("Duplex"));
}

OBJC_TEST(JobSession, LeavesToThePanelWhatThePrintersDescriptionDoesNotKnow) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  EXPECT_TRUE(session.Set("VQBNColor", "Red"));
  Expected<PPDFile> mono = PPDFile::Open(SOURCE_DIRECTORY "/tests/support/SampleMono.ppd");
  ASSERT_TRUE(mono) << mono.message();
  EXPECT_EQ(Notes(), session.UsePrinter(std::move(*mono), {}));
  EXPECT_EQ("Red", session.Value("VQBNColor"));
  // The panel of a monochrome printer makes it Black.
  EXPECT_EQ("", ReasonOf(session));
  EXPECT_EQ("Black", session.Value("VQBNColor"));
}

OBJC_TEST(JobSession, ADefaultDoesNotBeatWhatIsSetUnderAnotherNameOfTheSame) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(
      ColorPPD(), {{"Duplex", "None"}, {"PageSize", "Letter"}, {"sides", "one-sided"}}));
  EXPECT_TRUE(session.Set("sides", "two-sided-long-edge"));
  EXPECT_TRUE(session.Set("media", "A3"));
  const JobOptions options = *session.Options();
  EXPECT_FALSE(options.contains("Duplex"));
  EXPECT_FALSE(options.contains("PageSize"));
  EXPECT_EQ("two-sided-long-edge", options.at("sides"));
  EXPECT_TRUE(session.Set("sides", ""));
  EXPECT_TRUE(session.Set("Duplex", "DuplexTumble"));
  EXPECT_FALSE(session.Options()->contains("sides"));
}

OBJC_TEST(JobSession, TakesAwayValuesThatTheSettingInfoDoesNotAllow) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  EXPECT_EQ((Notes{"VQBNSize \"Huge\" does not fit: it must be one of Small, Medium, Large",
                   "VQStartNumber \"1000\" does not fit: it must be a whole number from 1 to 999"}),
            session.UseSettings(SettingsWith(
                @{@"VQBNSize" : @"Huge", @"VQStartNumber" : @"1000", @"VQBNDensity" : @"Dark"})));
  EXPECT_EQ(With(kDefaults, {{"VQBNDensity", "Dark"}}), SettingsOf(session));
}

OBJC_TEST(JobSession, TakesAwayWhatIsNoText) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  NSDictionary *values = @{
    @"VQBNSize" : @[ @"Large" ],
    @"Duplex" : @{@"any" : @1},
    @"MediaType" : [NSData data],
    @"com.other.list" : @[ @5 ],
  };
  EXPECT_EQ((Notes{"Duplex does not fit: its value is no text",
                   "MediaType does not fit: its value is no text",
                   "VQBNSize does not fit: its value is no text"}),
            session.UseSettings(SettingsWith(values)));
  EXPECT_EQ(kDefaults, SettingsOf(session));
  CFTypeRef others = nullptr;
  PMPrintSettingsGetValue(session.settings(), (CFStringRef) @"com.other.list", &others);
  EXPECT_EQUAL_OBJECTS(@[ @5 ], (id)others);
}

OBJC_TEST(JobSession, GivesValuesTheFormInWhichTheyAreSent) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {{"copies", " 2"}, {"page-ranges", "5, 1-3"}}));
  EXPECT_EQ((JobOptions{{"copies", "2"}, {"page-ranges", "1-3,5"}}),
            Only({"copies", "page-ranges"}, *session.Options()));
  EXPECT_EQ(Notes(), session.UseSettings(
                         SettingsWith(@{@"VQStartNumber" : @"025", @"page-ranges" : @"4 , 2"})));
  EXPECT_EQ("25", session.Value("VQStartNumber"));
  EXPECT_EQ("2,4", session.Value("page-ranges"));
}

// Hand-written tickets have them.
OBJC_TEST(JobSession, TakesNumbersForTexts) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  EXPECT_EQ(Notes(), session.UseSettings(SettingsWith(@{@"VQStartNumber" : @25})));
  CFTypeRef stored = nullptr;
  PMPrintSettingsGetValue(session.settings(), (CFStringRef) @"VQStartNumber", &stored);
  EXPECT_EQUAL_OBJECTS(@"25", (id)stored);
}

OBJC_TEST(JobSession, LeavesOutCustomDefaultsOfTheQueueThatDoNotFit) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  const std::string lines =
      "*CustomPageSize True: \"pop\"\n*ParamCustomPageSize Width: 1 points 100 900\n"
      "*ParamCustomPageSize Height: 2 points 200 1200\n";
  EXPECT_EQ((Notes{"PageSize \"Custom.1x1\" (a default of the queue) does not fit: this printer "
                   "has no PageSize \"Custom.1x1\"; it has A4"}),
            session.UsePrinter(PlainPPD(lines), {{"PageSize", "Custom.1x1"}, {"sides", "any"}}));
  EXPECT_EQ((JobOptions{{"sides", "any"}}), session.Options());
  EXPECT_EQ(Notes(), session.UsePrinter(PlainPPD(lines), {{"PageSize", "Custom.300x400"}}));
  EXPECT_EQ((JobOptions{{"PageSize", "Custom.300x400"}}), session.Options());
}

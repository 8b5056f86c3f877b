// The panels of a job.

#include "tests/host/extension/BundleFolder.h"
#include "tests/host/session/SessionOfJob.h"

// A principal class whose panels, if it had any, would all keep the host.
@interface HostTestKeepsHost : NSObject
+ (HostCallback *)lastHost;
+ (NSDictionary *)settingsThen;  // when it was asked for panels
@end

@implementation HostTestKeepsHost
static HostCallback *keptHost = nil;
+ (HostCallback *)lastHost {
  return keptHost;
}
static NSDictionary *settingsThen = nil;
+ (NSDictionary *)settingsThen {
  return settingsThen;
}
- (BOOL)initWithBundle:(NSBundle *)bundle {
  return bundle != nil;
}
- (NSArray *)PDEPanelsForType:(NSString *)type withHostInfo:(id)host {
  (void)type;
  [settingsThen release];
  CFDictionaryRef values = nullptr;
  PMPrintSettingsCopyAsDictionary([host printSettings], &values);
  settingsThen = (NSDictionary *)values;
  [keptHost autorelease];
  keptHost = [host retain];
  return nil;
}
@end

OBJC_TEST(JobSession, BeginsWithoutAPrinter) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_EQ(nullptr, session.ppd());
  EXPECT_EQ(Names(), PanelNames(session));
  EXPECT_EQ(JobOptions(), session.Options());
  EXPECT_EQ(Names(), KeywordsOf(session.OtherOptions()));
  EXPECT_EQ("", ReasonOf(session));
}

OBJC_TEST(JobSession, TakesAnySettingsAsLongAsThereIsNoPrinter) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_EQ(Notes(), session.UseSettings(SettingsWith(@{@"PageSize" : @"A0"})));
  EXPECT_EQ("A0", session.Value("PageSize"));
  EXPECT_EQ(Notes{"PageSize \"A0\" does not fit: this printer has no PageSize \"A0\"; it has A4"},
            session.UsePrinter(PlainPPD(), {}));
  EXPECT_EQ("", session.Value("PageSize"));
}

OBJC_TEST(JobSession, AsksAllBundlesForPanels) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_EQ(Notes(), session.UsePrinter(ColorPPD(), {}));
  EXPECT_EQ((Names{"Background Numbering", "First", "Second"}), PanelNames(session));
  EXPECT_EQ(Notes(), session.UsePrinter(PlainPPD(), {}));
  EXPECT_EQ((Names{"First", "Second"}), PanelNames(session));
}

OBJC_TEST(JobSession, HasNoPanelsForAQueueWithoutAPPD) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(std::nullopt, {}));
  EXPECT_EQ(Names(), PanelNames(session));
  EXPECT_EQ("the queue has no PPD file, in which a printer declares what extensions need",
            session.ReasonForNoPanel());
  EXPECT_EQ(Names(), KeywordsOf(session.OtherOptions()));
}

OBJC_TEST(JobSession, LoadsWhatThePPDNames) {
  Bundles bundles("", TWO_PANELS);
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(
      PPDWithText(NumberingPPDText(true, "*APDialogExtension: \"" + std::string(kBuilt) + "\"\n")),
      {}));
  EXPECT_EQ((Names{"First", "Second", "Background Numbering"}), PanelNames(session));
}

OBJC_TEST(JobSession, TakesAwayBadValuesBeforePanelsAreMade) {
  const BundleFolder folder("NSExecutable = Test; NSPrincipalClass = HostTestKeepsHost;");
  folder.AddLibrary();
  Bundles bundles("", folder.path());
  JobSession session(bundles.extensions);
  NSDictionary *values = @{@"Duplex" : @[ @5 ], @"MediaType" : @{}, @"VQStartNumber" : @25};
  EXPECT_TRUE(session.UseSettings(SettingsWith(values)));
  EXPECT_EQ((Notes{"Duplex does not fit: its value is no text",
                   "MediaType does not fit: its value is no text"}),
            session.UsePrinter(ColorPPD(), {}));
  EXPECT_EQUAL_OBJECTS(@{@"VQStartNumber" : @"25"}, [HostTestKeepsHost settingsThen]);
}

OBJC_TEST(JobSession, SummarizesEveryPanelUnderItsName) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  EXPECT_EQ((std::vector<std::pair<std::string, SummaryLines>>{
                {"Background Numbering", {{"Print background numbers", "Off"}}},
                {"First", {{"Two-Sided", "None"}}},
                {"Second", {{"Paper Source", "Auto"}}}}),
            session.Summary());
  bundles.run.SetFaults("First.summary=nil,Second.summary=array");
  EXPECT_EQ(1u, session.Summary().size());
}

OBJC_TEST(JobSession, DropsPanelsThatShowAFault) {
  Bundles bundles("First.shouldPrint=raise");
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  EXPECT_EQ("", ReasonOf(session));
  EXPECT_EQ((Names{"Background Numbering", "First", "Second"}), PanelNames(session));
  bundles.run.Calls();
  session.DropFaultyPanels();
  EXPECT_EQ(Names{"First dealloc"}, bundles.run.Calls());
  EXPECT_EQ((Names{"Background Numbering", "Second"}), PanelNames(session));
  ASSERT_EQ(1u, bundles.extensions.left_out().size());
  EXPECT_EQ("its panel raised NSGenericException: First.shouldPrint fails",
            bundles.extensions.left_out()[0].reason);
  // What it claimed is the dialog's to show.
  EXPECT_EQ((Names{"PageSize", "MediaType", "Duplex"}), KeywordsOf(session.OtherOptions()));
}

OBJC_TEST(JobSession, DropsPanelsThatDoNotSayWhatTheyShow) {
  Bundles bundles("Second.optionKeys=raise");
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  EXPECT_EQ((Names{"Background Numbering", "First"}), PanelNames(session));
  EXPECT_EQ(1u, bundles.extensions.left_out().size());
}

// Whatever goes wrong in one panel, the job goes on with the others.
OBJC_TEST(JobSession, GoesOnWithoutPanelsThatMisbehave) {
  for (const char *fault : {"panels=raise",
                            "panels=string",
                            "panels=nil",
                            "panels=number",
                            "panels=array",
                            "First.panelName=nil",
                            "First.panelKind=number",
                            "First.optionKeys=string",
                            "First.panelView=raise",
                            "First.panelView=nil",
                            "First.restore=raise",
                            "First.save=raise",
                            "First.willShow=raise",
                            "First.shouldHide=raise",
                            "First.shouldPrint=raise",
                            "First.summary=array",
                            "First.summary=raise",
                            "First.optionDidChange=raise",
                            "First.windowWillClose=raise",
                            "First.help=raise"}) {
    Bundles bundles(fault);
    JobSession session(bundles.extensions);
    EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
    for (const auto &panel : session.panels()) {
      panel->View();
      (void)panel->Restore();
      panel->WillShow();
      panel->ShouldShowHelp();
      panel->ShouldHide();
      (void)panel->Save();
    }
    EXPECT_TRUE(session.ChangeOption("VQStartNumber", "25"));
    session.Summary();
    EXPECT_EQ("", ReasonOf(session)) << fault;
    for (const auto &panel : session.panels()) panel->WindowWillClose(false);
    session.DropFaultyPanels();
    const Names names = PanelNames(session);
    EXPECT_EQ("Background Numbering", names.empty() ? "" : names.front()) << fault;
    EXPECT_EQ(0, std::count(names.begin(), names.end(), "First")) << fault;
    EXPECT_EQ(fault == std::string("panels=nil") ? 0u : 1u, bundles.extensions.left_out().size())
        << fault;
    EXPECT_EQ("25", session.Options()->at("VQStartNumber")) << fault;
  }
}

OBJC_TEST(JobSession, FreesThePanelsOfThePrinterBefore) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
  for (const auto &panel : session.panels()) {
    panel->View();
    (void)panel->Restore();
  }
  bundles.run.Calls();
  EXPECT_TRUE(session.UsePrinter(std::nullopt, {}));
  EXPECT_EQ((Names{"First dealloc", "Second dealloc"}), bundles.run.Calls());
}

OBJC_TEST(JobSession, LeavesNoClosedPPDFileToWhoeverKeepsTheHost) {
  const BundleFolder folder("NSExecutable = Test; NSPrincipalClass = HostTestKeepsHost;");
  folder.AddLibrary();
  Bundles bundles("", folder.path());
  {
    JobSession session(bundles.extensions);
    EXPECT_TRUE(session.UsePrinter(ColorPPD(), {}));
    Retained<HostCallback *> first = Retained<HostCallback *>::Share([HostTestKeepsHost lastHost]);
    EXPECT_EQ(session.ppd()->get(), [first.get() ppdFile]);
    EXPECT_TRUE(session.UsePrinter(MonoPPD(), {}));
    EXPECT_EQ(nullptr, [first.get() ppdFile]);
    EXPECT_EQ(session.settings(), [first.get() printSettings]);
    EXPECT_EQ(session.ppd()->get(), [[HostTestKeepsHost lastHost] ppdFile]);
  }
  EXPECT_EQ(nullptr, [[HostTestKeepsHost lastHost] ppdFile]);
}

#include "host/session/JobSession.h"

#include <algorithm>

#include "tests/host/extension/BundleFolder.h"
#include "tests/host/extension/TwoPanelsRun.h"
#include "tests/support/NumberingPPD.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TestPPD.h"

namespace fs = std::filesystem;

namespace {

using Names = std::vector<std::string>;

const char kBuilt[] = BINARY_DIRECTORY "/BackgroundNumbering.plugin";

PPDFile PPDWithText(const std::string &text) {
  TemporaryFolder folder;
  Expected<PPDFile> ppd = PPDFile::Open(folder.Write("test.ppd", text));
  if (!ppd) std::abort();
  return std::move(*ppd);
}

PPDFile ColorPPD() { return PPDWithText(NumberingPPDText(true)); }
PPDFile MonoPPD() { return PPDWithText(NumberingPPDText(false)); }
// Without numbering, and without options but those of TestPPD.
PPDFile PlainPPD(const std::string &lines = "") { return PPDWithText(TestPPD::Text(lines)); }

std::string Option(const std::string &keyword, const Names &choices) {
  std::string lines = "*OpenUI *" + keyword + ": PickOne\n*Default" + keyword + ": " + choices[0];
  for (const std::string &choice : choices) lines += "\n*" + keyword + ' ' + choice + ": \"\"";
  return lines + "\n*CloseUI: *" + keyword + "\n";
}

PrintSettings SettingsWith(NSDictionary *values) {
  PrintSettings settings = EmptyPrintSettings();
  for (NSString *key in values) {
    PMPrintSettingsSetValue(settings.get(), (CFStringRef)key, [values objectForKey:key], false);
  }
  return settings;
}

// All bundles of the tests: the built one and the one with two panels.
struct Bundles {
  TwoPanelsRun run;
  Extensions extensions;

  explicit Bundles(const std::string &faults = "", const fs::path &named = kBuilt)
      : run(faults), extensions(Loaded(named)) {}

  static Extensions Loaded(const fs::path &named) {
    Expected<Extensions> extensions = Extensions::Load(named);
    if (!extensions) std::abort();
    return std::move(*extensions);
  }
};

Names PanelNames(const JobSession &session) {
  Names names;
  for (const auto &panel : session.panels()) names.push_back(panel->name());
  return names;
}

Names KeywordsOf(const std::vector<PPDOption> &options) {
  Names keywords;
  for (const PPDOption &option : options) keywords.push_back(option.keyword);
  return keywords;
}

std::string ReasonOf(JobSession &session) {
  const std::optional<Failure> failure = session.ReasonNotToPrint();
  return failure ? failure->message : "";
}

JobOptions SettingsOf(const JobSession &session) {
  return *JobOptionsFromSettings(session.settings());
}

const JobOptions kDefaults = {{"Duplex", "None"},     {"InputSlot", "Auto"},
                              {"VQBNColor", "Black"}, {"VQBNDensity", "Medium"},
                              {"VQBNSize", "Medium"}, {"VQBackgroundNumbering", "Off"},
                              {"VQStartNumber", "1"}};

JobOptions With(JobOptions options, const JobOptions &changes) {
  for (const auto &[keyword, value] : changes) options[keyword] = value;
  return options;
}

}  // namespace

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
  session.UsePrinter(std::nullopt, {});
  EXPECT_EQ(Names(), PanelNames(session));
  EXPECT_EQ("the queue has no PPD file, in which a printer declares what extensions need",
            session.ReasonForNoPanel());
  EXPECT_EQ(Names(), KeywordsOf(session.OtherOptions()));
}

OBJC_TEST(JobSession, LoadsWhatThePPDNames) {
  Bundles bundles("", TWO_PANELS);
  JobSession session(bundles.extensions);
  session.UsePrinter(
      PPDWithText(NumberingPPDText(true, "*APDialogExtension: \"" + std::string(kBuilt) + "\"\n")),
      {});
  EXPECT_EQ((Names{"First", "Second", "Background Numbering"}), PanelNames(session));
}

// The panels' own defaults give way: what they show is what would be printed.
OBJC_TEST(JobSession, SetsWhatPanelsShowToWhatTheQueueWouldPrint) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {{"VQBNSize", "Large"}, {"Duplex", "DuplexTumble"}});
  EXPECT_EQ(With(kDefaults, {{"VQBNSize", "Large"}, {"Duplex", "DuplexTumble"}}),
            SettingsOf(session));
}

OBJC_TEST(JobSession, PassesOverDefaultsOfTheQueueThatAreNotAllowed) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {{"VQBNSize", "Huge"}, {"VQStartNumber", "0"}, {"Duplex", "Any"}});
  EXPECT_EQ(kDefaults, SettingsOf(session));
  session.UsePrinter(PlainPPD(kSupported), {{"VQBNSize", "Huge"}});
  EXPECT_EQ("Medium", session.Value("VQBNSize"));
}

OBJC_TEST(JobSession, LeavesPanelsTheirOwnDefaultsWhereThePrinterHasNoOption) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  session.UsePrinter(PlainPPD(kSupported), {{"VQBNSize", "Large"}});
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
  session.UseSettings(SettingsWith(@{@"VQBNSize" : @"Small", @"Duplex" : @"DuplexNoTumble"}));
  EXPECT_EQ(Notes(), session.UsePrinter(ColorPPD(), {{"VQBNSize", "Large"}}));
  EXPECT_EQ(With(kDefaults, {{"VQBNSize", "Small"}, {"Duplex", "DuplexNoTumble"}}),
            SettingsOf(session));
}

OBJC_TEST(JobSession, TakesTheDefaultsOfTheNewPrinterForWhatNobodyChanged) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {{"VQBNSize", "Large"}, {"VQBNDensity", "Dark"}});
  session.Set("VQBNDensity", "Light");
  EXPECT_EQ(Notes(), session.UsePrinter(ColorPPD(), {{"Duplex", "DuplexTumble"}}));
  EXPECT_EQ(With(kDefaults, {{"VQBNDensity", "Light"}, {"Duplex", "DuplexTumble"}}),
            SettingsOf(session));
}

OBJC_TEST(JobSession, KeepsWhatATicketSetsEvenIfItIsTheDefault) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {});
  session.UseSettings(SettingsWith(@{@"VQBNSize" : @"Medium"}));
  session.UsePrinter(ColorPPD(), {{"VQBNSize", "Large"}, {"VQBNDensity", "Dark"}});
  EXPECT_EQ("Medium", session.Value("VQBNSize"));
  EXPECT_EQ("Dark", session.Value("VQBNDensity"));
}

OBJC_TEST(JobSession, TakesAwayWhatTheNewPrinterDoesNotHave) {
  Bundles bundles("panels=nil");
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {});
  session.Set("Duplex", "DuplexTumble");
  session.Set("MediaType", "Plain");
  session.Set("PageSize", "A3");
  session.Set("VQBNSize", "Large");
  session.Set("copies", "2");
  session.Set("com.other.key", "any");
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
  session.UsePrinter(ColorPPD(), {});
  session.Set("MediaType", "Transparency");
  session.Set("copies", "2");
  EXPECT_EQ(Notes{"MediaType \"Transparency\" does not fit: this printer has no MediaType"},
            session.UsePrinter(std::nullopt, {}));
  EXPECT_EQ((JobOptions{{"copies", "2"}}), SettingsOf(session));
}

OBJC_TEST(JobSession, TakesAwayWhatThePrinterDoesNotListForAPanelsOption) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {});
  session.Set("VQBNColor", "Red");
  session.Set("Duplex", "DuplexTumble");
  EXPECT_EQ(
      Notes{"VQBNColor \"Red\" does not fit: this printer has no VQBNColor \"Red\"; it has Black"},
      session.UsePrinter(MonoPPD(), {}));
  EXPECT_EQ("Black", session.Value("VQBNColor"));
  EXPECT_EQ("DuplexTumble", session.Value("Duplex"));
}

OBJC_TEST(JobSession, LeavesToThePanelWhatThePrintersDescriptionDoesNotKnow) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {});
  session.Set("VQBNColor", "Red");
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
  session.UsePrinter(ColorPPD(),
                     {{"Duplex", "None"}, {"PageSize", "Letter"}, {"sides", "one-sided"}});
  session.Set("sides", "two-sided-long-edge");
  session.Set("media", "A3");
  const JobOptions options = session.Options();
  EXPECT_FALSE(options.contains("Duplex"));
  EXPECT_FALSE(options.contains("PageSize"));
  EXPECT_EQ("two-sided-long-edge", options.at("sides"));
  session.Set("sides", "");
  session.Set("Duplex", "DuplexTumble");
  EXPECT_FALSE(session.Options().contains("sides"));
}

OBJC_TEST(JobSession, TakesAwayValuesThatTheSettingInfoDoesNotAllow) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {});
  EXPECT_EQ((Notes{"VQBNSize \"Huge\" does not fit: it must be one of Small, Medium, Large",
                   "VQStartNumber \"025\" does not fit: it must be a whole number from 1 to 999"}),
            session.UseSettings(SettingsWith(
                @{@"VQBNSize" : @"Huge", @"VQStartNumber" : @"025", @"VQBNDensity" : @"Dark"})));
  EXPECT_EQ(With(kDefaults, {{"VQBNDensity", "Dark"}}), SettingsOf(session));
}

OBJC_TEST(JobSession, TakesAwayWhatIsNoText) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {});
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

OBJC_TEST(JobSession, TakesAwayBadValuesBeforePanelsAreMade) {
  const BundleFolder folder("NSExecutable = Test; NSPrincipalClass = HostTestKeepsHost;");
  folder.AddLibrary();
  Bundles bundles("", folder.path());
  JobSession session(bundles.extensions);
  NSDictionary *values = @{@"Duplex" : @[ @5 ], @"MediaType" : @{}, @"VQStartNumber" : @25};
  session.UseSettings(SettingsWith(values));
  EXPECT_EQ((Notes{"Duplex does not fit: its value is no text",
                   "MediaType does not fit: its value is no text"}),
            session.UsePrinter(ColorPPD(), {}));
  EXPECT_EQUAL_OBJECTS(@{@"VQStartNumber" : @"25"}, [HostTestKeepsHost settingsThen]);
}

// Hand-written tickets have them.
OBJC_TEST(JobSession, TakesNumbersForTexts) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {});
  EXPECT_EQ(Notes(), session.UseSettings(SettingsWith(@{@"VQStartNumber" : @25})));
  CFTypeRef stored = nullptr;
  PMPrintSettingsGetValue(session.settings(), (CFStringRef) @"VQStartNumber", &stored);
  EXPECT_EQUAL_OBJECTS(@"25", (id)stored);
}

OBJC_TEST(JobSession, ReplacesAllSettingsInTheSameObject) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {});
  session.Set("copies", "2");
  session.Set("VQBNSize", "Large");
  const PMPrintSettings before = session.settings();
  EXPECT_EQ(Notes(), session.UseSettings(SettingsWith(@{@"number-up" : @"4"})));
  EXPECT_EQ(before, session.settings());
  EXPECT_EQ(With(kDefaults, {{"number-up", "4"}}), SettingsOf(session));
}

OBJC_TEST(JobSession, PanelsSeeNewSettingsWhenTheyAreRestored) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {});
  for (const auto &panel : session.panels()) {
    panel->View();
    EXPECT_EQ(std::nullopt, panel->Restore());
  }
  session.UseSettings(SettingsWith(@{
    @"VQBackgroundNumbering" : @"On",
    @"VQStartNumber" : @"7",
    @"Duplex" : @"DuplexTumble",
  }));
  for (const auto &panel : session.panels()) {
    EXPECT_EQ(std::nullopt, panel->Restore());
    panel->WillShow();
    EXPECT_EQ(std::nullopt, panel->Save());
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
  session.Set("copies", "3");
  EXPECT_EQ("3", session.Value("copies"));
  session.Set("copies", "");
  EXPECT_EQ(JobOptions(), SettingsOf(session));
}

OBJC_TEST(JobSession, PrintsWithTheQueuesDefaultsUnderTheSettings) {
  Bundles bundles("panels=nil");
  JobSession session(bundles.extensions);
  session.UsePrinter(PlainPPD(), {{"sides", "two-sided-long-edge"}, {"number-up", "2"}});
  session.UseSettings(SettingsWith(@{
    @"number-up" : @"4",
    @"com.other.count" : @12,
    @"com.other.list" : @[ @5 ],
  }));
  EXPECT_EQ(
      (JobOptions{{"sides", "two-sided-long-edge"}, {"number-up", "4"}, {"com.other.count", "12"}}),
      session.Options());
}

OBJC_TEST(JobSession, ChoosesWhatIsSetOrTheQueuesDefaultOrTheFiles) {
  Bundles bundles("panels=nil");
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {{"MediaType", "Transparency"}, {"InputSlot", "Absent"}});
  EXPECT_EQ("None", session.Choice("Duplex"));
  EXPECT_EQ("Auto", session.Choice("InputSlot"));
  EXPECT_EQ("Transparency", session.Choice("MediaType"));
  session.Set("MediaType", "Plain");
  EXPECT_EQ("Plain", session.Choice("MediaType"));
  EXPECT_EQ("", session.Choice("Absent"));
}

OBJC_TEST(JobSession, LeavesOtherOptionsToTheDialog) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {});
  EXPECT_EQ((Names{"PageSize", "MediaType"}), KeywordsOf(session.OtherOptions()));
}

OBJC_TEST(JobSession, TellsAllPanelsOfAChangedOption) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {});
  bundles.run.Calls();
  session.ChangeOption("MediaType", "Transparency");
  EXPECT_EQ("Transparency", session.Value("MediaType"));
  EXPECT_EQ((Names{"First optionDidChange MediaType=Transparency",
                   "Second optionDidChange MediaType=Transparency"}),
            bundles.run.Calls());
}

OBJC_TEST(JobSession, PrintsAsItStands) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {});
  EXPECT_EQ("", ReasonOf(session));
}

OBJC_TEST(JobSession, DoesNotPrintIfAPanelDoesNotAllowIt) {
  Bundles bundles("Second.shouldPrint=no");
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {});
  EXPECT_EQ("Second does not allow this job to be printed", ReasonOf(session));
}

OBJC_TEST(JobSession, DoesNotPrintWhatTheSettingInfoDoesNotAllow) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {});
  session.Set("VQStartNumber", "1000");
  EXPECT_EQ("the job's VQStartNumber is \"1000\": it must be a whole number from 1 to 999",
            ReasonOf(session));
}

OBJC_TEST(JobSession, DoesNotPrintWhatThePrinterDoesNotHave) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {});
  session.Set("PageSize", "A0");
  EXPECT_EQ(
      "the job's PageSize is \"A0\": this printer has no PageSize \"A0\"; it has A4, Letter, A3",
      ReasonOf(session));
}

OBJC_TEST(JobSession, PrintsWhatAPanelClaimsWithoutAnOptionOfThePPD) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {});
  session.UsePrinter(PlainPPD(kSupported), {});
  session.Set("VQBNSize", "Large");
  EXPECT_EQ("", ReasonOf(session));
}

OBJC_TEST(JobSession, SummarizesEveryPanelUnderItsName) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {});
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
  session.UsePrinter(ColorPPD(), {});
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
  session.UsePrinter(ColorPPD(), {});
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
    session.UsePrinter(ColorPPD(), {});
    for (const auto &panel : session.panels()) {
      panel->View();
      panel->Restore();
      panel->WillShow();
      panel->ShouldShowHelp();
      panel->ShouldHide();
      panel->Save();
    }
    session.ChangeOption("VQStartNumber", "25");
    session.Summary();
    EXPECT_EQ("", ReasonOf(session)) << fault;
    for (const auto &panel : session.panels()) panel->WindowWillClose(false);
    session.DropFaultyPanels();
    const Names names = PanelNames(session);
    EXPECT_EQ("Background Numbering", names.empty() ? "" : names.front()) << fault;
    EXPECT_EQ(0, std::count(names.begin(), names.end(), "First")) << fault;
    EXPECT_EQ(fault == std::string("panels=nil") ? 0u : 1u, bundles.extensions.left_out().size())
        << fault;
    EXPECT_EQ("25", session.Options()["VQStartNumber"]) << fault;
  }
}

OBJC_TEST(JobSession, FreesThePanelsOfThePrinterBefore) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  session.UsePrinter(ColorPPD(), {});
  for (const auto &panel : session.panels()) {
    panel->View();
    panel->Restore();
  }
  bundles.run.Calls();
  session.UsePrinter(std::nullopt, {});
  EXPECT_EQ((Names{"First dealloc", "Second dealloc"}), bundles.run.Calls());
}

OBJC_TEST(JobSession, LeavesNoClosedPPDFileToWhoeverKeepsTheHost) {
  const BundleFolder folder("NSExecutable = Test; NSPrincipalClass = HostTestKeepsHost;");
  folder.AddLibrary();
  Bundles bundles("", folder.path());
  {
    JobSession session(bundles.extensions);
    session.UsePrinter(ColorPPD(), {});
    Retained<HostCallback *> first = Retained<HostCallback *>::Share([HostTestKeepsHost lastHost]);
    EXPECT_EQ(session.ppd()->get(), [first.get() ppdFile]);
    session.UsePrinter(MonoPPD(), {});
    EXPECT_EQ(nullptr, [first.get() ppdFile]);
    EXPECT_EQ(session.settings(), [first.get() printSettings]);
    EXPECT_EQ(session.ppd()->get(), [[HostTestKeepsHost lastHost] ppdFile]);
  }
  EXPECT_EQ(nullptr, [[HostTestKeepsHost lastHost] ppdFile]);
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

OBJC_TEST(JobSession, LeavesOutCustomDefaultsOfTheQueueThatDoNotFit) {
  Bundles bundles;
  JobSession session(bundles.extensions);
  const std::string lines =
      "*CustomPageSize True: \"pop\"\n*ParamCustomPageSize Width: 1 points 100 900\n"
      "*ParamCustomPageSize Height: 2 points 200 1200\n";
  EXPECT_EQ((Notes{"PageSize \"Custom.1x1\" does not fit: this printer has no PageSize "
                   "\"Custom.1x1\""}),
            session.UsePrinter(PlainPPD(lines), {{"PageSize", "Custom.1x1"}, {"sides", "any"}}));
  EXPECT_EQ((JobOptions{{"sides", "any"}}), session.Options());
  EXPECT_EQ(Notes(), session.UsePrinter(PlainPPD(lines), {{"PageSize", "Custom.300x400"}}));
  EXPECT_EQ((JobOptions{{"PageSize", "Custom.300x400"}}), session.Options());
}

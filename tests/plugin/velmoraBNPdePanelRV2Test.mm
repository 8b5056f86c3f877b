#import "plugin/velmoraBNPdePanelRV2.h"

#import <objc/runtime.h>

#import "tests/plugin/NotReady.h"
#import "tests/support/ClassShape.h"
#import "tests/support/HalfMade.h"
#import "tests/support/Job.h"
#import "tests/support/ObjCTest.h"
#import "view/velmoraBNViewControllerRV2+Input.h"
#import "view/velmoraBNViewControllerRV2+Summary.h"

/// Tells what it is asked for, and answers what the product's own never does.
@interface RecordingViewController : velmoraBNViewControllerRV2 {
 @public
  Strings asked;
  BOOL answer;
  NSView *panelView;
  NSDictionary *summary;
}
@end

@implementation RecordingViewController

- (NSView *)panelViewWithNibName:(NSString *)nibName {
  asked.push_back(std::string("panelViewWithNibName ") + [nibName UTF8String]);
  return panelView;
}

- (BOOL)restoreNonPPDSettingsFromPrintSettings {
  asked.push_back("restore");
  return answer;
}

- (BOOL)saveNonPPDSettingsToPrintSettings {
  asked.push_back("save");
  return answer;
}

- (BOOL)verifyNonPPDSettingsFromPrintSettings {
  asked.push_back("verify");
  return answer;
}

- (void)updateView {
  asked.push_back("updateView");
}

- (NSDictionary *)summaryInfoWithDispOrderKey:(NSString *)dispOrderKey {
  asked.push_back(std::string("summary ") + [dispOrderKey UTF8String]);
  return summary;
}

@end

/// A panel with such a view controller.
@interface PanelOfRecordingViewController : velmoraBNPdePanelRV2 {
 @public
  RecordingViewController *recorder;
}
@end

@implementation PanelOfRecordingViewController
- (velmoraBNViewControllerRV2 *)viewController {
  return recorder;
}
@end

namespace {

using Panel = velmoraBNPdePanelRV2;

Panel *Make(const Job &job) {
  return [[[Panel alloc] initWithCallback:[job.host() callback] bundle:job.bundle()] autorelease];
}

PanelOfRecordingViewController *MakeRecorded(const Job &job, BOOL answer = YES) {
  auto *panel =
      [[[PanelOfRecordingViewController alloc] initWithCallback:[job.host() callback]
                                                         bundle:job.bundle()] autorelease];
  panel->recorder =
      [[[RecordingViewController alloc] initWithCommonInfo:panel.commonInfo] autorelease];
  panel->recorder->answer = answer;
  interposed::Clear();
  return panel;
}

// How many objects of a panel the body leaves behind.
template <typename Body>
long ObjectsLeft(Body body) {
  return InstancesLeft({[Panel class],
                        [velmoraBNCommonInfoRV2 class],
                        [velmoraBNViewControllerRV2 class],
                        [velmoraBNPrintTicketManagerRV2 class],
                        [velmoraBNPrintTicketValidRV2 class],
                        [velmoraBNPrintTicketPopUpRV2 class],
                        [velmoraBNPrintTicketNumberRV2 class]},
                       body);
}

void ExpectNotMade(velmoraBNPdeCallbackRV2 *callback, NSBundle *bundle) {
  interposed::Clear();
  Panel *panel = (Panel *)@"";
  EXPECT_EQ(0,
            ObjectsLeft([&] { panel = [[Panel alloc] initWithCallback:callback bundle:bundle]; }));
  EXPECT_TRUE(panel == nil);
  EXPECT_EQ(Strings{}, interposed::Calls("log"));
}

NSArray *OptionKeys() {
  return @[ @"VQBackgroundNumbering", @"VQBNSize", @"VQBNDensity", @"VQBNColor", @"VQStartNumber" ];
}

}  // namespace

OBJC_TEST(PdePanelClass, HasThreeFieldsWithoutSetters) {
  EXPECT_TRUE([Panel superclass] == [NSObject class]);
  EXPECT_EQ((Strings{"_viewController velmoraBNViewControllerRV2",
                     "_commonInfo velmoraBNCommonInfoRV2", "supportedOptions NSMutableArray"}),
            FieldsOf([Panel class]));
  EXPECT_FALSE(
      HasSetterOf([Panel class], @[ @"viewController", @"commonInfo", @"supportedOptions" ]));
  EXPECT_FALSE([Panel instancesRespondToSelector:@selector(supportedOptions)]);
}

OBJC_TEST(PdePanelClass, IsAPanelOfThePrintDialog) {
  EXPECT_EQ((Strings{"PDEPanel"}), ProtocolsOf([Panel class]));
}

OBJC_TEST(PdePanelClass, ReleasesTheViewControllerBeforeTheCommonInfoItUses) {
  EXPECT_EQ((Strings{"_viewController", "_commonInfo", "supportedOptions"}),
            FieldsReleasedAtTeardown([Panel class]));
}

OBJC_TEST(PdePanelCreation, MakesBothPartsForThisCallbackAndBundle) {
  Job job(kColorDevice);
  Panel *panel = Make(job);
  EXPECT_TRUE([panel.commonInfo class] == [velmoraBNCommonInfoRV2 class]);
  EXPECT_TRUE((id)panel.commonInfo.callback == (id)job.host());
  EXPECT_TRUE(panel.commonInfo.bundle == job.bundle());
  EXPECT_TRUE([panel.viewController class] == [velmoraBNViewControllerRV2 class]);
  EXPECT_TRUE(panel.viewController.commonInfo == panel.commonInfo);
  EXPECT_TRUE(panel.viewController == panel.viewController);
  EXPECT_TRUE(panel.viewController.view == nil);
}

OBJC_TEST(PdePanelCreation, StoresTheDefaultsOfTheJob) {
  Job job(kColorDevice);
  Make(job);
  EXPECT_EQUAL_OBJECTS((@{
                         @"VQBackgroundNumbering" : @"Off",
                         @"VQBNSize" : @"Medium",
                         @"VQBNDensity" : @"Medium",
                         @"VQBNColor" : @"Black",
                         @"VQStartNumber" : @"1"
                       }),
                       [job.host() allSettings]);
}

OBJC_TEST(PdePanelCreation, GivesEverythingBack) {
  Job job(kColorDevice);
  EXPECT_EQ(0, ReferencesLeft(job.host(), [&] {
              EXPECT_EQ(0, ReferencesLeft(job.bundle(), [&] {
                          EXPECT_EQ(0, ObjectsLeft([&] { [Make(job) supportedPPDOptionKeys]; }));
                        }));
            }));
}

OBJC_TEST(PdePanelCreation, FailsWithoutCallback) {
  Job job(kColorDevice);
  ExpectNotMade(nil, job.bundle());
}

OBJC_TEST(PdePanelCreation, FailsWithoutBundle) {
  Job job(kColorDevice);
  ExpectNotMade([job.host() callback], nil);
}

OBJC_TEST(PdePanelCreation, FailsSilentlyWithoutSettingInfo) {
  Job job(kColorDevice, nil);
  EXPECT_EQ(
      0, ReferencesLeft(job.host(), [&] { ExpectNotMade([job.host() callback], job.bundle()); }));
  EXPECT_EQUAL_OBJECTS(@{}, [job.host() allSettings]);
}

OBJC_TEST(PdePanelCreation, FailsSilentlyWhenTheViewControllerCannotBeMade) {
  Job job(kColorDevice);
  NotReady not_ready;
  EXPECT_EQ(
      0, ReferencesLeft(job.host(), [&] { ExpectNotMade([job.host() callback], job.bundle()); }));
}

OBJC_TEST(PdePanelCreation, RaisesWhenTheSettingInfoLacksAKey) {
  Job job(kColorDevice, SettingInfoWith(@"TicketKey", @"Size", nil));
  EXPECT_EQUAL_OBJECTS(NSInvalidArgumentException, NameOfRaisedInTheMaking([&] { Make(job); }));
}

OBJC_TEST(PdePanelName, IsTheLocalizedText) {
  Job job(kColorDevice, ShippedSettingInfo(), "\"BackgroundNumbering\" = \"Numbers Behind\";");
  EXPECT_EQUAL_OBJECTS(@"Numbers Behind", [Make(job) panelName]);
}

OBJC_TEST(PdePanelName, IsTheKeyWhereTheTableHasNone) {
  Job job(kColorDevice);
  EXPECT_EQUAL_OBJECTS(@"BackgroundNumbering", [Make(job) panelName]);
}

OBJC_TEST(PdePanelKind, IsThatOfTheSettingInfo) {
  Job job(kColorDevice, SettingInfoWith(@"ID", @"PanelKind", @"org.test.Kind"));
  EXPECT_EQUAL_OBJECTS(@"org.test.Kind", [Make(job) panelKind]);
}

OBJC_TEST(PdePanelKind, IsNilWhereTheSettingInfoHasNone) {
  Job job(kColorDevice, SettingInfoWith(@"ID", @"PanelKind", nil));
  EXPECT_EQUAL_OBJECTS(nil, [Make(job) panelKind]);
}

OBJC_TEST(PdePanelOptionKeys, AreTheFiveKeywordsInOrder) {
  Job job(kColorDevice);
  EXPECT_EQUAL_OBJECTS(OptionKeys(), [Make(job) supportedPPDOptionKeys]);
}

OBJC_TEST(PdePanelOptionKeys, AreOneListMadeOnFirstDemand) {
  Job job(kColorDevice);
  Panel *panel = Make(job);
  Ivar field = class_getInstanceVariable([Panel class], "supportedOptions");
  EXPECT_TRUE(object_getIvar(panel, field) == nil);
  // Kept, so that no other list can take its address.
  NSArray *keys = [[[panel supportedPPDOptionKeys] retain] autorelease];
  EXPECT_TRUE([keys isKindOfClass:[NSMutableArray class]]);
  EXPECT_TRUE(object_getIvar(panel, field) == keys);
  for (int call = 0; call < 2; ++call) {
    EXPECT_TRUE([panel supportedPPDOptionKeys] == keys);
    EXPECT_EQUAL_OBJECTS(OptionKeys(), keys);
  }
}

OBJC_TEST(PdePanelOptionKeys, BelongToTheirPanel) {
  Job job(kColorDevice);
  EXPECT_TRUE([Make(job) supportedPPDOptionKeys] != [Make(job) supportedPPDOptionKeys]);
}

OBJC_TEST(PdePanelOptionKeys, AreLoggedOnEveryCall) {
  Job job(kColorDevice);
  Panel *panel = Make(job);
  interposed::Clear();
  const std::string line = "log supportedPPDOptionKeys:=NSArray((VQBackgroundNumbering, VQBNSize, "
                           "VQBNDensity, VQBNColor, VQStartNumber))";
  Strings expected;
  for (int call = 0; call < 3; ++call) {
    [panel supportedPPDOptionKeys];
    expected.push_back(line);
    EXPECT_EQ(expected, interposed::Calls());
  }
}

OBJC_TEST(PdePanelOptionKeys, AreTheOnlyThingLogged) {
  Job job(kMonoDevice);
  Panel *panel = Make(job);
  [panel willShow];
  [panel shouldHide];
  [panel shouldShowHelp];
  [panel shouldPrint];
  [panel saveValuesAndReturnError:nullptr];
  [panel restoreValuesAndReturnError:nullptr];
  [panel PPDOptionKeyValueDidChange:@"VQBNColor" ppdChoice:@"Red"];
  [panel panelName];
  [panel panelKind];
  [panel summaryInfo];
  EXPECT_FALSE(interposed::Calls().empty());
  EXPECT_EQ(Strings{}, interposed::Calls("log"));
}

OBJC_TEST(PdePanelShow, RestoresThenUpdatesWhateverTheRestoreSays) {
  for (BOOL answer : {YES, NO}) {
    Job job(kColorDevice);
    PanelOfRecordingViewController *panel = MakeRecorded(job, answer);
    [panel willShow];
    EXPECT_EQ((Strings{"restore", "updateView"}), panel->recorder->asked);
  }
}

OBJC_TEST(PdePanelRestore, RestoresThenUpdatesAndSaysYesWhateverTheRestoreSays) {
  for (BOOL answer : {YES, NO}) {
    Job job(kColorDevice);
    PanelOfRecordingViewController *panel = MakeRecorded(job, answer);
    NSError *const before = (NSError *)@"untouched";
    NSError *error = before;
    EXPECT_TRUE([panel restoreValuesAndReturnError:&error]);
    EXPECT_TRUE(error == before);
    EXPECT_EQ((Strings{"restore", "updateView"}), panel->recorder->asked);
    EXPECT_TRUE([panel restoreValuesAndReturnError:nullptr]);
  }
}

OBJC_TEST(PdePanelSave, PassesTheAnswerOnAndLeavesTheErrorAlone) {
  for (BOOL answer : {YES, NO}) {
    Job job(kColorDevice);
    PanelOfRecordingViewController *panel = MakeRecorded(job, answer);
    NSError *const before = (NSError *)@"untouched";
    NSError *error = before;
    EXPECT_EQ(answer, [panel saveValuesAndReturnError:&error]);
    EXPECT_TRUE(error == before);
    EXPECT_EQ((Strings{"save"}), panel->recorder->asked);
    EXPECT_EQ(answer, [panel saveValuesAndReturnError:nullptr]);
  }
}

OBJC_TEST(PdePanelPrint, VerifiesAndPassesTheAnswerOn) {
  for (BOOL answer : {YES, NO}) {
    Job job(kColorDevice);
    PanelOfRecordingViewController *panel = MakeRecorded(job, answer);
    EXPECT_EQ(answer, [panel shouldPrint]);
    EXPECT_EQ((Strings{"verify"}), panel->recorder->asked);
  }
}

OBJC_TEST(PdePanelPrint, CorrectsTheColorOfTheJobWithoutColor) {
  Job job(kMonoDevice);
  Panel *panel = Make(job);
  job.Store(@"VQBNColor", @"Red");
  EXPECT_TRUE([panel shouldPrint]);
  EXPECT_EQUAL_OBJECTS(@"Black", job[@"VQBNColor"]);
}

OBJC_TEST(PdePanelView, IsTheViewControllersOfTheLayoutOfThatName) {
  Job job(kColorDevice);
  PanelOfRecordingViewController *panel = MakeRecorded(job);
  EXPECT_TRUE([panel panelView] == nil);
  panel->recorder->panelView = [[[NSView alloc] init] autorelease];
  EXPECT_TRUE([panel panelView] == panel->recorder->panelView);
  EXPECT_EQ("panelViewWithNibName BackgroundNumbering", panel->recorder->asked.back());
}

OBJC_TEST(PdePanelSummary, IsTheViewControllersUnderTheDialogsOrderKey) {
  Job job(kColorDevice);
  PanelOfRecordingViewController *panel = MakeRecorded(job);
  panel->recorder->summary = @{@"title" : @"value"};
  EXPECT_TRUE([panel summaryInfo] == panel->recorder->summary);
  EXPECT_EQ((Strings{"summary Summary Display Order"}), panel->recorder->asked);
}

OBJC_TEST(PdePanelSummary, OfARealJobCarriesItsDisplayOrder) {
  Job job(kColorDevice);
  Panel *panel = Make(job);
  job.Store(@"VQBackgroundNumbering", @"On");
  EXPECT_EQUAL_OBJECTS((@[ @"Size", @"Density", @"Color", @"StartNumber" ]),
                       [[panel summaryInfo] objectForKey:@"Summary Display Order"]);
}

OBJC_TEST(PdePanelAnswers, HideAndHelpAreAlwaysYesAndAskNothing) {
  for (BOOL answer : {YES, NO}) {
    Job job(kColorDevice);
    PanelOfRecordingViewController *panel = MakeRecorded(job, answer);
    EXPECT_TRUE([panel shouldHide]);
    EXPECT_TRUE([panel shouldShowHelp]);
    [panel supportedPPDOptionKeys];
    job.DropSettings();
    job.host()->ppd = nullptr;
    EXPECT_TRUE([panel shouldHide]);
    EXPECT_TRUE([panel shouldShowHelp]);
    EXPECT_EQ(Strings{}, panel->recorder->asked);
  }
}

OBJC_TEST(PdePanelAnswers, AChangedOptionChangesNothing) {
  Job job(kColorDevice);
  PanelOfRecordingViewController *panel = MakeRecorded(job);
  [panel PPDOptionKeyValueDidChange:@"VQBNColor" ppdChoice:@"Red"];
  EXPECT_EQ(Strings{}, panel->recorder->asked);
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(PdePanelBeforeItsView, ShowsAndStoresNothing) {
  Job job(kColorDevice);
  Panel *panel = Make(job);
  interposed::Clear();
  [panel willShow];
  EXPECT_TRUE([panel restoreValuesAndReturnError:nullptr]);
  EXPECT_TRUE([panel saveValuesAndReturnError:nullptr]);
  EXPECT_EQ(Strings{}, interposed::Calls());
}

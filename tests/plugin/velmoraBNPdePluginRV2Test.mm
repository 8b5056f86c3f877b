#import "plugin/velmoraBNPdePluginRV2.h"

#import "plugin/velmoraBNPdePanelRV2.h"
#import "tests/plugin/NotReady.h"
#import "tests/support/ClassShape.h"
#import "tests/support/HalfMade.h"
#import "tests/support/Job.h"
#import "tests/support/ObjCTest.h"

/// Counts how often the base object is initialized.
@interface InitCountingPlugin : velmoraBNPdePluginRV2 {
 @public
  int inits;
}
@end

@implementation InitCountingPlugin
- (instancetype)init {
  ++inits;
  return [super init];
}
@end

namespace {

using Plugin = velmoraBNPdePluginRV2;

NSString *const kPanelType = @"BDB091F4-E57F-11D3-B5CC-0050E4603277";

Plugin *PluginWith(NSBundle *bundle) {
  Plugin *plugin = [[[Plugin alloc] init] autorelease];
  [plugin initWithBundle:bundle];
  return plugin;
}

NSArray *Panels(const Job &job, NSString *type = kPanelType) {
  return [PluginWith(job.bundle()) PDEPanelsForType:type withHostInfo:[job.host() callback]];
}

void ExpectSupport(bool supported, const std::string &ppd_lines) {
  SCOPED_TRACE(ppd_lines);
  Job job(ppd_lines);
  Plugin *plugin = PluginWith(job.bundle());
  EXPECT_EQ(supported,
            static_cast<bool>([plugin BNPPIsSupportBackgroundNumbering:job.host()->ppd]));
  EXPECT_EQ((Strings{"ppd VQBackgroundNumberingSupport"}), interposed::Calls());
  NSArray *panels = Panels(job);
  if (supported) {
    EXPECT_EQ(1u, [panels count]);
  } else {
    EXPECT_TRUE(panels == nil);
    EXPECT_EQUAL_OBJECTS(@{}, [job.host() allSettings]);
  }
}

// Refused before the PPD file is asked for.
void ExpectRefusedUnasked(NSString *type) {
  Job job(kSupported);
  EXPECT_TRUE(Panels(job, type) == nil);
  EXPECT_EQ(0, job.host()->ppdFileCalls);
  EXPECT_EQ(0, job.host()->printSettingsCalls);
  EXPECT_EQ(Strings{}, interposed::Calls());
}

}  // namespace

OBJC_TEST(PdePluginConstants, NameTheSupportAttributeAndThePanel) {
  EXPECT_EQUAL_OBJECTS(@"VQBackgroundNumberingSupport", BNPpdKeyFunctionSupport);
  EXPECT_EQUAL_OBJECTS(@"true", BNPpdValFunctionSupport);
  EXPECT_EQUAL_OBJECTS(@"BackgroundNumbering", BNPanelNameKey);
}

OBJC_TEST(PdePluginClass, HasOneFieldWithoutSetter) {
  EXPECT_TRUE([Plugin superclass] == [NSObject class]);
  EXPECT_EQ((Strings{"_bundle NSBundle"}), FieldsOf([Plugin class]));
  EXPECT_FALSE(HasSetterOf([Plugin class], @[ @"bundle" ]));
  EXPECT_EQ((Strings{"_bundle"}), FieldsReleasedAtTeardown([Plugin class]));
}

OBJC_TEST(PdePluginClass, DoesNotDeclareTheProtocolWhoseInitAnswersAnObject) {
  EXPECT_EQ(Strings{}, ProtocolsOf([Plugin class]));
}

OBJC_TEST(PdePluginCreation, KeepsTheBundleAndSaysYes) {
  TestBundle bundle(ShippedSettingInfo());
  Plugin *plugin = [[Plugin alloc] init];
  EXPECT_EQ(
      1, ReferencesLeft(bundle.get(), [&] { EXPECT_TRUE([plugin initWithBundle:bundle.get()]); }));
  EXPECT_TRUE(plugin.bundle == bundle.get());
  EXPECT_EQ(-1, ReferencesLeft(bundle.get(), [&] { [plugin release]; }));
}

OBJC_TEST(PdePluginCreation, RefusesNoBundle) {
  Plugin *plugin = [[[Plugin alloc] init] autorelease];
  EXPECT_FALSE([plugin initWithBundle:nil]);
  EXPECT_TRUE(plugin.bundle == nil);
}

OBJC_TEST(PdePluginCreation, DoesNotLookIntoTheBundle) {
  TestBundle bundle(nil);
  Plugin *plugin = [[[Plugin alloc] init] autorelease];
  EXPECT_TRUE([plugin initWithBundle:bundle.get()]);
}

OBJC_TEST(PdePluginCreation, WithABundleDoesNotInitialiseTheBaseObjectAgain) {
  TestBundle bundle(ShippedSettingInfo());
  InitCountingPlugin *plugin = [[[InitCountingPlugin alloc] init] autorelease];
  [plugin initWithBundle:bundle.get()];
  EXPECT_EQ(1, plugin->inits);
}

OBJC_TEST(PdePluginSupport, IsTheValueTrueInLowerCase) {
  ExpectSupport(true, "*VQBackgroundNumberingSupport: \"true\"\n");
  ExpectSupport(true, "*VQBackgroundNumberingSupport: true\n");
}

OBJC_TEST(PdePluginSupport, MayHaveAnOptionPart) {
  ExpectSupport(true, "*VQBackgroundNumberingSupport Any: \"true\"\n");
  ExpectSupport(true, "*VQBackgroundNumberingSupport Any/False: \"true\"\n");
  ExpectSupport(false, "*VQBackgroundNumberingSupport Any/true: \"false\"\n");
}

OBJC_TEST(PdePluginSupport, IsNoOtherValue) {
  for (const char *value : {"True", "TRUE", "tRUE", "true ", " true", "truetrue", "tru", "",
                            "false", "1", "yes", "\xff"}) {
    ExpectSupport(false, std::string("*VQBackgroundNumberingSupport: \"") + value + "\"\n");
  }
}

OBJC_TEST(PdePluginSupport, IsAbsentWithoutTheAttribute) {
  ExpectSupport(false, "");
  ExpectSupport(false, "*VQBackgroundNumbering: \"true\"\n");
}

OBJC_TEST(PdePluginSupport, IsDecidedByTheFirstOfSeveral) {
  ExpectSupport(true, "*VQBackgroundNumberingSupport Z: \"true\"\n"
                      "*VQBackgroundNumberingSupport A: \"false\"\n");
  ExpectSupport(false, "*VQBackgroundNumberingSupport Z: \"false\"\n"
                       "*VQBackgroundNumberingSupport A: \"true\"\n");
}

OBJC_TEST(PdePluginSupport, IsAbsentWithoutPPDFile) {
  Job job(kSupported);
  EXPECT_FALSE([PluginWith(job.bundle()) BNPPIsSupportBackgroundNumbering:nullptr]);
  EXPECT_EQ(Strings{}, interposed::Calls());
  job.host()->ppd = nullptr;
  EXPECT_TRUE(Panels(job) == nil);
}

OBJC_TEST(PdePluginSupport, IsAbsentWithoutValueText) {
  Job job(kSupported);
  ppd_attr_t *attribute = ppdFindAttr(job.host()->ppd, "VQBackgroundNumberingSupport", nullptr);
  char *value = std::exchange(attribute->value, nullptr);
  EXPECT_TRUE(Panels(job) == nil);
  attribute->value = value;
}

OBJC_TEST(PdePluginPanels, AreOneInANewMutableArray) {
  Job job(kSupported);
  Plugin *plugin = PluginWith(job.bundle());
  NSArray *panels = [plugin PDEPanelsForType:kPanelType withHostInfo:[job.host() callback]];
  EXPECT_TRUE([panels isKindOfClass:[NSMutableArray class]]);
  ASSERT_EQ(1u, [panels count]);
  velmoraBNPdePanelRV2 *panel = [panels objectAtIndex:0];
  EXPECT_TRUE([panel class] == [velmoraBNPdePanelRV2 class]);
  EXPECT_TRUE(panel.commonInfo.bundle == job.bundle());
  EXPECT_TRUE((id)panel.commonInfo.callback == (id)job.host());
  NSArray *more = [plugin PDEPanelsForType:kPanelType withHostInfo:[job.host() callback]];
  EXPECT_TRUE(more != panels);
  EXPECT_TRUE([more objectAtIndex:0] != panel);
}

OBJC_TEST(PdePluginPanels, BelongToTheirArrayAlone) {
  Job job(kSupported);
  Plugin *plugin = PluginWith(job.bundle());
  NSArray *panels = nil;
  EXPECT_EQ(1, InstancesLeft([velmoraBNPdePanelRV2 class], [&] {
              panels = [[plugin PDEPanelsForType:kPanelType
                                    withHostInfo:[job.host() callback]] retain];
            }));
  EXPECT_EQ(1u, [panels retainCount]);
  EXPECT_EQ(1u, [[panels objectAtIndex:0] retainCount]);
  EXPECT_EQ(-1, InstancesLeft([velmoraBNPdePanelRV2 class], [&] { [panels release]; }));
}

OBJC_TEST(PdePluginPanels, NeedATypeOfTheSameCharactersOnly) {
  Job job(kSupported);
  EXPECT_EQ(1u, [Panels(job, [NSMutableString stringWithString:kPanelType]) count]);
}

OBJC_TEST(PdePluginPanels, AreForNoOtherTypeAndThePPDFileIsNotAskedFor) {
  for (CFStringRef type : {kGeneralPageSetupDialogTypeIDStr, kGeneralPrintDialogTypeIDStr,
                           kAppPageSetupDialogTypeIDStr, kAppPrintDialogTypeIDStr}) {
    ExpectRefusedUnasked((NSString *)type);
  }
  ExpectRefusedUnasked([kPanelType lowercaseString]);
  ExpectRefusedUnasked([kPanelType stringByAppendingString:@" "]);
  ExpectRefusedUnasked(@"");
}

OBJC_TEST(PdePluginPanels, NeedAType) { ExpectRefusedUnasked(nil); }

OBJC_TEST(PdePluginPanels, NeedAHost) {
  Job job(kSupported);
  EXPECT_TRUE([PluginWith(job.bundle()) PDEPanelsForType:kPanelType withHostInfo:nil] == nil);
  EXPECT_EQ(Strings{}, interposed::Calls());
}

OBJC_TEST(PdePluginPanels, AreDecidedAnewOnEveryCall) {
  Job job(kSupported);
  TestPPD unsupported("");
  Plugin *plugin = PluginWith(job.bundle());
  ppd_file_t *supported = job.host()->ppd;
  for (ppd_file_t *ppd : {unsupported.get(), supported, unsupported.get(), supported}) {
    job.host()->ppd = ppd;
    NSArray *panels = [plugin PDEPanelsForType:kPanelType withHostInfo:[job.host() callback]];
    EXPECT_EQ(ppd == supported, panels != nil);
  }
}

OBJC_TEST(PdePluginPanels, AreNoneAndNothingIsLoggedWithoutSettingInfo) {
  Job job(kSupported, nil);
  EXPECT_TRUE(Panels(job) == nil);
  EXPECT_EQ((Strings{"ppd VQBackgroundNumberingSupport"}), interposed::Calls());
}

OBJC_TEST(PdePluginPanels, AreNoneAndNothingIsLoggedWithSettingInfoThatIsNoDictionary) {
  Job job(kSupported, @[ ShippedSettingInfo() ]);
  EXPECT_TRUE(Panels(job) == nil);
  EXPECT_EQ((Strings{"ppd VQBackgroundNumberingSupport"}), interposed::Calls());
}

OBJC_TEST(PdePluginPanels, AreNoneWithoutABundle) {
  Job job(kSupported);
  Plugin *plugin = [[[Plugin alloc] init] autorelease];
  EXPECT_TRUE([plugin PDEPanelsForType:kPanelType withHostInfo:[job.host() callback]] == nil);
}

OBJC_TEST(PdePluginPanels, AreNoneWhenTheViewControllerCannotBeMade) {
  Job job(kSupported);
  NotReady not_ready;
  EXPECT_EQ(0,
            InstancesLeft([velmoraBNPdePanelRV2 class], [&] { EXPECT_TRUE(Panels(job) == nil); }));
  EXPECT_EQ(Strings{}, interposed::Calls("log"));
}

OBJC_TEST(PdePluginPanels, RaiseWhenTheSettingInfoLacksADefault) {
  Job job(kSupported, SettingInfoWith(@"DefaultValue", @"Size", nil));
  EXPECT_EQUAL_OBJECTS(NSInvalidArgumentException, NameOfRaisedInTheMaking([&] { Panels(job); }));
}

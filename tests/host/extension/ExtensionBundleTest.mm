#include "host/extension/ExtensionBundle.h"

#include <gmock/gmock.h>

#include "host/job/PrintSettings.h"
#include "tests/host/extension/BundleFolder.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TestPPD.h"

using testing::StartsWith;

namespace {

NSMutableArray *AskedTypes() {
  static NSMutableArray *types = [NSMutableArray new];
  return types;
}

std::string LoadFailure(const std::filesystem::path &path) {
  Expected<ExtensionBundle> bundle = ExtensionBundle::Load(path);
  if (bundle) return "";
  const std::string start = "cannot load bundle " + path.string() + ": ";
  EXPECT_THAT(bundle.message(), StartsWith(start));
  return bundle.message().substr(start.size());
}

// What a bundle offers; nil, with a failed test, where it is to blame.
NSArray *PanelsOf(const ExtensionBundle &bundle, HostCallback *host) {
  Expected<Retained<NSArray *>> panels = bundle.Panels(host);
  if (panels) return [[panels->get() retain] autorelease];
  ADD_FAILURE() << panels.message();
  return nil;
}

// A bundle that loads, with a class of this program as its principal class.
struct TestExtension : BundleFolder {
  explicit TestExtension(const std::string &principal, const std::string &entries = "")
      : BundleFolder("NSExecutable = Test; NSPrincipalClass = " + principal + "; " + entries) {
    AddLibrary();
  }
};

std::string ReasonForNoPanel(const std::string &entries, const std::string &ppd_lines) {
  TestExtension folder("HostTestOneStep", entries);
  Expected<ExtensionBundle> bundle = ExtensionBundle::Load(folder.path());
  TestPPD test_ppd(ppd_lines);
  Expected<PPDFile> ppd = PPDFile::Open(test_ppd.path());
  if (!bundle) return bundle.message();
  return bundle->ReasonForNoPanel(*ppd);
}

const char kWantsTrue[] = "PDESupportAttribute = { Keyword = VQTest; Value = true; };";

}  // namespace

// Declares the protocol: its initWithBundle: answers the object. Offers the type as its panel.
@interface HostTestOneStep : NSObject <PDEPlugIn> {
 @public
  NSBundle *_givenBundle;
}
@end

@implementation HostTestOneStep
- (id)initWithBundle:(NSBundle *)bundle {
  self = [super init];
  if (self != nil) _givenBundle = bundle;
  return self;
}
- (NSArray *)PDEPanelsForType:(NSString *)type withHostInfo:(id)host {
  (void)host;
  if (_givenBundle == nil) return @[];
  [AskedTypes() addObject:type];
  return @[ type ];
}
@end

@interface HostTestRefusing : HostTestOneStep <PDEPlugIn>
@end

@implementation HostTestRefusing
- (id)initWithBundle:(NSBundle *)bundle {
  (void)bundle;
  [self release];
  return nil;
}
@end

// Does not declare it: init first, then a boolean initWithBundle:.
@interface HostTestTwoStep : NSObject {
  BOOL _initialized;
  BOOL _hasBundle;
}
@end

@implementation HostTestTwoStep
- (instancetype)init {
  self = [super init];
  if (self != nil) _initialized = YES;
  return self;
}
- (BOOL)initWithBundle:(NSBundle *)bundle {
  _hasBundle = _initialized && bundle != nil;
  return YES;
}
- (NSArray *)PDEPanelsForType:(NSString *)type withHostInfo:(id)host {
  (void)host;
  if (!_hasBundle) [NSException raise:@"NotInitialized" format:@"%@", type];
  return [type isEqual:(NSString *)kPrinterModuleTypeIDStr] ? @[ @"panel" ] : nil;
}
@end

@interface HostTestTwoStepRefusing : HostTestTwoStep
@end

@implementation HostTestTwoStepRefusing
- (BOOL)initWithBundle:(NSBundle *)bundle {
  (void)bundle;
  return NO;
}
@end

@interface HostTestRaising : HostTestTwoStep
@end

@implementation HostTestRaising
- (BOOL)initWithBundle:(NSBundle *)bundle {
  (void)bundle;
  [NSException raise:@"Trouble" format:@"no bundle"];
  return YES;
}
@end

@interface HostTestRaisingPanels : HostTestTwoStep
@end

@implementation HostTestRaisingPanels
- (NSArray *)PDEPanelsForType:(NSString *)type withHostInfo:(id)host {
  (void)host;
  if ([type isEqual:(NSString *)kPrinterModuleTypeIDStr]) {
    [NSException raise:@"Trouble" format:@"no panels"];
  }
  return @[];
}
@end

@interface HostTestNoArray : HostTestTwoStep
@end

@implementation HostTestNoArray
- (NSArray *)PDEPanelsForType:(NSString *)type withHostInfo:(id)host {
  (void)host;
  return [type isEqual:(NSString *)kPrinterModuleTypeIDStr] ? (NSArray *)@"panels" : @[];
}
@end

OBJC_TEST(ExtensionBundle, LoadsTheBuiltBundle) {
  Expected<ExtensionBundle> bundle =
      ExtensionBundle::Load(BINARY_DIRECTORY "/BackgroundNumbering.plugin");
  ASSERT_TRUE(bundle) << bundle.message();
  EXPECT_EQUAL_OBJECTS(@BINARY_DIRECTORY "/BackgroundNumbering.plugin",
                       [bundle->bundle() bundlePath]);
  TestPPD supported(kSupported);
  TestPPD other("");
  for (TestPPD *ppd : {&supported, &other}) {
    PrintSettings settings = EmptyPrintSettings();
    auto host =
        Retained<HostCallback *>::Adopt([[HostCallback alloc] initWithPrintSettings:settings.get()
                                                                            ppdFile:ppd->get()]);
    EXPECT_EQ(ppd == &supported ? 1u : 0u, [PanelsOf(*bundle, host.get()) count]);
  }
}

OBJC_TEST(ExtensionBundle, IsRefusedWhereThereIsNone) {
  EXPECT_EQ("not a bundle", LoadFailure("/nowhere/Absent.plugin"));
}

OBJC_TEST(ExtensionBundle, IsRefusedWithoutAnExecutable) {
  TemporaryFolder folder;
  std::filesystem::create_directory(folder.path() / "Empty.plugin");
  EXPECT_EQ("its Info.plist names no executable in it",
            LoadFailure(folder.path() / "Empty.plugin"));
  EXPECT_EQ("its Info.plist names no executable in it", LoadFailure(BundleFolder("").path()));
}

OBJC_TEST(ExtensionBundle, IsRefusedIfTheExecutableIsAbsentOrNoLibrary) {
  BundleFolder absent("NSExecutable = Test;");
  EXPECT_EQ("its executable does not load", LoadFailure(absent.path()));
  BundleFolder text("NSExecutable = Test;");
  text.Add("Test", "#!/bin/sh\n");
  EXPECT_EQ("its executable does not load", LoadFailure(text.path()));
}

OBJC_TEST(ExtensionBundle, IsRefusedWithoutAPrincipalClass) {
  BundleFolder unnamed("NSExecutable = Test;");
  unnamed.AddLibrary();
  EXPECT_EQ("no principal class", LoadFailure(unnamed.path()));
  EXPECT_EQ("no principal class", LoadFailure(TestExtension("HostTestAbsent").path()));
}

OBJC_TEST(ExtensionBundle, IsRefusedIfThePrincipalClassIsNoExtension) {
  EXPECT_EQ("its principal class is no print-dialog extension",
            LoadFailure(TestExtension("NSObject").path()));
}

OBJC_TEST(ExtensionBundle, IsRefusedIfThePrincipalObjectRefusesTheBundle) {
  EXPECT_EQ("its principal object refuses the bundle",
            LoadFailure(TestExtension("HostTestRefusing").path()));
  EXPECT_EQ("its principal object refuses the bundle",
            LoadFailure(TestExtension("HostTestTwoStepRefusing").path()));
}

OBJC_TEST(ExtensionBundle, IsAskedForThePanelsOfEachTypeInOrder) {
  TestExtension folder("HostTestOneStep");
  Expected<ExtensionBundle> bundle = ExtensionBundle::Load(folder.path());
  ASSERT_TRUE(bundle) << bundle.message();
  [AskedTypes() removeAllObjects];
  NSArray *expected = @[
    (NSString *)kGeneralPrintDialogTypeIDStr, (NSString *)kAppPrintDialogTypeIDStr,
    (NSString *)kPrinterModuleTypeIDStr
  ];
  EXPECT_EQUAL_OBJECTS(expected, PanelsOf(*bundle, nil));
  EXPECT_EQUAL_OBJECTS(expected, AskedTypes());
}

OBJC_TEST(ExtensionBundle, TakesItsBundleInTwoStepsWithoutTheProtocol) {
  TestExtension folder("HostTestTwoStep");
  Expected<ExtensionBundle> bundle = ExtensionBundle::Load(folder.path());
  ASSERT_TRUE(bundle) << bundle.message();
  EXPECT_EQUAL_OBJECTS(@[ @"panel" ], PanelsOf(*bundle, nil));
}

OBJC_TEST(ExtensionBundle, NamesTheAttributeThatAPrinterLacks) {
  EXPECT_EQ("no attribute VQTest", ReasonForNoPanel(kWantsTrue, ""));
}

OBJC_TEST(ExtensionBundle, NamesTheValueThatIsNotTheRightOne) {
  EXPECT_EQ("VQTest is \"True\", must be exactly \"true\"",
            ReasonForNoPanel(kWantsTrue, "*VQTest: \"True\"\n"));
  EXPECT_EQ("VQTest is \"true \", must be exactly \"true\"",
            ReasonForNoPanel(kWantsTrue, "*VQTest: \"true \"\n"));
  EXPECT_EQ("VQTest is \"\", must be exactly \"true\"",
            ReasonForNoPanel(kWantsTrue, "*VQTest: \"\"\n"));
  EXPECT_EQ("VQTest is \"false\", must be exactly \"true\"",
            ReasonForNoPanel(kWantsTrue, "*VQTest: \"false\"\n*VQTest: \"true\"\n"));
}

OBJC_TEST(ExtensionBundle, IsToBlameWhereThePrinterIsRight) {
  EXPECT_EQ("the bundle is incomplete: it makes no panel although VQTest is \"true\"",
            ReasonForNoPanel(kWantsTrue, "*VQTest: \"true\"\n"));
}

OBJC_TEST(ExtensionBundle, NeedNotSayWhatItLooksFor) {
  for (const char *entries : {"", "PDESupportAttribute = { Keyword = VQTest; };",
                              "PDESupportAttribute = { Value = true; };"}) {
    EXPECT_EQ("the bundle offers none for this printer",
              ReasonForNoPanel(entries, "*VQTest: \"true\"\n"));
  }
}

// Nothing in a bundle that the dialog does not know may end the dialog.
OBJC_TEST(ExtensionBundle, MaySayWhatItLooksForInTheWrongKindOfValue) {
  for (const char *entries : {"PDESupportAttribute = VQTest;", "PDESupportAttribute = ( VQTest );",
                              "PDESupportAttribute = { Keyword = ( VQTest ); Value = true; };"}) {
    EXPECT_EQ("the bundle offers none for this printer",
              ReasonForNoPanel(entries, "*VQTest: \"true\"\n"));
  }
}

OBJC_TEST(ExtensionBundle, IsRefusedIfItRaisesWhileItLoads) {
  EXPECT_EQ("it raised Trouble: no bundle", LoadFailure(TestExtension("HostTestRaising").path()));
}

OBJC_TEST(ExtensionBundle, IsToBlameForWhatItRaisesWhenAskedForPanels) {
  TestExtension folder("HostTestRaisingPanels");
  Expected<ExtensionBundle> bundle = ExtensionBundle::Load(folder.path());
  ASSERT_TRUE(bundle) << bundle.message();
  Expected<Retained<NSArray *>> panels = bundle->Panels(nil);
  ASSERT_FALSE(panels);
  EXPECT_EQ("the bundle " + folder.path().string() + " raised Trouble: no panels",
            panels.message());
}

OBJC_TEST(ExtensionBundle, IsToBlameForPanelsThatAreNoArray) {
  TestExtension folder("HostTestNoArray");
  Expected<ExtensionBundle> bundle = ExtensionBundle::Load(folder.path());
  ASSERT_TRUE(bundle) << bundle.message();
  Expected<Retained<NSArray *>> panels = bundle->Panels(nil);
  ASSERT_FALSE(panels);
  EXPECT_EQ("the bundle " + folder.path().string() + " answered panels that are no array",
            panels.message());
}

OBJC_TEST(ExtensionBundle, HasTheNameOfItsInfoOrElseOfItsFolder) {
  const auto name = [](const std::string &entries) {
    TestExtension folder("HostTestOneStep", entries);
    Expected<ExtensionBundle> bundle = ExtensionBundle::Load(folder.path());
    return bundle ? bundle->Name() : bundle.message();
  };
  EXPECT_EQ("Two words", name("CFBundleName = \"Two words\";"));
  EXPECT_EQ("Test", name(""));
  EXPECT_EQ("Test", name("CFBundleName = \"\";"));
  EXPECT_EQ("Test", name("CFBundleName = ( Test );"));
}

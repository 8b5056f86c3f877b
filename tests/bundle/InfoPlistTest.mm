#import "tests/support/BuiltBundle.h"
#import "tests/support/ObjCTest.h"

namespace {

id Info(NSString *key) { return [BuiltBundle() objectForInfoDictionaryKey:key]; }

}  // namespace

OBJC_TEST(InfoPlist, NamesTheExecutableAndThePrincipalClass) {
  EXPECT_EQUAL_OBJECTS(@"BackgroundNumbering", Info(@"CFBundleExecutable"));
  EXPECT_EQUAL_OBJECTS(@"BNDL", Info(@"CFBundlePackageType"));
  EXPECT_EQUAL_OBJECTS(@"velmoraBNPdePluginRV2", Info(@"NSPrincipalClass"));
  EXPECT_EQUAL_OBJECTS(@"velmoraBNPdePluginRV2", NSStringFromClass([BuiltBundle() principalClass]));
}

// Without it no sandboxed application shows the panel.
OBJC_TEST(InfoPlist, DeclaresThePanelsFitForSandboxes) {
  EXPECT_TRUE([Info((NSString *)kPMSandboxCompatiblePDEs) boolValue]);
}

// The protocol would make the dialog expect an object from initWithBundle:, which answers a
// boolean.
OBJC_TEST(InfoPlist, PrincipalClassDoesNotDeclareTheOneStepProtocol) {
  EXPECT_FALSE(
      [[BuiltBundle() principalClass] conformsToProtocol:NSProtocolFromString(@"PDEPlugIn")]);
}

OBJC_TEST(InfoPlist, SupportAttributeIsTheOneThatThePanelLooksFor) {
  NSDictionary *expected = @{@"Keyword" : @"VQBackgroundNumberingSupport", @"Value" : @"true"};
  EXPECT_EQUAL_OBJECTS(expected, Info(@"PDESupportAttribute"));
}

OBJC_TEST(InfoPlist, SettingInfoIsTheResourceThatThePanelReads) {
  EXPECT_NE(nil, [BuiltBundle() pathForResource:Info(@"PDESettingInfo") ofType:@"plist"]);
}

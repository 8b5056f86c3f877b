#import <PrintCore/PrintCore.h>

#import "tests/support/ObjCTest.h"

OBJC_TEST(PrintingDialogExtensions, PanelTypesAreTheSystemsOwn) {
  EXPECT_EQUAL_OBJECTS(@"6E6ED964-B738-11D3-952F-0050E4603277",
                       (NSString *)kGeneralPageSetupDialogTypeIDStr);
  EXPECT_EQUAL_OBJECTS(@"C1BF838E-B72A-11D3-9644-0050E4603277",
                       (NSString *)kGeneralPrintDialogTypeIDStr);
  EXPECT_EQUAL_OBJECTS(@"B9A0DA98-E57F-11D3-9E83-0050E4603277",
                       (NSString *)kAppPageSetupDialogTypeIDStr);
  EXPECT_EQUAL_OBJECTS(@"BCB07250-E57F-11D3-8CA6-0050E4603277",
                       (NSString *)kAppPrintDialogTypeIDStr);
  EXPECT_EQUAL_OBJECTS(@"BDB091F4-E57F-11D3-B5CC-0050E4603277",
                       (NSString *)kPrinterModuleTypeIDStr);
}

OBJC_TEST(PrintingDialogExtensions, KeysAreTheSystemsOwn) {
  EXPECT_EQUAL_OBJECTS(@"Summary Display Order", (NSString *)SUMMARY_DISPLAY_ORDER);
  EXPECT_EQUAL_OBJECTS(@"PMSandboxCompatiblePDEs", (NSString *)kPMSandboxCompatiblePDEs);
}

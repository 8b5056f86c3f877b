// Colors on a printer that has them, and on one that does not.

#import "settinginfo/velmoraBNCommonInfoRV2.h"

#import "tests/support/Job.h"
#import "tests/support/ObjCTest.h"

namespace {

void ExpectColor(bool color, const std::string &ppd_lines) {
  SCOPED_TRACE(ppd_lines);
  NSMutableDictionary *setting_info = SettingInfoWith(@"DefaultValue", @"Color", @"Red");
  NSArray *items = @[ @"Green", @"Red" ];
  [[setting_info objectForKey:@"PopUpItem"] setObject:items forKey:@"Color"];
  Job job(ppd_lines, setting_info);
  EXPECT_EQ(color, static_cast<bool>([job.info() isColorPrinter]));
  EXPECT_EQUAL_OBJECTS(color ? @"Red" : @"Black", [job.info() defaultColor]);
  EXPECT_EQUAL_OBJECTS(color ? items : @[ @"Black" ], [job.info() popUpItemsForColor]);
}

}  // namespace

OBJC_TEST(CommonInfoColor, ColorDeviceTrueGivesTheColorsOfTheResource) {
  ExpectColor(true, "*ColorDevice: True\n");
  ExpectColor(true, "*ColorDevice: \"True\"\n");
  ExpectColor(true, "*ColorDevice Some/Translated: \"True\"\n");
}

OBJC_TEST(CommonInfoColor, AnythingElseGivesBlackAlone) {
  for (const char *line :
       {"", "*ColorDevice: False\n", "*ColorDevice: true\n", "*ColorDevice: TRUE\n",
        "*ColorDevice: \"True \"\n", "*ColorDevice: \" True\"\n", "*ColorDevice: \"\"\n",
        "*ColorDevice: \"Truest\"\n"}) {
    ExpectColor(false, line);
  }
}

OBJC_TEST(CommonInfoColor, TheFirstOfSeveralColorDevicesWins) {
  ExpectColor(true, "*ColorDevice Z: \"True\"\n*ColorDevice A: \"False\"\n");
  ExpectColor(false, "*ColorDevice Z: \"False\"\n*ColorDevice A: \"True\"\n");
}

OBJC_TEST(CommonInfoColor, AQueueWithoutPPDFileHasNoColor) {
  Job job(kColorDevice);
  job.host()->ppd = nullptr;
  EXPECT_FALSE([job.info() isColorPrinter]);
  EXPECT_EQUAL_OBJECTS(@"Black", [job.info() defaultColor]);
}

OBJC_TEST(CommonInfoColor, BlackAloneIsANewImmutableArrayEachTime) {
  Job job(kMonoDevice);
  NSArray *items = [job.info() popUpItemsForColor];
  EXPECT_TRUE(items != [job.info() popUpItemsForColor]);
  EXPECT_FALSE([items isKindOfClass:[NSMutableArray class]]);
}

OBJC_TEST(CommonInfoColor, IsDecidedAnewOnEveryCall) {
  Job job(kMonoDevice);
  TestPPD color(kColorDevice);
  EXPECT_FALSE([job.info() isColorPrinter]);
  job.host()->ppd = color.get();
  EXPECT_TRUE([job.info() isColorPrinter]);
  EXPECT_EQ(2, job.host()->ppdFileCalls);
}

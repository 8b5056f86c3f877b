// What the panel looks up for a printer, and what the printer's PPD file lists.

#import <Cocoa/Cocoa.h>

#include <string>
#include <vector>

#import "settinginfo/velmoraBNCommonInfoRV2.h"
#import "tests/support/ObjCTest.h"
#import "tests/support/TestHost.h"

namespace {

ppd_file_t *BuiltPPD(const char *name) {
  const std::string path = std::string(BINARY_DIRECTORY "/printer/") + name;
  ppd_file_t *ppd = ppdOpenFile(path.c_str());
  EXPECT_NE(nullptr, ppd) << path;
  ppdMarkDefaults(ppd);
  return ppd;
}

velmoraBNCommonInfoRV2 *PanelsInformation(ppd_file_t *ppd) {
  NSString *path = [NSString stringWithUTF8String:BINARY_DIRECTORY "/BackgroundNumbering.plugin"];
  velmoraBNCommonInfoRV2 *info =
      [[velmoraBNCommonInfoRV2 alloc] initWithCallback:[[TestHost hostWithPPD:ppd] callback]
                                                bundle:[NSBundle bundleWithPath:path]];
  return [info autorelease];
}

NSArray *Choices(ppd_file_t *ppd, NSString *keyword) {
  NSMutableArray *choices = [NSMutableArray array];
  ppd_option_t *option = ppdFindOption(ppd, [keyword UTF8String]);
  for (int index = 0; option != nullptr && index < option->num_choices; ++index) {
    [choices addObject:[NSString stringWithUTF8String:option->choices[index].choice]];
  }
  return choices;
}

NSString *DefaultChoice(ppd_file_t *ppd, NSString *keyword) {
  ppd_choice_t *choice = ppdFindMarkedChoice(ppd, [keyword UTF8String]);
  return choice == nullptr ? nil : [NSString stringWithUTF8String:choice->choice];
}

NSArray *Range(velmoraBNCommonInfoRV2 *info) {
  NSMutableArray *numbers = [NSMutableArray array];
  for (int number = [[info startNumberMin] intValue]; number <= [[info startNumberMax] intValue];
       ++number) {
    [numbers addObject:[NSString stringWithFormat:@"%d", number]];
  }
  return numbers;
}

void ExpectAgreement(const char *name) {
  ppd_file_t *ppd = BuiltPPD(name);
  velmoraBNCommonInfoRV2 *info = PanelsInformation(ppd);
  ASSERT_NE(nil, info);

  EXPECT_EQUAL_OBJECTS([info popUpItemsForSize], Choices(ppd, [info ticketKeySize]));
  EXPECT_EQUAL_OBJECTS([info popUpItemsForDensity], Choices(ppd, [info ticketKeyDensity]));
  EXPECT_EQUAL_OBJECTS([info popUpItemsForColor], Choices(ppd, [info ticketKeyColor]));
  EXPECT_EQUAL_OBJECTS(Range(info), Choices(ppd, [info ticketKeyStartNumber]));
  NSArray *switching = @[ BNCIFunctionOff, BNCIFunctionOn ];
  EXPECT_EQUAL_OBJECTS(switching, Choices(ppd, [info ticketKeyValid]));

  EXPECT_EQUAL_OBJECTS([info defaultSize], DefaultChoice(ppd, [info ticketKeySize]));
  EXPECT_EQUAL_OBJECTS([info defaultDensity], DefaultChoice(ppd, [info ticketKeyDensity]));
  EXPECT_EQUAL_OBJECTS([info defaultColor], DefaultChoice(ppd, [info ticketKeyColor]));
  EXPECT_EQUAL_OBJECTS([info defaultStartNumber], DefaultChoice(ppd, [info ticketKeyStartNumber]));
  EXPECT_EQUAL_OBJECTS([info defaultValid], DefaultChoice(ppd, [info ticketKeyValid]));
  ppdClose(ppd);
}

}  // namespace

OBJC_TEST(PanelAgrees, WithTheColorPrinter) { ExpectAgreement("VelmoraNumbering.ppd"); }

OBJC_TEST(PanelAgrees, WithTheMonochromePrinter) { ExpectAgreement("VelmoraNumberingMono.ppd"); }

OBJC_TEST(PanelAgrees, OneOfThePrintersHasColor) {
  ppd_file_t *color = BuiltPPD("VelmoraNumbering.ppd");
  ppd_file_t *mono = BuiltPPD("VelmoraNumberingMono.ppd");
  EXPECT_TRUE([PanelsInformation(color) isColorPrinter]);
  EXPECT_FALSE([PanelsInformation(mono) isColorPrinter]);
  ppdClose(color);
  ppdClose(mono);
}

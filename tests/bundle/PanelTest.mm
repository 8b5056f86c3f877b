#import "tests/support/BuiltBundle.h"
#import "tests/support/ObjCTest.h"
#include "tests/support/TestPPD.h"

#include <memory>

namespace {

const char kColorPrinter[] = "*ColorDevice: True\n*VQBackgroundNumberingSupport: \"true\"\n";
const char kMonoPrinter[] = "*ColorDevice: False\n*VQBackgroundNumberingSupport: \"true\"\n";

// A panel of the built bundle, shown as the dialog shows it.
struct ShownPanel {
  TestPPD ppd;
  TestHost *host;
  id<PDEPanel> panel;

  explicit ShownPanel(const char *lines, NSDictionary *settings = nil)
      : ppd(lines), host([TestHost hostWithPPD:ppd.get()]) {
    for (NSString *key in settings) [host setValue:[settings objectForKey:key] forSetting:key];
    panel = NewPanel(host);
    [panel panelView];
    [panel willShow];
  }
  id Control(NSString *name) const { return Outlet(panel, name); }
};

}  // namespace

OBJC_TEST(Panel, IsOfferedToASupportedPrinterOnly) {
  TestPPD supported(kColorPrinter);
  TestPPD other("*ColorDevice: True\n");
  EXPECT_NE(nil, NewPanel([TestHost hostWithPPD:supported.get()]));
  EXPECT_EQ(nil, NewPanel([TestHost hostWithPPD:other.get()]));
}

OBJC_TEST(Panel, DeclaresThePanelProtocol) {
  TestPPD ppd(kColorPrinter);
  id panel = NewPanel([TestHost hostWithPPD:ppd.get()]);
  Protocol *protocol = NSProtocolFromString(@"PDEPanel");  // which came with the bundle
  ASSERT_NE(nil, protocol);
  EXPECT_TRUE([panel conformsToProtocol:protocol]);
}

OBJC_TEST(Panel, HasALocalizedNameAndTheKindOfTheResource) {
  ShownPanel shown(kColorPrinter);
  EXPECT_EQUAL_OBJECTS(@"Background Numbering", [shown.panel panelName]);
  EXPECT_EQUAL_OBJECTS(@"com.velmora.print.pde.BackgroundNumberingKind", [shown.panel panelKind]);
}

OBJC_TEST(Panel, IsCreatedWithTheDefaultsInTheJob) {
  TestPPD ppd(kColorPrinter);
  TestHost *host = [TestHost hostWithPPD:ppd.get()];
  NewPanel(host);
  NSDictionary *expected = @{
    @"VQBackgroundNumbering" : @"Off",
    @"VQBNSize" : @"Medium",
    @"VQBNDensity" : @"Medium",
    @"VQBNColor" : @"Black",
    @"VQStartNumber" : @"1",
  };
  EXPECT_EQUAL_OBJECTS(expected, [host allSettings]);
}

OBJC_TEST(Panel, ShowsWhatTheJobHolds) {
  ShownPanel shown(kColorPrinter, @{
    @"VQBackgroundNumbering" : @"On",
    @"VQBNSize" : @"Large",
    @"VQBNDensity" : @"Light",
    @"VQBNColor" : @"Cyan",
    @"VQStartNumber" : @"42",
  });
  EXPECT_EQ(NSControlStateValueOn, [shown.Control(@"functionValid") state]);
  EXPECT_EQUAL_OBJECTS(@"Large", [shown.Control(@"popUpSize") titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(@"Light", [shown.Control(@"popUpDensity") titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(@"Cyan", [shown.Control(@"popUpColor") titleOfSelectedItem]);
  EXPECT_EQUAL_OBJECTS(@"42", [shown.Control(@"textBoxStartNumber") stringValue]);
  EXPECT_EQ(42, [shown.Control(@"stepperStartNumber") integerValue]);
}

OBJC_TEST(Panel, SavesWhatTheControlsShow) {
  ShownPanel shown(kColorPrinter);
  [shown.Control(@"functionValid") setState:NSControlStateValueOn];
  [shown.Control(@"popUpSize") selectItemWithTitle:@"Small"];
  [shown.Control(@"popUpDensity") selectItemWithTitle:@"Dark"];
  [shown.Control(@"popUpColor") selectItemWithTitle:@"Magenta"];
  [shown.Control(@"textBoxStartNumber") setStringValue:@"7"];
  EXPECT_TRUE([shown.panel saveValuesAndReturnError:nullptr]);
  NSDictionary *expected = @{
    @"VQBackgroundNumbering" : @"On",
    @"VQBNSize" : @"Small",
    @"VQBNDensity" : @"Dark",
    @"VQBNColor" : @"Magenta",
    @"VQStartNumber" : @"7",
  };
  EXPECT_EQUAL_OBJECTS(expected, [shown.host allSettings]);
}

OBJC_TEST(Panel, SummarizesInDisplayOrder) {
  ShownPanel shown(
      kColorPrinter,
      @{@"VQBackgroundNumbering" : @"On", @"VQBNColor" : @"Red", @"VQStartNumber" : @"9"});
  NSArray *order = @[ @"Size", @"Density", @"Color", @"Start Number" ];
  NSDictionary *expected = @{
    @"Size" : @"Medium",
    @"Density" : @"Medium",
    @"Color" : @"Red",
    @"Start Number" : @"9",
    @"Summary Display Order" : order,
  };
  EXPECT_EQUAL_OBJECTS(expected, [shown.panel summaryInfo]);
}

OBJC_TEST(Panel, SummarizesOffInOneLine) {
  ShownPanel shown(kColorPrinter);
  EXPECT_EQUAL_OBJECTS(@{@"Print background numbers" : @"Off"}, [shown.panel summaryInfo]);
}

OBJC_TEST(Panel, OffersBlackAloneWithoutColor) {
  ShownPanel shown(kMonoPrinter, @{@"VQBackgroundNumbering" : @"On", @"VQBNColor" : @"Red"});
  EXPECT_EQUAL_OBJECTS(@[ @"Black" ], [shown.Control(@"popUpColor") itemTitles]);
  EXPECT_FALSE([shown.Control(@"popUpColor") isEnabled]);
  EXPECT_TRUE([shown.Control(@"popUpSize") isEnabled]);
  EXPECT_EQUAL_OBJECTS(@"Black", [shown.host valueForSetting:@"VQBNColor"]);
}

OBJC_TEST(Panel, CorrectsTheColorBeforePrintingEvenUnseen) {
  TestPPD ppd(kMonoPrinter);
  TestHost *host = [TestHost hostWithPPD:ppd.get()];
  [host setValue:@"Red" forSetting:@"VQBNColor"];
  EXPECT_TRUE([NewPanel(host) shouldPrint]);
  EXPECT_EQUAL_OBJECTS(@"Black", [host valueForSetting:@"VQBNColor"]);
}

OBJC_TEST(Panel, AnOptionChangedFromOutsideShowsAtTheNextRestore) {
  ShownPanel shown(kColorPrinter);
  [shown.host setValue:@"Small" forSetting:@"VQBNSize"];
  [shown.panel PPDOptionKeyValueDidChange:@"VQBNSize" ppdChoice:@"Small"];
  EXPECT_EQUAL_OBJECTS(@"Medium", [shown.Control(@"popUpSize") titleOfSelectedItem]);
  [shown.panel restoreValuesAndReturnError:nullptr];
  EXPECT_EQUAL_OBJECTS(@"Small", [shown.Control(@"popUpSize") titleOfSelectedItem]);
}

#import "host/DialogWindow.h"

#import "tests/gui/PanelOnScreen.h"
#import "tests/support/ObjCTest.h"

OBJC_TEST(DialogWindow, ReturnAndEscapeCloseIt) {
  for (const char *key : {"Return", "Escape"}) {
    PanelOnScreen panel;
    panel.Press({key});
    EXPECT_FALSE([panel.window() isVisible]) << key;
  }
}

OBJC_TEST(DialogWindow, ReturnClosesItFromTheBoxAndKeepsTheNumber) {
  PanelOnScreen panel(NumberingFrom(@"1"));
  panel.FocusStartNumber();
  panel.Type("25");
  panel.Press({"Return"});
  EXPECT_FALSE([panel.window() isVisible]);
  EXPECT_EQUAL_OBJECTS(@"25", [panel.SavedSettings() objectForKey:@"VQStartNumber"]);
}

OBJC_TEST(DialogWindow, ShowsThePanelWholeAboveItsButton) {
  PanelOnScreen panel;
  NSView *view = panel[@"view"];
  NSView *content = [panel.window() contentView];
  EXPECT_TRUE(NSContainsRect([content bounds], [view frame]));
  EXPECT_EQ(NSMaxY([content bounds]), NSMaxY([view frame]));
}

OBJC_TEST(DialogWindow, APictureOfThePanelIsAPngOfItsSize) {
  PanelOnScreen panel;
  NSBitmapImageRep *picture = [NSBitmapImageRep imageRepWithData:PictureOfView(panel[@"view"])];
  ASSERT_NE(nil, picture);
  EXPECT_EQ([panel[@"view"] bounds].size.width, [picture pixelsWide]);
  EXPECT_EQ([panel[@"view"] bounds].size.height, [picture pixelsHigh]);
}

OBJC_TEST(DialogWindow, GreyedCaptionsCanBeSeen) {
  PanelOnScreen panel;
  NSBitmapImageRep *picture = [NSBitmapImageRep imageRepWithData:PictureOfView(panel[@"view"])];
  NSColor *caption =
      [[panel[@"labelSize"] textColor] colorUsingColorSpaceName:NSCalibratedRGBColorSpace];
  NSColor *corner = [[picture colorAtX:2 y:2] colorUsingColorSpaceName:NSCalibratedRGBColorSpace];
  EXPECT_GT([corner redComponent] - [caption redComponent], 0.2);
}

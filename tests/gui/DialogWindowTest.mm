#import "host/dialog/DialogWindow.h"

#include <gmock/gmock.h>

#import "tests/gui/PanelOnScreen.h"
#import "tests/support/ObjCTest.h"

using testing::HasSubstr;

// A control that cannot handle what it is sent, as with a pasteboard that does not answer.
@interface RaisingView : NSView
@end

@implementation RaisingView
- (BOOL)acceptsFirstResponder {
  return YES;
}
- (void)keyDown:(NSEvent *)event {
  (void)event;
  [NSException raise:NSGenericException format:@"no answer to a key"];
}
- (void)paste:(id)sender {
  (void)sender;
  [NSException raise:NSGenericException format:@"no answer to a paste"];
}
@end

OBJC_TEST(DialogWindow, LivesOnWhenAnEventRaises) {
  PanelOnScreen panel(NumberingFrom(@"7"));
  RaisingView *view = [[[RaisingView alloc] initWithFrame:NSMakeRect(0, 0, 5, 5)] autorelease];
  [[panel.window() contentView] addSubview:view];
  ASSERT_TRUE([panel.window() makeFirstResponder:view]);
  testing::internal::CaptureStderr();
  panel.Press({"x", "ctrl+v"});
  const std::string complaints = testing::internal::GetCapturedStderr();
  EXPECT_THAT(complaints, HasSubstr("no answer to a key"));
  EXPECT_THAT(complaints, HasSubstr("no answer to a paste"));
  EXPECT_TRUE([panel.window() isVisible]);
  [panel.window() makeFirstResponder:panel[@"functionValid"]];
  panel.FocusStartNumber();
  panel.Type("8");
  EXPECT_EQUAL_OBJECTS(@"8", panel.StartNumber());
}

OBJC_TEST(DialogWindow, NamesThePrinterOfAPPDFile) {
  PanelOnScreen panel;
  NSPopUpButton *printers = [panel.dialog().view() printers];
  EXPECT_EQUAL_OBJECTS(@"Test", [printers titleOfSelectedItem]);
  EXPECT_FALSE([printers isEnabled]);
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

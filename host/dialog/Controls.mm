#import "host/dialog/Controls.h"

#include <cmath>

@implementation FlippedView

- (BOOL)isFlipped {
  return YES;
}

@end

NSTextField *Label(NSString *text) {
  NSTextField *label = [[[NSTextField alloc] initWithFrame:NSZeroRect] autorelease];
  [label setStringValue:text];
  [label setEditable:NO];
  [label setSelectable:NO];
  [label setBezeled:NO];
  [label setDrawsBackground:NO];
  [[label cell] setWraps:YES];
  return label;
}

NSTextField *Caption(NSString *text) {
  NSTextField *caption = Label(text);
  [caption setAlignment:NSRightTextAlignment];
  return caption;
}

NSTextField *TextBox(id<NSTextFieldDelegate> delegate) {
  NSTextField *box = [[[NSTextField alloc] initWithFrame:NSZeroRect] autorelease];
  [box setDelegate:delegate];
  [[box cell] setScrollable:YES];
  [[box cell] setWraps:NO];
  return box;
}

NSButton *PushButton(NSString *title, id target, SEL action) {
  NSButton *button = [[[NSButton alloc] initWithFrame:NSZeroRect] autorelease];
  [button setButtonType:NSMomentaryPushInButton];
  [button setBezelStyle:NSRegularSquareBezelStyle];
  [button setTitle:title];
  [button setTarget:target];
  [button setAction:action];
  return button;
}

NSPopUpButton *PopUpButton(id target, SEL action) {
  NSPopUpButton *popUp = [[[NSPopUpButton alloc] initWithFrame:NSZeroRect
                                                     pullsDown:NO] autorelease];
  [popUp setBezelStyle:NSRegularSquareBezelStyle];
  [popUp setTarget:target];
  [popUp setAction:action];
  return popUp;
}

NSMenuItem *AddItem(NSPopUpButton *popUp, NSString *title, id representedObject) {
  // The pop-up's own way of adding moves an item that has the title already.
  NSMenuItem *item = (NSMenuItem *)[[popUp menu] addItemWithTitle:title
                                                           action:nullptr
                                                    keyEquivalent:@""];
  [item setRepresentedObject:representedObject];
  return item;
}

void AddSeparator(NSPopUpButton *popUp) { [[popUp menu] addItem:[NSMenuItem separatorItem]]; }

CGFloat HeightOfText(NSTextField *label, CGFloat width) {
  const NSSize size = [[label cell] cellSizeForBounds:NSMakeRect(0, 0, width, 10000)];
  return std::ceil(size.height);
}

NSString *String(const std::string &text) {
  NSString *string = [NSString stringWithUTF8String:text.c_str()];
  if (string != nil) return string;
  return [[[NSString alloc] initWithBytes:text.data()
                                   length:text.size()
                                 encoding:NSISOLatin1StringEncoding] autorelease];
}

std::string Text(NSString *string) {
  const char *bytes = [string UTF8String];
  return bytes == nullptr ? "" : bytes;
}

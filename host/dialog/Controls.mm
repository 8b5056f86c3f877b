#import "host/dialog/Controls.h"

#include <algorithm>
#include <cmath>

#include "host/base/Localized.h"

namespace {
const CGFloat kTextInset = 4;     // of a text in its field, at each side
const CGFloat kButtonInset = 12;  // of a title in its button
}  // namespace

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

NSTextField *Caption(const std::string &text) {
  NSTextField *caption = Label(String(Localized("%1:", {text})));
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
  // The cell's own measure knows one line only.
  const NSRect text =
      [[label attributedStringValue] boundingRectWithSize:NSMakeSize(width - 2 * kTextInset, 10000)
                                                  options:NSStringDrawingUsesLineFragmentOrigin];
  return std::ceil(text.size.height) + 2;
}

CGFloat WidthOfText(NSTextField *label) {
  return std::ceil([[label attributedStringValue] size].width) + 2 * kTextInset;
}

CGFloat WidthOfButton(NSButton *button, CGFloat least) {
  return std::max(least, std::ceil([[button cell] cellSize].width) + 2 * kButtonInset);
}

NSString *String(const std::string &text) {
  NSString *string = [NSString stringWithUTF8String:text.c_str()];
  if (string != nil) return string;
  return [[[NSString alloc] initWithBytes:text.data()
                                   length:text.size()
                                 encoding:NSISOLatin1StringEncoding] autorelease];
}

NSString *Sentence(const std::string &message) {
  NSString *text = String(message);
  if ([text length] == 0) return text;
  NSString *first = [[text substringToIndex:1] uppercaseString];
  text = [first stringByAppendingString:[text substringFromIndex:1]];
  if ([text hasSuffix:@"."]) return text;
  return String(Localized("%1.", {Text(text)}));
}

std::string Text(NSString *string) {
  const char *bytes = [string UTF8String];
  return bytes == nullptr ? "" : bytes;
}

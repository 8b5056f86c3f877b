#import "view/velmoraBNTextBoxRV2.h"

#include <algorithm>

namespace {

NSInteger NumberInText(NSString *text) {
  NSCharacterSet *digits = [NSCharacterSet characterSetWithCharactersInString:@"0123456789"];
  NSArray *runs = [text componentsSeparatedByCharactersInSet:[digits invertedSet]];
  return [[runs componentsJoinedByString:@""] integerValue];
}

}  // namespace

@implementation velmoraBNTextBoxRV2

@synthesize min = _min;
@synthesize max = _max;

- (void)dealloc {
  [_min release];
  [_max release];
  [super dealloc];
}

- (void)changeState:(NSNumber *)active {
  [self setEnabled:[active boolValue]];
}

- (void)setValueRange:(NSNumber *)min max:(NSNumber *)max {
  self.min = min;
  self.max = max;
}

- (NSNumber *)verifyValue:(NSNumber *)value {
  if ([value integerValue] < [self.min integerValue]) return self.min;
  if ([value integerValue] > [self.max integerValue]) return self.max;
  return value;
}

- (NSString *)stringValue {
  NSText *fieldEditor = [self currentEditor];
  if (fieldEditor == nil) return [super stringValue];
  return [[[fieldEditor string] copy] autorelease];
}

- (void)textDidChange:(NSNotification *)notification {
  NSString *typed = [self stringValue];
  NSText *editorBefore = [self currentEditor];
  NSUInteger caret = editorBefore == nil ? 0 : NSMaxRange([editorBefore selectedRange]);
  NSUInteger afterCaret = [typed length] - caret;

  [super textDidChange:notification];

  NSText *editor = [self currentEditor];
  if (editor == nil && editorBefore != nil) {
    // Rewriting the text ends editing; not every platform starts it again.
    [[self window] makeFirstResponder:self];
    editor = [self currentEditor];
  }
  if (editor == nil) return;
  NSUInteger length = [[editor string] length];
  if (NumberInText(typed) < [self.min integerValue]) {
    [editor setSelectedRange:NSMakeRange(0, length)];
  } else {
    [editor setSelectedRange:NSMakeRange(length - std::min(afterCaret, length), 0)];
  }
}

@end

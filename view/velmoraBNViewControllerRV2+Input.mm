#import "view/velmoraBNViewControllerRV2+Input.h"

#include <algorithm>
#include <span>

namespace {

bool IsDigit(unichar character) { return character >= u'0' && character <= u'9'; }

// A copy of the string's UTF-16 code units, alive for the current autorelease scope. Never NULL: an
// empty buffer may be, and the platform makes no string of NULL, not even an empty one.
std::span<unichar> Characters(NSString *string) {
  NSUInteger length = [string length];
  NSMutableData *buffer = [NSMutableData dataWithLength:(length + 1) * sizeof(unichar)];
  auto *characters = static_cast<unichar *>([buffer mutableBytes]);
  [string getCharacters:characters range:NSMakeRange(0, length)];
  return {characters, length};
}

}  // namespace

@implementation velmoraBNViewControllerRV2 (Input)

- (void)updateView {
  if (self.viewIsInited) [self BNVCGreyView];
}

- (void)BNVCGreyView {
  NSArray *components = @[
    self.textBoxStartNumber, self.stepperStartNumber, self.defaultButton, self.labelSize,
    self.labelDensity, self.labelColor, self.labelStartNumber, self.labelStartNumberRange
  ];
  BOOL on = [self.functionValid state] == NSControlStateValueOn;
  NSNumber *active = [NSNumber numberWithBool:on];
  [components makeObjectsPerformSelector:@selector(changeState:) withObject:active];

  // A menu without a choice stays grey, such as the colours of a printer without colour.
  for (velmoraBNPopUpButtonRV2 *popUp in @[ self.popUpSize, self.popUpDensity, self.popUpColor ]) {
    [popUp changeState:[popUp numberOfItems] > 1 ? active : [NSNumber numberWithBool:NO]];
  }
}

- (void)changeFunctionValid:(id)sender {
  (void)sender;
  [self BNVCGreyView];
}

- (void)restoreDefaults:(id)sender {
  (void)sender;
  [self.ticket restoreDefaultsExceptValid];
}

- (void)controlTextDidChange:(NSNotification *)notification {
  velmoraBNTextBoxRV2 *textBox = [notification object];
  NSString *digits = [self BNVCDigitString:[textBox stringValue]];
  NSNumber *typed = [NSNumber numberWithInteger:[digits integerValue]];
  NSNumber *number = [textBox verifyValue:typed];
  [textBox setStringValue:[number stringValue]];

  NSDictionary *ticketNames = @{BNVCIdentifierStartNumber : BNPTMNameStartNumber};
  NSString *ticketName = [ticketNames objectForKey:[textBox identifier]];
  if (ticketName != nil) [self.ticket changeValue:number ticketName:ticketName];
}

- (NSString *)BNVCDigitString:(NSString *)string {
  std::span<unichar> characters = Characters(string);
  auto end = std::remove_if(characters.begin(), characters.end(),
                            [](unichar character) { return !IsDigit(character); });
  return [NSString stringWithCharacters:characters.data()
                                 length:static_cast<NSUInteger>(end - characters.begin())];
}

- (BOOL)BNVCIsDigitChar:(NSString *)character {
  std::span<unichar> characters = Characters(character);
  return std::all_of(characters.begin(), characters.end(), IsDigit);
}

@end

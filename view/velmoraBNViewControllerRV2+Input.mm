#import "view/velmoraBNViewControllerRV2+Input.h"

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

  // A menu without a choice stays gray, such as the colors of a printer without color.
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
  NSMutableString *digits = [NSMutableString string];
  for (NSUInteger index = 0; index < [string length]; ++index) {
    @autoreleasepool {  // what is pasted may be long
      NSString *character = [string substringWithRange:NSMakeRange(index, 1)];
      if ([self BNVCIsDigitChar:character]) [digits appendString:character];
    }
  }
  return digits;
}

- (BOOL)BNVCIsDigitChar:(NSString *)character {
  static NSCharacterSet *digits = nil;  // made once: there is one thread
  if (digits == nil) {
    digits = [[NSCharacterSet characterSetWithCharactersInString:@"0123456789"] retain];
  }
  NSScanner *scanner = [NSScanner localizedScannerWithString:character];
  [scanner setCharactersToBeSkipped:nil];
  [scanner scanCharactersFromSet:digits intoString:nullptr];
  return [scanner isAtEnd];
}

@end
